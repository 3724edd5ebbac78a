#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/catalog/Tasacion.h"
#include "kvdatosart/rules/ObservadorCadena.h"

namespace kv {

/// A family by its codes from the top down; unused deeper levels 0, which stand for every family below.
using CodigosFamilia = std::array<std::int16_t, 3>;

/// Which articles: those of `codigos` when it has any; else all of the catalogue, less those that are outside the
/// families and those that `busca`, when it is given, does not want by their code and description.
struct SeleccionArticulos {
    std::vector<std::int32_t> codigos;
    std::vector<CodigosFamilia> familias;
    std::function<bool(std::int32_t, const std::string&)> busca;
};

/// Which customers: those of `codigos` when it has any; else all, less those outside the discount group and those that
/// are not below the chain node.
struct SeleccionClientes {
    std::vector<std::int32_t> codigos;
    std::optional<std::int16_t> grupo;
    std::optional<NivelesCadena> nodo;
};

/// The codes of a selection in ascending order, a page at a time: its memory does not grow with their number, except by
/// the codes that were given. Codes that do not exist are left out. Only reads, and keeps nothing open between pages.
class FuenteCodigos {
  public:
    /// `porFamilia`: ordered by the three family codes first.
    static FuenteCodigos DeArticulos(const Puesto& puesto, const SeleccionArticulos& seleccion, bool porFamilia);
    static FuenteCodigos DeClientes(const Puesto& puesto, const SeleccionClientes& seleccion);

    /// How many codes there are. Those that are searched must be read for that.
    std::uint64_t Contar();
    /// The next code; none at the end, after which it begins again.
    std::optional<std::int32_t> Siguiente();

  private:
    FuenteCodigos(std::shared_ptr<Connection> conexion, std::string tabla, std::string donde)
        : conexion_(std::move(conexion)), tabla_(std::move(tabla)), donde_(std::move(donde)) {}

    void PorCodigos(std::vector<std::int32_t> codigos);
    void PorFamilias();
    bool LeerPagina();

    std::shared_ptr<Connection> conexion_;
    std::string tabla_;
    std::string donde_;
    std::function<bool(std::int32_t, const std::string&)> busca_;
    // The conditions that split the selection into its parts, in order, and the one that is being read.
    std::vector<std::string> partes_ = {""};
    std::size_t parte_ = 0;
    std::int32_t ultimo_ = INT32_MIN;
    std::vector<std::int32_t> pagina_;
    std::size_t lugar_ = 0;
    // The page in hand holds every code: it is not read again.
    bool entera_ = false;
};

}  // namespace kv
