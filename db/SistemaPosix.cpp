#include <ctime>
#include <locale>
#include <stdexcept>

#include "kvdatosart/db/BibliotecaConsola.h"
#include "kvdatosart/db/Sistema.h"

namespace kv {

Fecha FechaDelSistema() {
    const std::time_t ahora = std::time(nullptr);
    std::tm local{};
    localtime_r(&ahora, &local);
    return Fecha::DeAmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

// Of the user's locale, read once without touching the process's own.
char SeparadorDelSistema() {
    static const char separador = [] {
        try {
            return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point() == ',' ? ',' : '.';
        } catch (const std::runtime_error&) {
            return '.';  // The environment names a locale that this system does not have.
        }
    }();
    return separador;
}

void MostrarMensajeCritico(std::string_view texto, std::string_view titulo) {
    BibliotecaConsola().MensajeCritico(texto, titulo);
}

}  // namespace kv
