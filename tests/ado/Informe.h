#pragma once

#include <iostream>
#include <string>

#include "base/RuntimeError.h"

namespace kv::prueba {

/// Counts what held and what did not; only failures and what could not be tried are shown.
struct Informe {
    int pasadas = 0;
    int fallidas = 0;
};
inline Informe& Resultado() {
    static Informe informe;
    return informe;
}

inline bool Exigir(bool bien, const std::string& que) {
    ++(bien ? Resultado().pasadas : Resultado().fallidas);
    if (!bien) std::cout << "FALLA: " << que << std::endl;
    return bien;
}

inline void Omitir(const std::string& que) {
    std::cout << "OMITIDA: " << que << std::endl;
}

/// Runs `f` and gives its failure as "number|source|description"; empty when there was none.
template <class F>
std::string Fallo(F f) try {
    f();
    return {};
} catch (const RuntimeError& error) {
    return std::to_string(error.numero) + "|" + error.origen + "|" + error.descripcion;
}

// The groups of checks. Each reports what it finds; those that take a name use that ODBC data source.
void ProbarInterfaces();
void ProbarSegundaGeneracion();
void ProbarVariantes();
void ProbarAdaptador();
void ProbarAdoDeWine(const std::string& origen);
void ProbarSentencias(const std::string& origen);

}  // namespace kv::prueba
