#include <type_traits>

#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

struct EscribirValor {
    std::string& sql;

    void operator()(std::int16_t v) const { Agregar(sql, SqlEntero(v)); }
    void operator()(std::int32_t v) const { Agregar(sql, SqlEntero(v)); }
    void operator()(std::uint8_t v) const { Agregar(sql, SqlEntero(v)); }
    void operator()(bool v) const { Agregar(sql, SqlBooleano(v)); }
    void operator()(float v) const { Agregar(sql, SqlDoble(static_cast<double>(v))); }
    void operator()(double v) const { Agregar(sql, SqlDoble(v)); }
    void operator()(Currency v) const { Agregar(sql, SqlCurrencyConPunto(v)); }
    void operator()(const std::string& v) const { Agregar(sql, "'", v, "'"); }
    void operator()(const std::optional<Fecha>& v) const {
        if (v)
            Agregar(sql, "'", SqlFecha(*v), "'");
        else
            Agregar(sql, "NULL");
    }
};

void AgregarValor(std::string& sql, const clsCliente& cliente, const Columna<clsCliente>& columna) {
    std::visit([&](auto miembro) { EscribirValor{sql}(cliente.*miembro); }, columna.destino);
}

}  // namespace

void clsCliente::Insertar() try {
    std::string sql = "INSERT INTO Clientes (Cod_Empresa";
    for (const auto& columna : kColumnasCliente) Agregar(sql, ", ", columna.nombre);
    Agregar(sql, ") VALUES (", SqlEntero(Emp().CodEmpresaClientes()));
    for (const auto& columna : kColumnasCliente) {
        Agregar(sql, ", ");
        AgregarValor(sql, *this, columna);
    }
    Agregar(sql, ")");
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsCliente::Insertar");
}

void clsCliente::Modificar() try {
    std::string sql = TextoSql("UPDATE Clientes SET Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()));
    for (const auto& columna : kColumnasCliente) {
        Agregar(sql, ", ", columna.nombre, " =");
        AgregarValor(sql, *this, columna);
    }
    Agregar(sql, " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()), " AND Codigo =", SqlEntero(Codigo));
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsCliente::Modificar");
}

void clsCliente::Insertar_Telefono(std::uint8_t bytCodigo, const std::string& strNumero) try {
    // clang-format off
    Cnx().Ejecutar(TextoSql(
        "INSERT INTO Clientes_Telefonos (Cod_Empresa, Cod_Cliente, Codigo,",
        " Numero) VALUES (",
        SqlEntero(Emp().CodEmpresaClientes()), ", ", SqlEntero(Codigo), ", ", SqlEntero(bytCodigo),
        ", '", strNumero, "')"));
    // clang-format on
} catch (...) {
    Relanzar("clsCliente::Insertar_Telefono");
}

}  // namespace kv
