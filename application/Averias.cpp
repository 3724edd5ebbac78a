#include "kvdatosart/application/Averias.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace kv::aplicacion {
namespace {

/// How the embedded engine, or the system below it, begins a text, and what it means.
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
    {"Permission denied", "no se puede abrir: falta permiso en ella o en su carpeta"},
    {"Read-only file system", "está en un disco de solo lectura"},
    {"No such file or directory", "no se puede crear: su carpeta no existe"},
    {"No space left on device", "no cabe: el disco está lleno"},
    {"disk I/O error", "no se puede leer o escribir: el disco falla o está lleno"},
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

// What was said when the file was opened follows the adapter's own words.
std::string Causa(const std::string& descripcion) {
    for (const std::string_view palabras : {"» no se puede leer: ", "»: "}) {
        const auto pos = descripcion.find(palabras);
        if (EsNuestro(descripcion) && pos != std::string::npos) return descripcion.substr(pos + palabras.size());
    }
    return descripcion;
}

std::string Contar(const OrigenBase& origen, const RuntimeError& error) {
    const std::string causa = Causa(error.descripcion);
    const std::string base = origen.fichero.empty() ? "la base del servidor" : "«" + origen.fichero + "»";
    if (!origen.fichero.empty())
        for (const Sintoma& sintoma : kSintomas)
            if (causa.starts_with(sintoma.empieza))
                return base + " " + std::string(sintoma.cuenta) + " (" + SinSentencia(causa) + ")";
    if (EsNuestro(error.descripcion)) return error.descripcion;
    return base + " ha fallado: " + error.origen + ": error " + std::to_string(error.numero) + ": " + error.descripcion;
}

}  // namespace

Averia::Averia(const OrigenBase& origen, const RuntimeError& error) : std::runtime_error(Contar(origen, error)) {}

}  // namespace kv::aplicacion
