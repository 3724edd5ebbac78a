#include <gtest/gtest.h>

#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

struct Plantada {
    const char* sentencia;
    const char* informe;
    void (*comparar)(Pareja&, Azar&) = [](Pareja& pareja, Azar& azar) { pareja.CompararTablas(azar); };
};

TEST(Pareja, UnaDiferenciaPlantada_SeCuenta) {
    const BibliotecaDePrueba biblioteca(kHoy);
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const Plantada kCasos[] = {
        {"UPDATE Articulos_Tarifas SET Pvp =89.9501 WHERE Cod_Articulo =101 AND Cod_Tarifa =1",
         "1 diferencias en 40 casos\n  Articulos_Tarifas: 1 101 1 pvp: 89.95 dinero <> 89.9501 dinero\n"},
        {"UPDATE Almacen_Articulos SET P_Medio =52.34560000001 WHERE Cod_Articulo =101 AND Cod_Empresa =1",
         "Almacen_Articulos: 1 1 101 p_medio: 52.3456 real <> 52.34560000001 real"},
        {"UPDATE Almacenes SET Nombre ='Web ' WHERE Cod_Empresa =2", "«Web» <> «Web »"},
        {"UPDATE Clientes SET FAlta =NULL WHERE Codigo =5", "falta: 06/06/2020 fecha <> NULL"},
        {"UPDATE Facturas SET Fecha ='02/02/2024' WHERE Codigo =1", "01/02/2024 fecha <> 02/02/2024 fecha"},
        {"UPDATE Articulos SET DStock =0 WHERE Codigo =102", "dstock: Verdadero lógico <> Falso lógico"},
        {"DELETE FROM Presup", "Presup: 1 1 codigo: 1 entero <> nada"},
        {"INSERT INTO Presup (Cod_Empresa, Codigo) VALUES (1, 2)", "Presup: 1 2 codigo: nada <> 2 entero"},
        {"UPDATE Articulos_Tarifas SET Pvp = Pvp + 1",
         ": Pvp: ", [](Pareja& pareja, Azar& azar) { CompararCargas(pareja, azar, 150); }},
        {"UPDATE Clientes SET Grupo_Dto =0",
         "activo: ", [](Pareja& pareja, Azar& azar) { CompararDescuentos(pareja, azar, 400); }},
        {"DELETE FROM Almacen_Articulos",
         "stock: ", [](Pareja& pareja, Azar& azar) { CompararExistencias(pareja, azar, 20); }},
        {"DROP TABLE Clientes_Notas", "error: nada <> «de la base de datos»",
         [](Pareja& pareja, Azar& azar) { CompararClientes(pareja, azar, 40); }},
    };
    for (const Plantada& caso : kCasos) {
        SCOPED_TRACE(caso.sentencia);
        const BaseDePrueba una(base);
        const BaseDePrueba otra(base);
        otra.AbrirSinDisco()->Ejecutar(caso.sentencia);
        Pareja pareja(una.AbrirSinDisco(), otra.AbrirSinDisco());
        Azar azar(7, kHoy);
        caso.comparar(pareja, azar);
        EXPECT_NE(std::string::npos, pareja.Informe().find(caso.informe)) << pareja.Informe();
    }
}

}  // namespace
}  // namespace kv::prueba
