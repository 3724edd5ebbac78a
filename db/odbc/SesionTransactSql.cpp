#include "kvdatosart/db/odbc/SesionTransactSql.h"

#include <array>
#include <string>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

// One round trip. The date order goes last: a language brings an order of its own, whoever set it.
// clang-format off
constexpr std::string_view kAjustes =
    "SET QUOTED_IDENTIFIER ON "
    "SET ANSI_NULLS ON "
    "SET ANSI_PADDING ON "
    "SET ANSI_WARNINGS ON "
    "SET ANSI_NULL_DFLT_ON ON "
    "SET CONCAT_NULL_YIELDS_NULL ON "
    "SET CURSOR_CLOSE_ON_COMMIT OFF "
    "SET NOCOUNT OFF "
    "SET IMPLICIT_TRANSACTIONS OFF "
    "SET XACT_ABORT OFF "
    "SET TEXTSIZE 2147483647 "
    "SET DATEFORMAT dmy";

// The first day reads as another one under any other order, the second one as none.
constexpr std::string_view kPrueba =
    "SELECT CAST('05/03/2001' AS datetime) AS Dia, CAST('13/02/2001' AS datetime) AS Otro, N'ñ €' AS Texto";

// The date order of a server that takes the setting and does not heed it, being PostgreSQL below.
constexpr std::string_view kOrdenDeDebajo = "SELECT set_config('datestyle', 'ISO, DMY', 'false')";
// clang-format on

[[noreturn]] void Rechazar(const std::string& motivo) {
    throw RuntimeError(kErrSesionInservible, "ODBC", "La sesión no sirve y se ha cerrado la conexión: " + motivo);
}

// What `accion` meets on the way, told as the reason why the session is of no use.
template <class Accion>
void Intentar(const char* que, Accion&& accion) {
    try {
        accion();
    } catch (const RuntimeError& error) {
        Rechazar(std::string(que) + ": " + error.descripcion);
    }
}

void Probar(ConexionOdbc::Interior& interior) {
    Resultado leido;
    Intentar("el servidor no lee las fechas como día/mes/año", [&] { interior.Consultar(kPrueba, leido); });
    if (leido.filas != 1 || leido.columnas->size() != 3) Rechazar("el servidor no contesta a la prueba de fechas");
    const std::array<Fecha, 2> dias = {Fecha::DeAmd(2001, 3, 5), Fecha::DeAmd(2001, 2, 13)};
    for (std::size_t i = 0; i < dias.size(); ++i) {
        const Fecha dia = ADate(leido.valores[i]);
        if (dia != dias[i]) Rechazar("el servidor lee '" + dias[i].ATexto().Cadena() + "' como " + dia.AIso().Cadena());
    }
    const std::string texto = AString(leido.valores[2], ',');
    if (texto != "ñ €") Rechazar("los textos no vuelven como se envían: 'ñ €' llega como '" + texto + "'");
}

// Whether there was such an order to set.
bool OrdenarPorDebajo(ConexionOdbc::Interior& interior) {
    try {
        interior.Ejecutar(kOrdenDeDebajo);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace

void PrepararSesionTransactSql(ConexionOdbc::Interior& interior) {
    Intentar("el servidor no admite los ajustes", [&] { interior.Ejecutar(kAjustes); });
    try {
        Probar(interior);
    } catch (const RuntimeError&) {
        if (!OrdenarPorDebajo(interior)) throw;
        Probar(interior);
    }
}

}  // namespace kv
