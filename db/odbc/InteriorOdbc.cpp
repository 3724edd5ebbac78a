#include "kvdatosart/db/odbc/InteriorOdbc.h"

#include <algorithm>
#include <array>
#include <limits>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Tokens.h"
#include "kvdatosart/db/odbc/CadenaConexion.h"
#include "kvdatosart/db/odbc/ErrorOdbc.h"

namespace kv {
namespace {

// ODBC 3.8, which older headers do not name.
constexpr std::uintptr_t kVersion = 380;

// What the suite's own connections wait for a server that does not answer.
constexpr std::uintptr_t kEsperaConexion = 15;

SQLPOINTER ComoAtributo(std::uintptr_t valor) {
    return reinterpret_cast<SQLPOINTER>(valor);  // NOLINT: whole numbers travel in a pointer here.
}

[[noreturn]] void NoSeConecta(const RuntimeError& fallo, const std::string& cadena) {
    throw RuntimeError(fallo.numero, fallo.origen,
                       "No se puede conectar: " + Tapar(fallo.descripcion, Secretos(cadena)));
}

bool PuedeCambiarTablas(std::string_view texto) {
    constexpr auto kNoCambian = std::to_array<std::string_view>({"UPDATE", "INSERT", "DELETE", "SELECT"});
    const Token primero = LectorTokens(texto).Siguiente();
    return std::none_of(kNoCambian.begin(), kNoCambian.end(),
                        [&](std::string_view palabra) { return primero.EsPalabra(palabra); });
}

Asidero CrearEntorno() {
    Asidero entorno(SQL_HANDLE_ENV, nullptr, SQL_HANDLE_ENV);
    ComprobarOdbc(SQLSetEnvAttr(entorno.Get(), SQL_ATTR_ODBC_VERSION, ComoAtributo(kVersion), 0), entorno, {});
    return entorno;
}

}  // namespace

ConexionOdbc::Interior::Interior(const std::string& cadena, DialectoOdbc dialecto) try
    : entorno_(CrearEntorno()), conexion_(SQL_HANDLE_DBC, entorno_.Get(), SQL_HANDLE_ENV), dialecto_(dialecto) {
    // A driver that cannot limit the wait connects without a limit.
    SQLSetConnectAttrW(conexion_.Get(), SQL_ATTR_LOGIN_TIMEOUT, ComoAtributo(kEsperaConexion), 0);
    AAncho(cadena, ancho_);
    ComprobarOdbc(SQLDriverConnectW(conexion_.Get(), nullptr, ancho_.data(), static_cast<SQLSMALLINT>(ancho_.size()),
                                    nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
                  conexion_, {});
    abierta_ = true;
    sentencia_ = CrearSentencia();
    // The text is sent as it is: no driver looks for escapes in it. One that always looks finds none.
    SQLSetStmtAttrW(sentencia_.Get(), SQL_ATTR_NOSCAN, ComoAtributo(SQL_NOSCAN_ON), 0);
} catch (const RuntimeError& fallo) {
    NoSeConecta(fallo, cadena);
}

void ConexionOdbc::Interior::Cerrar() noexcept {
    sentencia_.Soltar();
    if (!abierta_) return;
    abierta_ = false;
    if (enTransaccion_) SQLEndTran(SQL_HANDLE_DBC, conexion_.Get(), SQL_ROLLBACK);
    SQLDisconnect(conexion_.Get());
}

Asidero ConexionOdbc::Interior::CrearSentencia() const {
    if (!abierta_) LanzarError(kErrObjetoCerrado, "la conexión");
    return {SQL_HANDLE_STMT, conexion_.Get(), SQL_HANDLE_DBC};
}

void ConexionOdbc::Interior::Enviar(std::string_view texto) {
    if (!abierta_) LanzarError(kErrObjetoCerrado, "la conexión");
    AAncho(texto, ancho_);
    const SQLRETURN resultado = SQLExecDirectW(sentencia_.Get(), ancho_.data(), static_cast<SQLINTEGER>(ancho_.size()));
    // A write that meets no row.
    if (resultado != SQL_NO_DATA) ComprobarOdbc(resultado, sentencia_, texto);
}

std::int32_t ConexionOdbc::Interior::Ejecutar(std::string_view texto) {
    const UsoUnico::Turno turno(uso_);
    const CierraCursor cierre(sentencia_);
    if (PuedeCambiarTablas(texto)) lector_.OlvidarFormas();
    Enviar(texto);
    return AgotarResultados(sentencia_, texto);
}

void ConexionOdbc::Interior::Consultar(std::string_view texto, Resultado& resultado) {
    const UsoUnico::Turno turno(uso_);
    const CierraCursor cierre(sentencia_);
    Enviar(texto);
    if (!lector_.Leer(sentencia_, texto, resultado)) return;
    const SQLRETURN siguiente = SQLMoreResults(sentencia_.Get());
    if (siguiente == SQL_NO_DATA) return;
    ComprobarOdbc(siguiente, sentencia_, texto);
    AgotarResultados(sentencia_, texto);
}

void ConexionOdbc::Interior::FijarAutocommit(SQLULEN valor) {
    ComprobarOdbc(SQLSetConnectAttrW(conexion_.Get(), SQL_ATTR_AUTOCOMMIT, ComoAtributo(valor), SQL_IS_UINTEGER),
                  conexion_, {});
}

void ConexionOdbc::Interior::Empezar() {
    const UsoUnico::Turno turno(uso_);
    if (enTransaccion_) throw RuntimeError(kErrTransaccionAbierta, "ODBC", "Ya hay una transacción abierta");
    ComprobarOdbc(
        SQLGetConnectAttrW(conexion_.Get(), SQL_ATTR_AUTOCOMMIT, &autocommitHallado_, SQL_IS_UINTEGER, nullptr),
        conexion_, {});
    FijarAutocommit(SQL_AUTOCOMMIT_OFF);
    enTransaccion_ = true;
}

void ConexionOdbc::Interior::AsegurarTransaccion() {
    if (dialecto_ != DialectoOdbc::TransactSql) return;
    try {
        Ejecutar("IF @@TRANCOUNT = 0 BEGIN TRANSACTION");
    } catch (const RuntimeError&) {
        // The rollback itself tells what is wrong.
    }
}

void ConexionOdbc::Interior::Terminar(SQLSMALLINT como) {
    const UsoUnico::Turno turno(uso_);
    if (!enTransaccion_) throw RuntimeError(kErrSinTransaccion, "ODBC", "No hay ninguna transacción abierta");
    if (como == SQL_ROLLBACK) AsegurarTransaccion();
    const SQLRETURN resultado = SQLEndTran(SQL_HANDLE_DBC, conexion_.Get(), como);
    // A transaction that could not be committed is still there to be rolled back; after a rollback there is none,
    // whatever it says: the server may have ended it before.
    if (como == SQL_COMMIT) ComprobarConfirmacion(resultado, conexion_);
    enTransaccion_ = false;
    try {
        ComprobarOdbc(resultado, conexion_, {});
    } catch (const RuntimeError&) {
        SQLSetConnectAttrW(conexion_.Get(), SQL_ATTR_AUTOCOMMIT, ComoAtributo(autocommitHallado_), SQL_IS_UINTEGER);
        throw;
    }
    FijarAutocommit(autocommitHallado_);
}

std::int32_t AgotarResultados(const Asidero& sentencia, std::string_view texto) {
    std::int32_t afectados = 0;
    for (;;) {
        SQLSMALLINT columnas = 0;
        SQLLEN filas = 0;
        ComprobarOdbc(SQLNumResultCols(sentencia.Get(), &columnas), sentencia, texto);
        if (columnas == 0 && SQL_SUCCEEDED(SQLRowCount(sentencia.Get(), &filas)) && filas >= 0)
            afectados = filas > std::numeric_limits<std::int32_t>::max() ? std::numeric_limits<std::int32_t>::max()
                                                                         : static_cast<std::int32_t>(filas);
        const SQLRETURN resultado = SQLMoreResults(sentencia.Get());
        if (resultado == SQL_NO_DATA) return afectados;
        ComprobarOdbc(resultado, sentencia, texto);
    }
}

}  // namespace kv
