#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "stock/clsAlmacen_Articulo.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

// Posts movements of one unit, each durable, and writes a byte for each one that was acknowledged, until it is killed.
[[noreturn]] void Contabilizar(const BaseDePrueba& base, int aviso) {
    try {
        clsAlmacen_Articulo almacen;
        almacen.Conexion(base.Abrir());
        almacen.cEmpresa(std::make_shared<EmpresaFija>());
        double puc = 0, medio = 0, stock = 0;
        do almacen.Act_Stock(1, 9, 1, 0, 0, 1, kHoy, puc, medio, stock, false);
        while (write(aviso, "x", 1) == 1);
    } catch (const RuntimeError&) {
    }
    _exit(1);
}

TEST(Existencias, DosProcesosALaVezYMatados_ConservanLoConfirmado) {
    for (int ronda = 1; ronda <= 5; ++ronda) {
        const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
        base.Abrir()->Ejecutar(
            "INSERT INTO Almacen_Articulos (Cod_Empresa, Cod_Almacen, Cod_Articulo) VALUES (1, 1, 9)");
        int tubo[2];
        ASSERT_EQ(0, pipe(tubo));
        pid_t hijos[2];
        for (pid_t& hijo : hijos)
            if ((hijo = fork()) == 0) Contabilizar(base, tubo[1]);
        close(tubo[1]);
        char aviso = 0;
        int confirmados = 0;
        while (read(tubo[0], &aviso, 1) == 1)
            if (++confirmados == ronda * 15)
                for (const pid_t hijo : hijos) kill(hijo, SIGKILL);
        close(tubo[0]);
        for (const pid_t hijo : hijos) {
            int estado = 0;
            waitpid(hijo, &estado, 0);
            EXPECT_TRUE(WIFSIGNALED(estado)) << "un apunte falló";
        }
        const auto conexion = base.Abrir();
        const double stock = ADouble(LeerValor(*conexion, "SELECT Stock_Actual FROM Almacen_Articulos"));
        // At most what each process had committed but not yet acknowledged when it died.
        EXPECT_GE(confirmados, ronda * 15);
        EXPECT_GE(stock, confirmados);
        EXPECT_LE(stock, confirmados + 2);
        EXPECT_EQ("ok", AString(LeerValor(*conexion, "PRAGMA integrity_check"), '.'));
    }
}

}  // namespace
}  // namespace kv::prueba
