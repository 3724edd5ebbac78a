#include "kvdatosart/host/web/Portero.h"

#include <algorithm>
#include <map>

#include "kvdatosart/host/web/Limites.h"

namespace kv::host {
namespace {

std::string Minusculas(std::string_view texto) {
    std::string minusculas(texto);
    for (char& c : minusculas)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return minusculas;
}

Visto MalEscrita(const char* que) {
    return {400, std::string("la petición está mal escrita: ") + que};
}

Visto MirarPrimera(std::string_view linea) {
    const auto a = linea.find(' ');
    const auto b = linea.rfind(' ');
    if (a == 0 || a == std::string_view::npos || a == b) return MalEscrita("su primera línea");
    const std::string_view objetivo = linea.substr(a + 1, b - a - 1);
    const std::string_view version = linea.substr(b + 1);
    if (version != "HTTP/1.1" && version != "HTTP/1.0") return MalEscrita("la versión");
    if (linea.substr(0, a) != "GET") return {405, "aquí solo se consulta: se espera GET"};
    if (objetivo.size() > kMaximoObjetivo) return {414, "la dirección es demasiado larga"};
    const bool visible = std::all_of(objetivo.begin(), objetivo.end(), [](char c) { return c > ' ' && c < 0x7F; });
    if (!objetivo.starts_with('/') || !visible) return MalEscrita("la dirección");
    return {.objetivo = std::string(objetivo), .cierra = version == "HTTP/1.0"};
}

using Cabeceras = std::map<std::string, std::string>;

// The lines of a head, the first one left out; false when one of them is no header.
bool LeerCabeceras(std::string_view resto, Cabeceras& cabeceras) {
    while (!resto.empty()) {
        const auto fin = resto.find("\r\n");
        const std::string_view linea = resto.substr(0, fin);
        const auto dos = linea.find_first_of(": \t");
        if (dos == 0 || dos == std::string_view::npos || linea[dos] != ':') return false;
        const auto desde = std::min(linea.find_first_not_of(" \t", dos + 1), linea.size());
        // Said twice it is a list; no name of a host has a comma.
        std::string& valor = cabeceras[Minusculas(linea.substr(0, dos))];
        valor += (valor.empty() ? "" : ",") + Minusculas(linea.substr(desde));
        resto.remove_prefix(fin + 2);
    }
    return true;
}

}  // namespace

Portero::Portero(int puerto, std::vector<std::string> permitidos)
    : puerto_(std::to_string(puerto)), permitidos_(std::move(permitidos)) {
    for (std::string& nombre : permitidos_) nombre = Minusculas(nombre);
}

Visto Portero::Mirar(std::string_view cabecera) const {
    if (!cabecera.ends_with("\r\n\r\n")) return MalEscrita("un fin de línea");
    const auto fin = cabecera.find("\r\n") + 2;
    Visto visto = MirarPrimera(cabecera.substr(0, fin - 2));
    if (visto.estado != 200) return visto;
    Cabeceras cabeceras;
    if (!LeerCabeceras(cabecera.substr(fin, cabecera.size() - fin - 2), cabeceras)) return MalEscrita("una cabecera");
    if (cabeceras.size() > kMaximoCabeceras) return {431, "la petición lleva demasiadas cabeceras"};
    if (cabeceras.contains("transfer-encoding") || cabeceras.contains("expect") ||
        (cabeceras.contains("content-length") && cabeceras["content-length"] != "0"))
        return {413, "una consulta no lleva contenido"};
    if (!EsNuestro(cabeceras["host"])) return {403, "este servidor no contesta a ese nombre (Host)"};
    const std::string& origen = cabeceras["origin"];
    if (!origen.empty() && !(origen.starts_with("http") && EsNuestro(origen.substr(origen.find("://") + 3))))
        return {403, "este servidor no contesta a páginas de otro sitio (Origin)"};
    visto.cierra = visto.cierra || cabeceras["connection"].find("close") != std::string::npos;
    return visto;
}

bool Portero::EsNuestro(std::string_view nombre) const {
    const auto dos = nombre.rfind(':');
    const std::string_view solo = nombre.substr(0, dos);
    if (std::find(permitidos_.begin(), permitidos_.end(), solo) != permitidos_.end()) return true;
    const std::string_view puerto = dos == std::string_view::npos ? "80" : nombre.substr(dos + 1);
    return (solo == "127.0.0.1" || solo == "localhost") && puerto == puerto_;
}

}  // namespace kv::host
