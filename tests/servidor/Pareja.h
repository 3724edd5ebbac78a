#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/RuntimeError.h"
#include "base/Valor.h"
#include "db/Columnas.h"
#include "db/Connection.h"
#include "db/cEmpresa.h"

namespace kv::prueba {

/// What one database answered in one case: values by name.
class Respuestas {
  public:
    void operator()(const std::string& nombre, const Valor& valor) { valores_.insert_or_assign(nombre, valor); }
    void operator()(const std::string& nombre, Fecha dia) { (*this)(nombre, Valor(dia)); }
    void operator()(const std::string& nombre, const std::optional<Fecha>& dia) {
        (*this)(nombre, dia ? Valor(*dia) : Valor(Nulo{}));
    }
    /// Every member that a table of columns names.
    template <class Objeto, class Columnas>
    void Miembros(const std::string& prefijo, const Objeto& objeto, const Columnas& columnas) {
        for (const auto& columna : columnas)
            std::visit([&](auto miembro) { (*this)(prefijo + std::string(columna.nombre), objeto.*miembro); },
                       columna.destino);
    }
    /// Every row of an open recordset, sorted: where a statement does not order its rows, a database may return them
    /// in any order. Whole numbers lose their width, since an expression has no declared one.
    void Filas(Recordset& rs);
    /// A failure: the component's own ones by number; a database's only as such, since each has its own numbers. The
    /// source counts where the component sets it.
    void Fallo(const RuntimeError& error);

    const std::map<std::string, Valor>& Valores() const { return valores_; }

  private:
    std::map<std::string, Valor> valores_;
};

/// One of the two databases.
struct Lado {
    std::size_t indice = 0;
    std::shared_ptr<Connection> conexion;
    std::map<std::int16_t, std::shared_ptr<cEmpresa>> empresas;

    template <class Objeto>
    Objeto& Inyectar(Objeto& objeto, std::int16_t empresa = 1) {
        objeto.Conexion(conexion);
        objeto.cEmpresa(empresas.at(empresa));
        return objeto;
    }
};

/// Two databases that must answer alike. Values are the same when type and value are; floating-point numbers may differ
/// by a ten-millionth of a millionth of themselves (of 1 below 1), since a server may take a decimal literal for a
/// neighbouring one, and a Byte is the same as an Integer, since a driver may give a tinyint a sign.
class Pareja {
  public:
    using Caso = std::function<void(Lado&, Respuestas&)>;

    /// Both hold the demonstration data; the companies 1 and 2 are read from each.
    Pareja(std::shared_ptr<Connection> primera, std::shared_ptr<Connection> segunda);

    /// Does the same on both and notes every difference in what they answered, a refusal included.
    void Probar(const std::string& nombre, const Caso& caso);
    /// Every table of the schema, row by row. Here the types are those of the columns.
    void CompararTablas();

    int Casos() const { return casos_; }
    int Rechazos() const { return rechazos_; }
    std::size_t NumeroDiferencias() const { return numero_; }
    /// The first differences, one a line, and how many there were.
    std::string Informe() const;

  private:
    void Anotar(const std::string& donde, const std::string& que);

    std::array<Lado, 2> lados_;
    int casos_ = 0;
    int rechazos_ = 0;
    std::size_t numero_ = 0;
    std::vector<std::string> diferencias_;
};

/// A table of the production script and the columns of its key.
struct TablaEsquema {
    std::string nombre;
    std::vector<std::string> clave;
};
std::vector<TablaEsquema> TablasDelEsquema();

}  // namespace kv::prueba
