#include "kvdatosart/host/Documento.h"

namespace kv::host {

void Documento::Dato(std::string_view clave, std::string_view rotulo, Valor valor, aplicacion::ClaseDato clase) {
    if (bloques_.empty() || !std::holds_alternative<Ficha>(bloques_.back())) bloques_.emplace_back(Ficha{});
    Ficha& ficha = std::get<Ficha>(bloques_.back());
    ficha.columnas.push_back({"", clave, rotulo, clase});
    ficha.valores.push_back(std::move(valor));
}

bool EsNingunDia(Fecha dia) {
    static const Fecha nunca = Fecha::DeAmd(1900, 1, 1);
    static const Fecha siempre = Fecha::DeAmd(2050, 12, 31);
    return dia <= nunca || dia == siempre;
}

}  // namespace kv::host
