#include "host/Respuesta.h"

#include <algorithm>

#include "db/BibliotecaComun.h"

namespace kv::host {
namespace {

using nlohmann::ordered_json;

struct AJsonVisita {
    ordered_json operator()(Nulo) const { return nullptr; }
    ordered_json operator()(Currency v) const { return v.ADouble(); }
    ordered_json operator()(Fecha v) const { return v.AIso().Cadena(); }
    // A Single is a percentage here; its nearest decimal says what it is.
    ordered_json operator()(float v) const { return Currency::DeDouble(static_cast<double>(v)).ADouble(); }
    template <class T>
    ordered_json operator()(const T& v) const {
        return v;
    }
};

ordered_json AJson(const Valor& valor) {
    return std::visit(AJsonVisita{}, valor);
}

std::string AGente(const Valor& valor) {
    if (EsNulo(valor)) return "-";
    if (const bool* logico = std::get_if<bool>(&valor)) return *logico ? "sí" : "no";
    return AString(valor, Biblioteca().SeparadorDecimal());
}

bool EsNumero(const Valor& valor) {
    return !EsNulo(valor) && !std::holds_alternative<std::string>(valor) && !std::holds_alternative<bool>(valor) &&
           !std::holds_alternative<Fecha>(valor);
}

std::string Relleno(std::size_t ancho, std::string_view texto) {
    const std::size_t visible = AnchoVisible(texto);
    return std::string(ancho > visible ? ancho - visible : 0, ' ');
}

}  // namespace

std::size_t AnchoVisible(std::string_view texto) {
    return static_cast<std::size_t>(std::count_if(
        texto.begin(), texto.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void Respuesta::Dato(const std::string& nombre, const std::string& etiqueta, const Valor& valor) {
    json_[nombre] = AJson(valor);
    Bloque bloque{Bloque::Clase::Dato, etiqueta, AGente(valor), {}, {}, {}};
    bloques_.push_back(std::move(bloque));
}

void Respuesta::Linea(const std::string& texto) {
    bloques_.push_back({Bloque::Clase::Linea, "", texto, {}, {}, {}});
}

void Respuesta::Tabla(const std::string& nombre, std::vector<std::string> columnas) {
    json_[nombre] = ordered_json::array();
    const std::size_t cuantas = columnas.size();
    bloques_.push_back({Bloque::Clase::Tabla, nombre, "", std::move(columnas), {}, std::vector<bool>(cuantas, false)});
}

void Respuesta::Fila(const std::vector<Valor>& valores) {
    Bloque& tabla = bloques_.back();
    ordered_json objeto = ordered_json::object();
    std::vector<std::string> celdas;
    for (std::size_t i = 0; i < valores.size(); ++i) {
        objeto[tabla.columnas.at(i)] = AJson(valores[i]);
        celdas.push_back(AGente(valores[i]));
        if (EsNumero(valores[i])) tabla.numericas[i] = true;
    }
    json_[tabla.nombre].push_back(std::move(objeto));
    tabla.celdas.push_back(std::move(celdas));
}

void Respuesta::Anadir(const aplicacion::Tabla& tabla) {
    std::vector<std::string> columnas;
    for (const auto& columna : tabla.columnas)
        columnas.emplace_back(columna.columna.empty() ? columna.clave : columna.columna);
    Tabla(std::string(tabla.clave), columnas);
    for (const auto& fila : tabla.filas) Fila(fila);
}

void Respuesta::Escribir(std::ostream& salida, bool json) const {
    if (json)
        // A text that is not UTF-8 shows a replacement sign; it must not spoil the rest.
        salida << json_.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
    else
        EscribirTexto(salida);
}

void Respuesta::EscribirTexto(std::ostream& salida) const {
    std::size_t anchoEtiqueta = 0;
    for (const Bloque& bloque : bloques_)
        if (bloque.clase == Bloque::Clase::Dato) anchoEtiqueta = std::max(anchoEtiqueta, AnchoVisible(bloque.nombre));
    for (const Bloque& bloque : bloques_) {
        if (bloque.clase == Bloque::Clase::Linea) salida << bloque.texto << '\n';
        if (bloque.clase == Bloque::Clase::Dato)
            salida << bloque.nombre << Relleno(anchoEtiqueta, bloque.nombre) << "  " << bloque.texto << '\n';
        if (bloque.clase != Bloque::Clase::Tabla) continue;
        std::vector<std::size_t> anchos;
        for (std::size_t i = 0; i < bloque.columnas.size(); ++i) {
            anchos.push_back(AnchoVisible(bloque.columnas[i]));
            for (const auto& fila : bloque.celdas) anchos[i] = std::max(anchos[i], AnchoVisible(fila[i]));
        }
        const auto escribirFila = [&](const std::vector<std::string>& celdas) {
            std::string linea;
            for (std::size_t i = 0; i < celdas.size(); ++i) {
                const std::string relleno = Relleno(anchos[i], celdas[i]);
                linea += (i == 0 ? "" : "  ") + (bloque.numericas[i] ? relleno + celdas[i] : celdas[i] + relleno);
            }
            linea.erase(linea.find_last_not_of(' ') + 1);
            salida << linea << '\n';
        };
        escribirFila(bloque.columnas);
        for (const auto& fila : bloque.celdas) escribirFila(fila);
    }
}

}  // namespace kv::host
