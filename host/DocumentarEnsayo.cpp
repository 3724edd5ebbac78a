#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/EscribirTexto.h"

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using aplicacion::FilaTabla;
using C = aplicacion::ClaseDato;

constexpr ColumnaTabla kParaGente[] = {
    {"", "articulo", "Artículo", C::Codigo},
    {"", "cliente", "Cliente", C::Codigo},
    {"", "unidades", "Uds.", C::Cantidad},
    {"", "netoAntes", "Antes", C::Importe},
    {"", "netoDespues", "Después", C::Importe},
    {"", "porcentaje", "Dif. %", C::Porcentaje},
    {"", "cambio", "Qué cambia"},
};

constexpr ColumnaTabla kParaProgramas[] = {
    {"", "articulo", "", C::Codigo},
    {"", "descripcion", ""},
    {"", "cliente", "", C::Codigo},
    {"", "unidades", "", C::Cantidad},
    {"", "precioAntes", "", C::Importe},
    {"", "descuentoAntes", "", C::Porcentaje},
    {"", "netoAntes", "", C::Importe},
    {"", "estadoAntes", ""},
    {"", "motivoAntes", ""},
    {"", "precioDespues", "", C::Importe},
    {"", "descuentoDespues", "", C::Porcentaje},
    {"", "netoDespues", "", C::Importe},
    {"", "estadoDespues", ""},
    {"", "motivoDespues", ""},
    {"", "diferencia", "", C::Importe},
    {"", "porcentaje", "", C::Porcentaje},
};

Valor Importe(const std::optional<PrecioComparado>& lado, Currency PrecioComparado::*importe) {
    return lado && lado->conPrecio ? Valor((*lado).*importe) : Valor(Nulo{});
}

Valor Texto(const std::optional<PrecioComparado>& lado, std::string PrecioComparado::*texto) {
    return lado ? Valor((*lado).*texto) : Valor(Nulo{});
}

// A net of a hundredth that becomes a great one leaves the range of money.
Valor Porcentaje(const LineaComparada& linea) {
    if (!linea.porcentaje) return Nulo{};
    if (*linea.porcentaje > 1e12) return *linea.porcentaje;
    return Currency::DeDouble(*linea.porcentaje).RedondearAlejando(2);
}

std::string DeA(const std::string& que, const std::string& antes, const std::string& despues) {
    return antes == despues ? "" : "; " + que + antes + " → " + despues;
}

// Why the price is another one, and what else changes.
std::string Cambio(const LineaComparada& linea, char separador) {
    if (!linea.despues) return "la línea desaparece";
    if (!linea.antes) return "línea nueva: " + linea.despues->motivo;
    const PrecioComparado& antes = *linea.antes;
    const PrecioComparado& despues = *linea.despues;
    std::string cambio = antes.motivo == despues.motivo ? "; " + despues.motivo : DeA("", antes.motivo, despues.motivo);
    const auto descuento = [&](const PrecioComparado& precio) {
        return ValorATexto(precio.descuento, C::Porcentaje, separador);
    };
    if (antes.conPrecio && despues.conPrecio) cambio += DeA("dto. %: ", descuento(antes), descuento(despues));
    cambio += DeA("", antes.situacion, despues.situacion);
    return cambio.substr(2);
}

FilaTabla EnCampos(const LineaComparada& l) {
    FilaTabla fila = {l.clave.articulo, Texto(l.despues ? l.despues : l.antes, &PrecioComparado::descripcion),
                      l.clave.cliente, l.clave.unidades};
    for (const auto* lado : {&l.antes, &l.despues})
        for (Valor& valor :
             std::vector<Valor>{Importe(*lado, &PrecioComparado::pvp), Importe(*lado, &PrecioComparado::descuento),
                                Importe(*lado, &PrecioComparado::neto), Texto(*lado, &PrecioComparado::situacion),
                                Texto(*lado, &PrecioComparado::motivo)})
            fila.push_back(std::move(valor));
    fila.push_back(l.diferencia ? Valor(*l.diferencia) : Valor(Nulo{}));
    fila.push_back(Porcentaje(l));
    return fila;
}

std::string Lineas(std::uint64_t cuantas) {
    return std::to_string(cuantas) + (cuantas == 1 ? " línea" : " líneas");
}

}  // namespace

void Documentar(Documento& d, const aplicacion::RespuestaEnsayo& ensayo) {
    const std::uint64_t cambian = ensayo.lineas.size();
    const std::uint64_t todas = ensayo.recuento.iguales + cambian;
    const std::string cuantas = cambian == 0   ? "No cambia ninguna"
                                : cambian == 1 ? "Cambia 1"
                                               : "Cambian " + std::to_string(cambian);
    d.Decir(cuantas + " de " + Lineas(todas) + "; en la base no se ha escrito nada");
    Cuadro gente{{"lineas", kParaGente}, "", {}, Cuadro::Para::Gente};
    Cuadro programas{{"lineas", kParaProgramas}, "", {}, Cuadro::Para::Programas};
    for (const LineaComparada& linea : ensayo.lineas) {
        gente.tabla.filas.push_back({linea.clave.articulo, linea.clave.cliente, linea.clave.unidades,
                                     Importe(linea.antes, &PrecioComparado::neto),
                                     Importe(linea.despues, &PrecioComparado::neto), Porcentaje(linea),
                                     Cambio(linea, d.Separador())});
        programas.tabla.filas.push_back(EnCampos(linea));
    }
    d.Anadir(std::move(gente));
    d.Anadir(std::move(programas));
}

}  // namespace kv::host
