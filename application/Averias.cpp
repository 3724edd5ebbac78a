#include "kvdatosart/application/Averias.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kv::aplicacion {
namespace {

/// How the embedded engine begins a text, and what it means.
struct Sintoma {
    std::string_view empieza;
    std::string_view cuenta;
};

constexpr Sintoma kSintomas[] = {
    {"database is locked",
     "la está usando otro programa; se vuelve a probar cuando acabe, o se le espera más con {espera}"},
    {"database table is locked", "la está usando otro programa; se vuelve a probar cuando acabe"},
    {"database or disk is full", "no cabe más: el disco está lleno; no se ha escrito nada"},
    {"database disk image is malformed", "está dañada; hace falta una copia de seguridad"},
    {"file is not a database", "no es una base de datos o está dañada"},
    {"attempt to write a readonly database",
     "es de solo lectura o falta permiso para escribir en ella y en su carpeta"},
    {"unable to open database file", "no se puede abrir: falta permiso en ella o en su carpeta"},
    {"disk I/O error", "el disco falla al leerla o escribirla"},
    {"CHECK constraint failed", "no admite esos datos"},
    {"FOREIGN KEY constraint failed", "no admite esos datos"},
    {"NOT NULL constraint failed", "no admite esos datos"},
    {"UNIQUE constraint failed", "ya tiene una fila de esa clave"},
    {"no such table", "no tiene las tablas que hacen falta"},
};

// The adapters' own texts name the file and are Spanish.
bool EsNuestro(std::string_view texto) {
    return texto.starts_with("«") || texto.starts_with("No se puede");
}

std::string SinSentencia(const std::string& descripcion) {
    return descripcion.substr(0, descripcion.find("; sentencia: "));
}

// What the engine said when the file was opened follows the adapter's own words.
std::string DelMotor(const std::string& descripcion) {
    constexpr std::string_view kAlAbrir = "» no se puede leer: ";
    const auto pos = descripcion.find(kAlAbrir);
    return pos == std::string::npos ? descripcion : descripcion.substr(pos + kAlAbrir.size());
}

std::string Contar(const OrigenBase& origen, const RuntimeError& error) {
    const std::string descripcion = DelMotor(error.descripcion);
    if (EsNuestro(descripcion)) return descripcion;
    const std::string base = origen.fichero.empty() ? "la base del servidor" : "«" + origen.fichero + "»";
    if (!origen.fichero.empty())
        for (const Sintoma& sintoma : kSintomas)
            if (descripcion.starts_with(sintoma.empieza))
                return base + " " + std::string(sintoma.cuenta) + " (" + SinSentencia(descripcion) + ")";
    return base + " ha fallado: " + error.origen + ": error " + std::to_string(error.numero) + ": " + descripcion;
}

}  // namespace

Averia::Averia(const OrigenBase& origen, const RuntimeError& error) : std::runtime_error(Contar(origen, error)) {}

}  // namespace kv::aplicacion
