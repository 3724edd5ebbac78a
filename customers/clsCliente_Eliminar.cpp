#include <array>

#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

enum class De : std::uint8_t { Clientes, Empresa };

struct Sonda {
    const char* consulta;
    const char* clave;
    De codigo;
};

// Whatever may refer to a customer, in the order in which it is asked.
constexpr auto kSondas = std::to_array<Sonda>({
    {"SELECT TOP 1 Codigo FROM Clientes", " AND Padre =", De::Clientes},
    {"SELECT TOP 1 Cod_Cliente FROM Clientes_Articulos", " AND Cod_Cliente =", De::Clientes},
    {"SELECT TOP 1 Codigo FROM Facturas", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Facturas_Ex", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Albaranes_F", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM AlbaranesST", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Entradas_ST", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Pedidos_Clientes", " AND Cod_Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Presup", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM Proformas", " AND Cliente =", De::Empresa},
    {"SELECT TOP 1 Codigo FROM TPV_Tickets", " AND Cliente =", De::Empresa},
});

struct Borrado {
    const char* sentencia;
    /// Null where the work table is keyed by customer only.
    const char* empresa;
    const char* clave;
};

constexpr auto kBorrados = std::to_array<Borrado>({
    {"DELETE FROM Clientes", " WHERE Cod_Empresa =", " AND Codigo ="},
    {"DELETE FROM Clientes_Telefonos", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Clientes_Contactos", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Clientes_Notas", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Clientes_Instalaciones", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Clientes_Empleados", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Temp_EtiquetasSueltas_Clientes", nullptr, " WHERE Cod_Cliente ="},
    {"DELETE FROM Temp_FactExt", " WHERE Cod_Empresa =", " AND Cliente ="},
    {"DELETE FROM Descuentos_Familias", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
    {"DELETE FROM Clientes_Art_PVP", " WHERE Cod_Empresa =", " AND Cod_Cliente ="},
});

}  // namespace

bool clsCliente::TieneDependencias() {
    std::unique_ptr<Recordset> rs;
    for (const Sonda& sonda : kSondas) {
        const std::int16_t empresa = sonda.codigo == De::Clientes ? Emp().CodEmpresaClientes() : Emp().CodEmpresa();
        AbrirLectura(rs, Cnx(),
                     TextoSql(std::string_view(sonda.consulta), " WHERE Cod_Empresa =", SqlEntero(empresa),
                              std::string_view(sonda.clave), SqlEntero(Codigo)));
        const bool hallada = !rs->Eof();
        rs->Close();
        if (hallada) return true;
    }
    return false;
}

void clsCliente::EliminarFilas() {
    std::string sql;
    for (const Borrado& borrado : kBorrados) {
        sql = borrado.sentencia;
        if (borrado.empresa != nullptr)
            Agregar(sql, std::string_view(borrado.empresa), SqlEntero(Emp().CodEmpresaClientes()));
        Agregar(sql, std::string_view(borrado.clave), SqlEntero(Codigo));
        Cnx().Ejecutar(sql);
    }
}

bool clsCliente::Eliminar(bool bolForzar) try {
    if (!bolForzar && TieneDependencias()) {
        Biblioteca().MensajeCritico("El cliente no se puede eliminar porque tiene dependencias", "¡Atención!");
        return false;
    }
    Transaccion transaccion(Cnx());
    EliminarFilas();
    transaccion.Confirmar();
    return true;
} catch (...) {
    Relanzar("clsCliente::Eliminar");
}

}  // namespace kv
