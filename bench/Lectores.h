#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvdatosart/bench/Consultas.h"

namespace kv::bench {

/// A value that a hand-written reader binds: a whole number, or a text when there is one.
struct Enlace {
    int entero = 0;
    std::string texto;
};

/// The statements of one load in every form that a reader may want, made before anything is measured.
struct CargaPreparada {
    /// The component's literal texts.
    std::vector<std::string> textos;
    /// As SQLite takes them: with question marks, and with the values in place.
    std::vector<std::string> conHuecos;
    std::vector<std::string> conValores;
    /// The values of each one.
    std::vector<std::vector<Enlace>> enlaces;
};

CargaPreparada PrepararCarga(int articulo, int cliente);

/// One way to run the statements of a load and read their rows.
class Lector {
  public:
    virtual ~Lector() = default;
    virtual void Recorrer(const CargaPreparada& carga, Destino& destino) = 0;
};

/// The adapter with the component's literal text.
std::unique_ptr<Lector> LectorAdaptador(const std::string& ruta);
/// The floor: the same statements prepared by hand once, with their values bound.
std::unique_ptr<Lector> LectorPiso(const std::string& ruta);
/// Each text prepared anew.
std::unique_ptr<Lector> LectorPreparaCadaVez(const std::string& ruta);
#ifdef KV_CON_SOCI
std::unique_ptr<Lector> LectorSociLiteral(const std::string& ruta);
std::unique_ptr<Lector> LectorSociPreparado(const std::string& ruta);
#endif

}  // namespace kv::bench
