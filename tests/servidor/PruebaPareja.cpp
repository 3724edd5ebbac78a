#include <gtest/gtest.h>

#include <filesystem>

#include "tests/comun/BaseDemo.h"
#include "tests/comun/ConexionGuion.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/comun/Errores.h"
#include "tests/servidor/BasePrestada.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

// A copy of the demonstration, which need not survive a power cut.
class Copia {
  public:
    explicit Copia(const BaseDePrueba& base) { std::filesystem::copy_file(base.Ruta(), ruta_); }

    std::shared_ptr<Connection> Abrir() const {
        auto conexion =
            ConexionSqlite::Abrir(ruta_, {kAplicacionEsquema, kVersionEsquema}, ConexionSqlite::Modo::LecturaEscritura);
        conexion->Ejecutar("PRAGMA synchronous = OFF");
        return conexion;
    }

  private:
    CarpetaTemporal carpeta_;
    std::string ruta_ = carpeta_.Fichero("copia.kv");
};

TEST(Pareja, DosBasesEmbebidas_NoSeDistinguen) {
    const BibliotecaDePrueba biblioteca(kHoy);
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const Copia una(base);
    const Copia otra(base);
    const auto semilla = SemillaDePrueba();
    SCOPED_TRACE("KV_SEMILLA=" + std::to_string(semilla));
    Pareja pareja(una.Abrir(), otra.Abrir());
    Azar azar(semilla);
    CompararTodo(pareja, azar, kHoy);
    EXPECT_EQ(0U, pareja.NumeroDiferencias()) << pareja.Informe();
    EXPECT_GT(pareja.Casos(), 7000);
    // Refusals are compared too, and there must be some.
    EXPECT_GT(pareja.Rechazos(), 100);
}

struct Plantada {
    const char* nombre;
    const char* sentencia;
    void (*comparar)(Pareja&, Azar&);
    const char* informe;
};

void Tablas(Pareja& pareja, Azar&) {
    pareja.CompararTablas();
}
void Cargas(Pareja& pareja, Azar& azar) {
    CompararCargas(pareja, azar, kHoy, 150);
}

TEST(Pareja, UnaDiferenciaPlantada_SeCuenta) {
    const Plantada kCasos[] = {
        {"importe", "UPDATE Articulos_Tarifas SET Pvp =89.9501 WHERE Cod_Articulo =101 AND Cod_Tarifa =1", Tablas,
         "1 diferencias en 40 casos\n  Articulos_Tarifas [1, 101, 1]: Pvp: 89.95 <> 89.9501\n"},
        {"flotante", "UPDATE Almacen_Articulos SET P_Medio =52.34560000001 WHERE Cod_Articulo =101 AND Cod_Empresa =1",
         Tablas, "[1, 1, 101]: P_Medio: 52.3456 <> 52.34560000001"},
        {"blanco final", "UPDATE Almacenes SET Nombre ='Web ' WHERE Cod_Empresa =2", Tablas, "«Web» <> «Web »"},
        {"nulo", "UPDATE Clientes SET FAlta =NULL WHERE Codigo =5", Tablas, "FAlta: 06/06/2020 <> NULL"},
        {"fecha", "UPDATE Facturas SET Fecha ='02/02/2024' WHERE Codigo =1", Tablas, "01/02/2024 <> 02/02/2024"},
        {"lógico", "UPDATE Articulos SET DStock =0 WHERE Codigo =102", Tablas, "DStock: Verdadero <> Falso"},
        {"fila de menos", "DELETE FROM Presup", Tablas, "Presup [1, 1]: falta en la segunda"},
        {"fila de más", "INSERT INTO Presup (Cod_Empresa, Codigo) VALUES (1, 2)", Tablas,
         "[1, 2]: falta en la primera"},
        {"precio", "UPDATE Articulos_Tarifas SET Pvp = Pvp + 1", Cargas, "Pvp: "},
        {"descuento", "UPDATE Clientes SET Grupo_Dto =0",
         [](Pareja& pareja, Azar& azar) { CompararDescuentos(pareja, azar, 400); }, "activo: "},
        {"existencias", "DELETE FROM Almacen_Articulos",
         [](Pareja& pareja, Azar& azar) { CompararExistencias(pareja, azar, kHoy, 20); }, "stock: "},
        {"rechazo", "DROP TABLE Clientes_Notas",
         [](Pareja& pareja, Azar& azar) { CompararClientes(pareja, azar, kHoy, 40); },
         "error solo en la segunda: «de la base de datos»"},
    };
    const BibliotecaDePrueba biblioteca(kHoy);
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    for (const Plantada& caso : kCasos) {
        SCOPED_TRACE(caso.nombre);
        const Copia una(base);
        const Copia otra(base);
        Pareja pareja(una.Abrir(), otra.Abrir());
        otra.Abrir()->Ejecutar(caso.sentencia);
        Azar azar(7);
        caso.comparar(pareja, azar);
        EXPECT_NE(std::string::npos, pareja.Informe().find(caso.informe)) << pareja.Informe();
    }
}

TEST(BasePrestada, SoloSeVaciaLaVaciaOLaDeOtraVez) {
    const char* kTablas = "SELECT TABLE_NAME FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_TYPE = 'BASE TABLE'";
    const auto guion = [&](ConexionGuion& c, const std::vector<std::string>& tablas) {
        std::vector<ConexionGuion::Fila> filas;
        for (const std::string& tabla : tablas) filas.push_back({tabla});
        c.EsperaConsulta(kTablas, {"TABLE_NAME"}, filas);
    };
    for (const std::vector<std::string>& ajena :
         {std::vector<std::string>{"Clientes"}, {"KV_BaseDePruebas", "Clientes", "Nominas"}}) {
        ConexionGuion c;
        guion(c, ajena);
        EsperarError(kErrLlamadaInvalida, "", [&] { VaciarBasePrestada(c); });
    }
    ConexionGuion vacia;
    guion(vacia, {});
    vacia.EsperaEjecucion("CREATE TABLE KV_BaseDePruebas (Codigo int NOT NULL)");
    VaciarBasePrestada(vacia);
    ConexionGuion usada;
    guion(usada, {"KV_BaseDePruebas", "CLIENTES"});
    usada.EsperaEjecucion("DROP TABLE CLIENTES");
    VaciarBasePrestada(usada);
}

}  // namespace
}  // namespace kv::prueba
