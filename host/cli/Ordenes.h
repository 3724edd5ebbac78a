#pragma once

namespace CLI {
class App;
}

namespace kv::host {

// Each function adds one command, or a family of them, to the program. A command runs while the command line is
// parsed, writes its answer to standard output and throws Rechazo or RuntimeError when it cannot.

void AnadirCrearDemo(CLI::App& programa);
void AnadirDevPvp(CLI::App& programa);
void AnadirCargar(CLI::App& programa);
void AnadirHistoria(CLI::App& programa);
void AnadirCliente(CLI::App& programa);
void AnadirPrecios(CLI::App& programa);
void AnadirCambios(CLI::App& programa);
void AnadirDescuentos(CLI::App& programa);
void AnadirAcuerdos(CLI::App& programa);
void AnadirStock(CLI::App& programa);
void AnadirVentas(CLI::App& programa);
void AnadirEnsayar(CLI::App& programa);
void AnadirRevisar(CLI::App& programa);
void AnadirCopia(CLI::App& programa);
void AnadirActualizar(CLI::App& programa);
void AnadirLista(CLI::App& programa);
/// Below `lista`.
void AnadirListaComparar(CLI::App& lista);
void AnadirListados(CLI::App& programa);
void AnadirServir(CLI::App& programa);

/// The families of commands that write, with their questions.
void AnadirLasQueEscriben(CLI::App& programa);

}  // namespace kv::host
