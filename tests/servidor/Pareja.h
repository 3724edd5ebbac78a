#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Columnas.h"
#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/cEmpresa.h"
#include "kvdatosart/tests/servidor/Azar.h"

namespace kv::prueba {

/// What one database answered in one case: values by name.
class Respuestas {
  public:
    /// A Byte is kept as an Integer, since a driver may give a tinyint a sign.
    void operator()(const std::string& nombre, const Valor& valor) {
        const bool octeto = std::holds_alternative<std::uint8_t>(valor);
        valores.insert_or_assign(nombre, octeto ? Valor(AInteger(valor)) : valor);
    }
    /// Every member that a table of columns names.
    void Miembros(const auto& objeto, const auto& columnas) {
        const auto valor = [](const auto& dato) -> Valor {
            if constexpr (std::is_same_v<decltype(dato), const std::optional<Fecha>&>)
                return dato ? Valor(*dato) : Valor(Nulo{});
            else
                return dato;
        };
        for (const auto& [nombre, destino] : columnas)
            std::visit([&](auto miembro) { (*this)(std::string(nombre), valor(objeto.*miembro)); }, destino);
    }
    /// Every row of an open recordset, in whatever order the database returns them; whole numbers of any width are the
    /// same, since an expression has no declared one.
    void Filas(Recordset& rs);
    /// A failure: the component's own ones by number; a database's only as such, since each has its own numbers. The
    /// source counts where the component sets it.
    void Fallo(const RuntimeError& error);

    std::map<std::string, Valor> valores;
};

/// One of the two databases.
struct Lado {
    std::size_t indice = 0;
    std::shared_ptr<Connection> conexion;
    std::map<std::int16_t, std::shared_ptr<cEmpresa>> empresas = {};

    template <class Objeto>
    Objeto& Inyectar(Objeto& objeto, std::int16_t empresa = 1) {
        objeto.Conexion(conexion);
        objeto.cEmpresa(empresas.at(empresa));
        return objeto;
    }
};

/// Two databases that must answer alike. Values are the same when type and value are; double numbers may differ by a
/// ten-millionth of a millionth of themselves (of 1 below 1), since a server may take a decimal literal for a
/// neighbouring one.
class Pareja {
  public:
    using Caso = std::function<void(Lado&, Azar&, Respuestas&)>;

    /// Both hold the demonstration data; the companies 1 and 2 are read from each.
    Pareja(std::shared_ptr<Connection> primera, std::shared_ptr<Connection> segunda);

    /// Does the same on both, with the same random arguments, and notes every difference in what they answered, a
    /// refusal included.
    void Probar(const std::string& nombre, Azar& azar, const Caso& caso);
    /// The same, so many times.
    void Repetir(const std::string& nombre, Azar& azar, int veces, const Caso& caso) {
        for (int i = 0; i < veces; ++i) Probar(nombre, azar, caso);
    }
    /// Every table of the schema, row by row. Here the types are those of the columns.
    void CompararTablas(Azar& azar);

    int Casos() const { return casos_; }
    int Rechazos() const { return rechazos_; }
    std::size_t NumeroDiferencias() const { return numero_; }
    /// The first differences, one a line, and how many there were.
    std::string Informe() const {
        return std::to_string(numero_) + " diferencias en " + std::to_string(casos_) + " casos\n" + informe_;
    }

  private:
    std::array<Lado, 2> lados_;
    int casos_ = 0;
    int rechazos_ = 0;
    std::size_t numero_ = 0;
    std::string informe_;
};

// The same random work on both databases of a pair that holds the demonstration data. Each notes its differences in
// the pair.

/// Whole article loads with their sales parent, and bare tariff prices.
void CompararCargas(Pareja& pareja, Azar& azar, int veces);
/// Stock movements and every other method of the warehouse, some inside transactions that end either way.
void CompararExistencias(Pareja& pareja, Azar& azar, int veces);
/// Customer prices and sales statistics, family and group discounts, chain agreements.
void CompararReglas(Pareja& pareja, Azar& azar, int veces);
/// Customers: browsing, writing, telephones, dates, queries and deletions, some of which fail midway.
void CompararClientes(Pareja& pareja, Azar& azar, int veces);

/// What the application asks and does with statements of its own: searches, checks before writing, agreements one by
/// one.
void CompararAplicacion(Pareja& pareja, Azar& azar, int veces);

/// Which row of several wins, asked of both procedures of one database; what it writes for that is rolled back.
void ProbarProcedimientos(const std::shared_ptr<Connection>& conexion);

/// All of the comparisons above, loads again on what it leaves, and in the end every table.
void CompararTodo(Pareja& pareja, Azar& azar);

}  // namespace kv::prueba
