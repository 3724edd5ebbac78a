#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {

void AnadirLasQueEscriben(CLI::App& programa) {
    AnadirCliente(programa);
    AnadirPrecios(programa);
    AnadirCambios(programa);
    AnadirDescuentos(programa);
    AnadirAcuerdos(programa);
    AnadirStock(programa);
    AnadirVentas(programa);
}

}  // namespace kv::host
