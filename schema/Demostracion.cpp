#include "kvdatosart/schema/Demostracion.h"

#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/schema/DemostracionPartes.h"

namespace kv {
namespace {

void EscribirEmpresas(demo::Escritor& escritor) {
    constexpr const char* kColumnas =
        "Codigo, Nombre, TarifasxFechas, Cod_EmpresaArticulos, Cod_EmpresaClientes, Cod_EmpresaExtra, Tarifa,"
        " VenderSinStock, CosteUltimaCompra, DecPrecios, DecImportes, DecCostes,"
        " CaptionFamilia1, CaptionFamilia2, CaptionFamilia3";
    escritor.Fila("Empresas", kColumnas, 1, "Suministros Ribera", 1, 1, 1, 1, 1, 0, 0, 2, 2, 4, "Sección", "Familia",
                  "Subfamilia");
    // The second company sells from the first one's catalogue to the first one's customers, in its own way.
    escritor.Fila("Empresas", kColumnas, 2, "Suministros Ribera Web", 0, 1, 1, 1, 5, 1, 1, 2, 2, 4, "Sección",
                  "Familia", "");
    escritor.Fila("Empresas_Parametros", "Cod_Empresa, Numero, Valor", 1, 1, "Familia");
    escritor.Fila("Empresas_Parametros", "Cod_Empresa, Numero, Valor", 1, 2, "Subfamilia");
    escritor.Fila("Empresas_Parametros", "Cod_Empresa, Numero, Valor", 2, 1, "Familia");
}

}  // namespace

void EscribirDemostracion(Connection& conexion, Fecha hoy) {
    demo::Escritor escritor(conexion, hoy);
    EscribirEmpresas(escritor);
    demo::EscribirArticulos(escritor);
    demo::EscribirTarifasMuestrario(escritor);
    demo::EscribirClientes(escritor);
    demo::EscribirReglas(escritor);
}

void CargarDemostracion(Connection& conexion, Fecha hoy) {
    Transaccion transaccion(conexion);
    EscribirDemostracion(conexion, hoy);
    transaccion.Confirmar();
}

}  // namespace kv
