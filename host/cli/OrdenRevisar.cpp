#include <chrono>
#include <iostream>

#include "kvdatosart/application/Revisiones.h"
#include "kvdatosart/host/Terminal.h"
#include "kvdatosart/host/cli/CodigosSalida.h"
#include "kvdatosart/host/cli/Orden.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

/// A bar on the terminal, only when there is one and the check takes long.
class Progreso {
  public:
    void Mostrar(std::size_t hechas, std::size_t todas) {
        const auto pasado = std::chrono::steady_clock::now() - inicio_;
        if (!ErroresEnTerminal() || pasado < std::chrono::milliseconds(700)) return;
        const std::size_t lleno = hechas * 30 / todas;
        std::cerr << "\r[" << std::string(lleno, '#') << std::string(30 - lleno, ' ') << "] " << hechas << '/' << todas
                  << std::flush;
        visible_ = true;
    }
    ~Progreso() {
        if (visible_) std::cerr << '\r' << std::string(45, ' ') << '\r' << std::flush;
    }
    Progreso() = default;
    Progreso(const Progreso&) = delete;
    Progreso& operator=(const Progreso&) = delete;

  private:
    std::chrono::steady_clock::time_point inicio_ = std::chrono::steady_clock::now();
    bool visible_ = false;
};

struct PeticionRevision {};

void Ejecutar(Trabajo& trabajo, const PeticionRevision&) {
    std::vector<aplicacion::Hallazgo> hallazgos;
    {
        Progreso progreso;
        hallazgos =
            Revisar(trabajo.sesion, [&](std::size_t hechas, std::size_t todas) { progreso.Mostrar(hechas, todas); });
    }
    Documentar(trabajo.respuesta, hallazgos);
    trabajo.Escribir();
    if (!hallazgos.empty()) throw Termina{kNegativo};
}

}  // namespace

void AnadirRevisar(CLI::App& programa) {
    Orden<PeticionRevision>(programa, "revisar", "Busca lo que hace raros los precios o las existencias; solo lee")
        .Hace(aplicacion::Acceso::Leer, Ejecutar);
}

}  // namespace kv::host
