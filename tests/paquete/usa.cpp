// Prices a line with the installed headers and libraries only.
#include <cstdio>

#include "kvdatosart/catalog/Historia.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const kv::IdentidadBase identidad{kv::kAplicacionEsquema, kv::kVersionEsquema};
    const auto hoy = kv::Fecha::DeAmd(2026, 11, 21);
    kv::ConexionSqlite::Crear(argv[1], identidad, kv::EsquemaSqlite(),
                              [&](kv::Connection& conexion) { kv::CargarDemostracion(conexion, hoy); });
    const auto conexion = kv::ConexionSqlite::Abrir(argv[1], identidad, kv::ConexionSqlite::Modo::SoloLectura);
    const auto empresa = kv::EmpresaTabla::Leer(*conexion, 1);
    kv::clsDatosArt articulo;
    articulo.Conexion(conexion);
    articulo.cEmpresa(empresa);
    const int estado = articulo.Cargar(113, 11, hoy, 1, 1, 2);
    std::printf("%d %s %.2f\n", estado, articulo.Descripcion.c_str(), articulo.Pvp);
    const auto tramos = kv::HacerHistoria({conexion, empresa}, {{113, 11, hoy, 1}, hoy, hoy + 1, hoy});
    // From tomorrow on only the scheduled changes count, and the article has none.
    return tramos.size() == 2 && tramos[0].tasacion.neto.ADouble() == articulo.Pvp ? 0 : 1;
}
