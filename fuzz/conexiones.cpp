// A connection string: whatever its shape, a text without its secrets shows none of them.
#include <algorithm>

#include "kvdatosart/db/odbc/CadenaConexion.h"
#include "kvdatosart/fuzz/Exigir.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv::difuso;
    const std::string cadena = Texto(datos, largo);
    const auto secretos = kv::Secretos(cadena);
    const std::string tapada = kv::Tapar(cadena, secretos);
    for (const std::string& secreto : secretos) {
        Exigir(!secreto.empty(), "un secreto no está vacío", cadena);
        // What it is covered with may look like it.
        if (secreto.find('*') != std::string::npos) continue;
        Exigir(tapada.find(secreto) == std::string::npos, "ningún secreto se ve", cadena);
    }
    if (secretos.empty()) Exigir(tapada == cadena, "sin secretos no cambia nada", cadena);
    return 0;
}
