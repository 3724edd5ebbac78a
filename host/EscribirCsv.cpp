#include "kvdatosart/host/EscribirCsv.h"

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/EscribirJson.h"

namespace kv::host {
namespace {

std::string Celda(std::string_view texto) {
    if (texto.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(texto);
    std::string citada = "\"";
    for (const char c : texto) citada += c == '"' ? std::string(2, c) : std::string(1, c);
    return citada + '"';
}

std::string CeldaDe(const Valor& valor, aplicacion::ClaseDato clase) {
    if (const std::string* texto = std::get_if<std::string>(&valor)) return Celda(*texto);
    const std::string escrito = ValorAJson(valor, clase);
    if (escrito == "null") return "";
    // A day is the only other one in quotes.
    return escrito.starts_with('"') ? escrito.substr(1, escrito.size() - 2) : escrito;
}

void Fila(std::string& csv, std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores) {
    for (std::size_t i = 0; i < columnas.size(); ++i)
        csv += (i == 0 ? "" : ",") + CeldaDe(valores[i], columnas[i].clase);
    csv += "\r\n";
}

std::string Cabecera(std::span<const aplicacion::ColumnaTabla> columnas) {
    std::string csv;
    for (const auto& columna : columnas) csv += (csv.empty() ? "" : ",") + std::string(columna.clave);
    return csv + "\r\n";
}

std::string DeListado(const aplicacion::Tabla& tabla) {
    std::string csv = Cabecera(tabla.columnas);
    for (const auto& fila : tabla.filas) Fila(csv, tabla.columnas, fila);
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
    std::string csv = Cabecera(todo.columnas);
    Fila(csv, todo.columnas, todo.valores);
    return csv;
}

}  // namespace

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
