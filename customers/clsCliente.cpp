#include "kvdatosart/customers/clsCliente.h"

#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {

bool clsCliente::CargarDe(std::string_view sql, clsCliente* objDestino) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), sql);
    const bool hallado = !rs->Eof();
    if (hallado) LeerColumnas(*rs, objDestino != nullptr ? *objDestino : *this, kColumnasCliente);
    rs->Close();
    return hallado;
}

// clang-format off
bool clsCliente::Cargar(clsCliente* objDestino) try {
    return CargarDe(TextoSql(
        "SELECT * FROM Clientes WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Codigo =", SqlEntero(Codigo)), objDestino);
} catch (...) {
    Relanzar("clsCliente::Cargar");
}

// Quirk (0015): in the four methods that browse, the outer query names the code without the company, so that another
// company's customer of the same code may be the one that is read.

bool clsCliente::Cargar_Primero(clsCliente* objDestino) try {
    return CargarDe(TextoSql(
        "SELECT * FROM Clientes WHERE Codigo IN",
        " (SELECT ISNULL(MIN(Codigo), 0) AS Codigo FROM Clientes",
        "  WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()), ")"), objDestino);
} catch (...) {
    Relanzar("clsCliente::Cargar_Primero");
}

bool clsCliente::Cargar_Ultimo(clsCliente* objDestino) try {
    return CargarDe(TextoSql(
        "SELECT * FROM Clientes WHERE Codigo IN",
        " (SELECT ISNULL(MAX(Codigo), 0) AS Codigo FROM Clientes",
        "  WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()), ")"), objDestino);
} catch (...) {
    Relanzar("clsCliente::Cargar_Ultimo");
}

bool clsCliente::Cargar_Anterior(clsCliente* objDestino) try {
    std::string sql = TextoSql(
        "SELECT * FROM Clientes WHERE Codigo IN",
        " (SELECT TOP 1 Codigo FROM Clientes",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()));
    if (FichaClienteModoDesp)
        Agregar(sql, " AND Nombre < '", Nombre, "' ORDER BY Nombre DESC)");
    else
        Agregar(sql, " AND Codigo < ", SqlEntero(Codigo), " ORDER BY Codigo DESC)");
    return CargarDe(sql, objDestino);
} catch (...) {
    Relanzar("clsCliente::Cargar_Anterior");
}

bool clsCliente::Cargar_Siguiente(clsCliente* objDestino) try {
    std::string sql = TextoSql(
        "SELECT * FROM Clientes WHERE Codigo IN",
        " (SELECT TOP 1 Codigo FROM Clientes",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()));
    if (FichaClienteModoDesp)
        Agregar(sql, " AND Nombre > '", Nombre, "' ORDER BY Nombre ASC)");
    else
        Agregar(sql, " AND Codigo > ", SqlEntero(Codigo), " ORDER BY Codigo ASC)");
    return CargarDe(sql, objDestino);
} catch (...) {
    Relanzar("clsCliente::Cargar_Siguiente");
}

bool clsCliente::Cargar_Telefonos(clsCliente* objDestino) try {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT Codigo, Numero FROM Clientes_Telefonos",
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresaClientes()),
        " AND Cod_Cliente =", SqlEntero(Codigo),
        " ORDER BY Codigo"));
    // clang-format on
    clsCliente& destino = objDestino != nullptr ? *objDestino : *this;
    const bool hallado = !rs->Eof();
    if (hallado) destino.VaciarTelefonos();
    for (; !rs->Eof() && destino.numeroTelefonos_ < destino.telefonos_.size(); rs->MoveNext())
        destino.TomarTelefono(rs->Fields("Numero").Value());
    rs->Close();
    return hallado;
} catch (...) {
    Relanzar("clsCliente::Cargar_Telefonos");
}

void clsCliente::VaciarTelefonos() {
    numeroTelefonos_ = 0;
    for (std::string* primero : {&TelefonoP, &TelefonoS, &TelefonoFP, &TelefonoFS}) primero->clear();
}

// Each number goes to both places as it is read, so that they agree whatever fails later.
void clsCliente::TomarTelefono(const Valor& numero) {
    const std::array<std::string*, 4> primeros = {&TelefonoP, &TelefonoS, &TelefonoFP, &TelefonoFS};
    std::string& telefono = telefonos_[numeroTelefonos_];
    Asignar(telefono, numero);
    if (numeroTelefonos_ < primeros.size()) *primeros[numeroTelefonos_] = telefono;
    ++numeroTelefonos_;
}

const std::string& clsCliente::Numero(std::size_t indice) const {
    if (indice >= numeroTelefonos_) LanzarError(kErrSubindice, "teléfono " + std::to_string(indice));
    return telefonos_[indice];
}

}  // namespace kv
