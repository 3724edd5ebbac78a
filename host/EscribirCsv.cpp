#include "kvdatosart/host/EscribirCsv.h"

#include <algorithm>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/EscribirJson.h"

namespace kv::host {
namespace {

// What Excel would not leave as it is: what begins like a formula, and what is nothing but digits and their signs.
bool LoCambiaExcel(std::string_view texto) {
    constexpr std::string_view kDeFormula = "=+-@\t\r";
    if (texto.empty()) return false;
    return kDeFormula.find(texto.front()) != std::string_view::npos ||
           (texto.find_first_not_of("0123456789./,:-% eE") == std::string_view::npos &&
            texto.find_first_of("0123456789") != std::string_view::npos);
}

std::string Celda(std::string_view texto, EstiloCsv estilo) {
    const bool excel = estilo == EstiloCsv::Excel;
    const std::string guarda = excel && LoCambiaExcel(texto) ? "'" : "";
    if (texto.find_first_of(excel ? ";\"\r\n" : ",\"\r\n") == std::string_view::npos)
        return guarda + std::string(texto);
    std::string citada = '"' + guarda;
    for (const char c : texto) citada.append(c == '"' ? 2 : 1, c);
    return citada + '"';
}

std::string CeldaDe(const Valor& valor, aplicacion::ClaseDato clase, EstiloCsv estilo) {
    if (const std::string* texto = std::get_if<std::string>(&valor)) return Celda(*texto, estilo);
    std::string escrito = ValorAJson(valor, clase);
    if (escrito == "null") return "";
    // A day is the only other one in quotes.
    if (escrito.starts_with('"')) return escrito.substr(1, escrito.size() - 2);
    if (estilo == EstiloCsv::Excel) std::replace(escrito.begin(), escrito.end(), '.', ',');
    return escrito;
}

std::string DeListado(const aplicacion::Tabla& tabla) {
    std::string csv = CabeceraCsv(tabla.columnas, EstiloCsv::Rfc);
    for (const auto& fila : tabla.filas) FilaCsv(csv, tabla.columnas, fila, EstiloCsv::Rfc);
    return csv;
}

// What the command answered besides its listings, as one row.
std::string DeFichas(const Documento& documento) {
    Ficha todo;
    for (const auto& bloque : documento.Bloques()) {
        const Ficha* ficha = std::get_if<Ficha>(&bloque);
        if (ficha == nullptr) continue;
        todo.columnas.insert(todo.columnas.end(), ficha->columnas.begin(), ficha->columnas.end());
        todo.valores.insert(todo.valores.end(), ficha->valores.begin(), ficha->valores.end());
    }
    std::string csv = CabeceraCsv(todo.columnas, EstiloCsv::Rfc);
    FilaCsv(csv, todo.columnas, todo.valores, EstiloCsv::Rfc);
    return csv;
}

}  // namespace

std::string CabeceraCsv(std::span<const aplicacion::ColumnaTabla> columnas, EstiloCsv estilo) {
    const bool excel = estilo == EstiloCsv::Excel;
    std::string csv = excel ? "\xEF\xBB\xBF" : "";
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        if (i > 0) csv += excel ? ';' : ',';
        csv += Celda(excel ? columnas[i].rotulo : columnas[i].clave, estilo);
    }
    return csv + "\r\n";
}

void FilaCsv(std::string& csv, std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores,
             EstiloCsv estilo) {
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        if (i > 0) csv += estilo == EstiloCsv::Excel ? ';' : ',';
        csv += CeldaDe(valores[i], columnas[i].clase, estilo);
    }
    csv += "\r\n";
}

std::string ACsv(const Documento& documento, std::string_view tabla) {
    std::string nombres;
    for (const auto& bloque : documento.Bloques()) {
        const Cuadro* listado = std::get_if<Cuadro>(&bloque);
        if (listado == nullptr || listado->para == Cuadro::Para::Gente) continue;
        if (tabla.empty() || listado->tabla.clave == tabla) return DeListado(listado->tabla);
        nombres += (nombres.empty() ? "" : ", ") + std::string(listado->tabla.clave);
    }
    if (tabla.empty()) return DeFichas(documento);
    aplicacion::RechazarImposible(
        "csv", "«" + std::string(tabla) + "» no vale; " +
                   (nombres.empty() ? "esta respuesta no tiene tablas" : "se espera una de " + nombres));
}

}  // namespace kv::host
