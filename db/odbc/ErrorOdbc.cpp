#include "kvdatosart/db/odbc/ErrorOdbc.h"

#include <algorithm>
#include <array>
#include <string>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/odbc/Asidero.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv {
namespace {

struct Registro {
    std::array<SQLWCHAR, 6> estado{};
    SQLINTEGER numero = 0;
    std::string texto;
};

// Room for the longest text that a record can have.
constexpr SQLSMALLINT kSitio = 32767;

// The record at `posicion`, from 1, with its text uncut; false past the last one.
bool LeerRegistro(SQLSMALLINT tipo, SQLHANDLE asidero, SQLSMALLINT posicion, TextoAncho& sitio, Registro& registro) {
    SQLSMALLINT unidades = 0;
    const SQLRETURN resultado = SQLGetDiagRecW(tipo, asidero, posicion, registro.estado.data(), &registro.numero,
                                               sitio.data(), kSitio, &unidades);
    if (!SQL_SUCCEEDED(resultado)) return false;
    DeAncho(sitio.data(), static_cast<std::size_t>(std::clamp<int>(unidades, 0, kSitio - 1)), registro.texto);
    return true;
}

std::string Estado(const Registro& registro) {
    std::string estado;
    DeAncho(registro.estado.data(), 5, estado);
    return estado;
}

// Every record of a handle: the first native number that is one, the text of all, and whether any tells of the link.
struct Diagnostico {
    std::int32_t numero = kErrOdbcSinNumero;
    std::string texto;
    bool deConexion = false;
};

Diagnostico LeerDiagnostico(SQLSMALLINT tipo, SQLHANDLE asidero) {
    TextoAncho sitio(kSitio);
    Registro registro;
    Diagnostico leido;
    for (SQLSMALLINT i = 1; LeerRegistro(tipo, asidero, i, sitio, registro); ++i) {
        const std::string estado = Estado(registro);
        if (leido.numero == kErrOdbcSinNumero && registro.numero != 0) leido.numero = registro.numero;
        if (!leido.texto.empty()) leido.texto += "; ";
        leido.texto += "[" + estado + "] (" + std::to_string(registro.numero) + ") " + registro.texto;
        leido.deConexion = leido.deConexion || estado.starts_with("08");
    }
    return leido;
}

bool EstaMuerta(const Asidero& conexion) {
    SQLUINTEGER muerta = SQL_CD_FALSE;
    return SQL_SUCCEEDED(
               SQLGetConnectAttrW(conexion.Get(), SQL_ATTR_CONNECTION_DEAD, &muerta, SQL_IS_UINTEGER, nullptr)) &&
           muerta == SQL_CD_TRUE;
}

[[noreturn]] void Lanzar(Diagnostico leido, std::string_view sentencia) {
    if (leido.texto.empty()) leido.texto = "El controlador ODBC no dice por qué ha fallado";
    if (!sentencia.empty()) leido.texto += "; sentencia: " + std::string(sentencia);
    throw RuntimeError(leido.numero, "ODBC", std::move(leido.texto));
}

}  // namespace

void LanzarErrorOdbc(SQLSMALLINT tipo, SQLHANDLE asidero, std::string_view sentencia) {
    Lanzar(LeerDiagnostico(tipo, asidero), sentencia);
}

void ComprobarConfirmacion(SQLRETURN resultado, const Asidero& conexion) {
    if (SQL_SUCCEEDED(resultado)) return;
    // Read first: asking for anything else clears it.
    Diagnostico leido = LeerDiagnostico(conexion.Tipo(), conexion.Get());
    if (leido.deConexion || EstaMuerta(conexion))
        leido.texto = "Se ha perdido la conexión y nada dice si la transacción quedó confirmada" +
                      (leido.texto.empty() ? "" : ": " + leido.texto);
    Lanzar(std::move(leido), {});
}

void ComprobarOdbc(SQLRETURN resultado, const Asidero& asidero, std::string_view sentencia) {
    if (!SQL_SUCCEEDED(resultado)) LanzarErrorOdbc(asidero.Tipo(), asidero.Get(), sentencia);
}

std::string PrimerEstado(const Asidero& asidero) {
    TextoAncho sitio(kSitio);
    Registro registro;
    return LeerRegistro(asidero.Tipo(), asidero.Get(), 1, sitio, registro) ? Estado(registro) : std::string();
}

}  // namespace kv
