#include "kvdatosart/schema/DemostracionServidor.h"

#include <memory>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/schema/Lotes.h"

namespace kv {
namespace {

[[noreturn]] void Rechazar(const char* motivo) {
    throw RuntimeError(kErrLlamadaInvalida, "KVDatosArt", motivo);
}

// The literals of the query have the database's own collation.
void ExigirIntercalacion(Connection& conexion) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT 'ñ€' AS Texto WHERE 'a' = 'A'");
    if (rs->Eof())
        Rechazar(
            "La base de datos distingue mayúsculas de minúsculas: hace falta una intercalación que no lo haga, como"
            " Modern_Spanish_CI_AS");
    if (rs->Fields("Texto").Value() != Valor(std::string("ñ€")))
        Rechazar(
            "La intercalación de la base de datos no guarda la ñ y el €: hace falta otra, como Modern_Spanish_CI_AS");
    rs->Close();
}

void ExigirSinEmpresas(Connection& conexion) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT OBJECT_ID('Empresas', 'U') AS Tabla");
    const bool vacia = EsNulo(rs->Fields("Tabla").Value());
    rs->Close();
    if (vacia) return;
    AbrirLectura(rs, conexion, "SELECT TOP 1 Codigo FROM Empresas");
    if (!rs->Eof()) Rechazar("La base de datos ya tiene empresas y no se toca");
    rs->Close();
}

}  // namespace

void CrearDemostracionServidor(Connection& conexion, const EjecutarLote& ejecutarLote, Fecha hoy) {
    ExigirIntercalacion(conexion);
    ExigirSinEmpresas(conexion);
    Transaccion transaccion(conexion);
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) ejecutarLote(lote);
    EscribirDemostracion(conexion, hoy);
    transaccion.Confirmar();
}

}  // namespace kv
