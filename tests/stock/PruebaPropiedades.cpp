#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <csignal>

#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

// Posts a movement of the only row, or of its only variant, and returns the stock that the call gives back.
double Mover(const std::shared_ptr<Connection>& conexion, bool variante, int op, int unidades, double neto) {
    clsAlmacen_Articulo almacen;
    almacen.Conexion(conexion);
    almacen.cEmpresa(std::make_shared<EmpresaFija>());
    const auto clase = static_cast<std::int16_t>(op);
    double puc = 0, medio = 0, stock = 0;
    if (variante)
        almacen.Act_Stock_Cualidades(1, 9, 38, 2, unidades, 0, neto, clase, kHoy, puc, medio, stock, false);
    else
        almacen.Act_Stock(1, 9, unidades, 0, neto, clase, kHoy, puc, medio, stock, false);
    return stock;
}

// The average of a row by the rules of its table, worked out apart.
double MediaEsperada(double media, double stock, double unidades, double neto, bool variante) {
    const bool pesa = variante ? stock + unidades > 0 : media > 0 && stock > 0;
    if (!pesa) return variante ? media : neto;
    const double nueva = std::nearbyint((media * stock + unidades * neto) / (stock + unidades) * 10000) / 10000;
    return nueva < 0 ? neto : nueva;
}

RC_GTEST_PROP(Existencias, SonLaSumaConSignoYLaMediaSeReproduce, ()) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = base.Abrir();
    const bool variante = *rc::gen::arbitrary<bool>();
    const std::string tabla = variante ? " FROM Almacen_Articulos_C" : " FROM Almacen_Articulos";
    const auto guardado = [&](const char* columna) {
        return ADouble(LeerValor(*conexion, std::string("SELECT ") + columna + tabla));
    };
    const Transaccion nuncaConfirmada(*conexion);
    double stock = 0, media = 0;
    bool hayFila = false;
    const auto mover = [&](int op, int unidades, int centimos) {
        const bool sale = op == 5 || op == 8 || op == 13;
        const double neto = centimos / 100.0;
        const double devuelto = Mover(conexion, variante, op, unidades, neto);
        if (!sale && unidades > 0 && op != 1 && neto > 0)
            media = hayFila ? MediaEsperada(media, stock, unidades, neto, variante) : neto;
        else if (!hayFila)
            media = op == 7 && neto > 0 ? neto : 0;
        hayFila = true;
        stock += sale ? -unidades : unidades;
        RC_ASSERT(devuelto == stock);
        RC_ASSERT(guardado("Stock_Actual") == stock);
        const double escrita = guardado("P_Medio");
        RC_ASSERT(std::fabs(escrita - media) < 0.00011);
        media = escrita;
    };
    for (int i = *rc::gen::inRange(0, 30); i > 0; --i)
        mover(*rc::gen::element(3, 5, 7, 8, 13, 1), *rc::gen::inRange(-6, 12), *rc::gen::inRange(0, 500));
    // Emptied exactly, from either side of zero, and bought anew.
    mover(5, static_cast<int>(stock), 0);
    mover(3, 4, 250);
}

// Posts movements of one unit, each durable, and writes a byte for each one that was acknowledged, until it is killed.
[[noreturn]] void Contabilizar(const BaseDePrueba& base, int aviso) {
    try {
        const auto conexion = base.Abrir();
        do Mover(conexion, false, 1, 1, 0);
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
