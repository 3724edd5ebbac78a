#include <unistd.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>

#include "host/Fallo.h"
#include "host/Ordenes.h"
#include "host/Revisiones.h"
#include "host/Sesion.h"

namespace kv::host {
namespace {

/// A bar on the terminal, only when there is one and the check takes long.
class Progreso {
  public:
    void Mostrar(std::size_t hechas, std::size_t todas) {
        const auto pasado = std::chrono::steady_clock::now() - inicio_;
        if (isatty(STDERR_FILENO) == 0 || pasado < std::chrono::milliseconds(700)) return;
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

void EjecutarRevisar(const OpcionesComunes& opciones) {
    Sesion sesion(opciones, true);
    sesion.respuesta.Tabla("hallazgos", {"que", "clave", "porque"});
    std::vector<Hallazgo> hallazgos;
    {
        Progreso progreso;
        hallazgos = Revisar(sesion.Cnx(), sesion.Emp(),
                            [&](std::size_t hechas, std::size_t todas) { progreso.Mostrar(hechas, todas); });
    }
    for (const Hallazgo& h : hallazgos) sesion.respuesta.Fila({std::string(h.que), h.clave, std::string(h.porque)});
    if (hallazgos.empty()) sesion.respuesta.Linea("Sin hallazgos");
    sesion.Escribir(std::cout);
    if (!hallazgos.empty())
        throw Fallo(kNegativo, hallazgos.size() == 1 ? "1 hallazgo" : std::to_string(hallazgos.size()) + " hallazgos");
}

}  // namespace

void AnadirRevisar(CLI::App& programa) {
    CLI::App* orden =
        programa.add_subcommand("revisar", "Busca lo que hace raros los precios o las existencias; solo lee");
    const auto o = std::make_shared<OpcionesComunes>();
    o->Anadir(*orden);
    orden->callback([o] { EjecutarRevisar(*o); });
}

}  // namespace kv::host
