#include "tests/servidor/BasePrestada.h"

#include <algorithm>

#include "db/Nombres.h"
#include "tests/servidor/Pareja.h"

namespace kv::prueba {
namespace {

constexpr std::string_view kMarca = "KV_BaseDePruebas";

bool EsNuestra(const std::vector<TablaEsquema>& nuestras, std::string_view tabla) {
    return MismoNombre(tabla, kMarca) || std::any_of(nuestras.begin(), nuestras.end(), [&](const TablaEsquema& una) {
               return MismoNombre(tabla, una.nombre);
           });
}

}  // namespace

void VaciarBasePrestada(Connection& conexion) {
    std::vector<std::string> tablas;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'");
    for (; !rs->Eof(); rs->MoveNext()) tablas.push_back(AString(rs->Fields("TABLE_NAME").Value(), '.'));
    rs->Close();
    const std::vector<TablaEsquema> nuestras = TablasDelEsquema();
    bool marcada = tablas.empty();
    for (const std::string& tabla : tablas) {
        if (!EsNuestra(nuestras, tabla))
            LanzarError(kErrLlamadaInvalida, "la base de datos tiene una tabla ajena, «" + tabla + "», y no se toca");
        marcada = marcada || MismoNombre(tabla, kMarca);
    }
    if (!marcada)
        LanzarError(kErrLlamadaInvalida, "la base de datos no está vacía ni la hicieron las pruebas, y no se toca");
    if (tablas.empty()) conexion.Ejecutar("CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)");
    for (const std::string& tabla : tablas)
        if (!MismoNombre(tabla, kMarca)) conexion.Ejecutar("DROP TABLE " + tabla);
}

}  // namespace kv::prueba
