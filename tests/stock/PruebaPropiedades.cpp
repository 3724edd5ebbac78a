#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <csignal>

#include "stock/clsAlmacen_Articulo.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 3, 5);

struct Movimiento {
    int op;
    int unidades;
    int centimos;
};

// The average of a row by the rules of its table, worked out apart.
double MediaEsperada(double media, double stock, double unidades, double neto, bool variante) {
    const bool pesa = variante ? stock + unidades > 0 : media > 0 && stock > 0;
    if (!pesa) return variante ? media : neto;
    const double nueva = (media * stock + unidades * neto) / (stock + unidades);
    const double redondeada = std::nearbyint(nueva * 10000) / 10000;
    return redondeada < 0 ? neto : redondeada;
}

// Posts a movement on the only row and returns the stock that the call gives back.
double Mover(std::shared_ptr<Connection> conexion, const Movimiento& m, bool variante) {
    clsAlmacen_Articulo almacen;
    almacen.Conexion(std::move(conexion));
    almacen.cEmpresa(std::make_shared<EmpresaFija>());
    const auto op = static_cast<std::int16_t>(m.op);
    double puc = 0, medio = 0, stock = 0;
    if (variante)
        almacen.Act_Stock_Cualidades(1, 9, 38, 2, m.unidades, 0, m.centimos / 100.0, op, kHoy, puc, medio, stock,
                                     false);
    else
        almacen.Act_Stock(1, 9, m.unidades, 0, m.centimos / 100.0, op, kHoy, puc, medio, stock, false);
    return stock;
}

// Never confirmed: what the random movements write is gone with the connection.
std::shared_ptr<Connection> EnTransaccion(std::shared_ptr<Connection> conexion) {
    conexion->BeginTrans();
    return conexion;
}

RC_GTEST_PROP(Existencias, SonLaSumaConSignoYLaMediaSeReproduce, ()) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = EnTransaccion(base.Abrir());
    const bool variante = *rc::gen::arbitrary<bool>();
    const std::string tabla = variante ? " FROM Almacen_Articulos_C" : " FROM Almacen_Articulos";
    conexion->Ejecutar("DELETE" + tabla);
    double stock = 0, media = 0;
    bool hayFila = false;
    for (const Movimiento& m : *rc::gen::container<std::vector<Movimiento>>(rc::gen::construct<Movimiento>(
             rc::gen::element(3, 5, 7, 8, 13, 1), rc::gen::inRange(-6, 12), rc::gen::inRange(0, 500)))) {
        const double devuelto = Mover(conexion, m, variante);
        const double unidades = m.op == 5 || m.op == 8 || m.op == 13 ? -m.unidades : m.unidades;
        const double neto = m.centimos / 100.0;
        if (unidades > 0 && (m.op == 3 || m.op == 7) && neto > 0)
            media = hayFila ? MediaEsperada(media, stock, unidades, neto, variante) : neto;
        else if (!hayFila)
            media = m.op == 7 && neto > 0 ? neto : 0;
        hayFila = true;
        stock += unidades;
        RC_ASSERT(devuelto == stock);
        RC_ASSERT(ADouble(LeerValor(*conexion, "SELECT Stock_Actual" + tabla)) == stock);
        const double guardada = ADouble(LeerValor(*conexion, "SELECT P_Medio" + tabla));
        RC_ASSERT(std::fabs(guardada - media) < 0.00011);
        media = guardada;
    }
}

// Posts sales of one unit, each durable, and writes a byte for each one that was acknowledged, until it is killed.
[[noreturn]] void Contabilizar(const BaseDePrueba& base, int aviso) {
    try {
        const auto conexion = base.Abrir();
        do Mover(conexion, {1, 1, 0}, false);
        while (write(aviso, "x", 1) == 1);
    } catch (const RuntimeError&) {
    }
    _exit(1);
}

TEST(Existencias, DosProcesosALaVezYMatados_ConservanLoConfirmado) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    Mover(base.Abrir(), {1, 0, 0}, false);
    int confirmados = 0;
    for (int ronda = 1; ronda <= 5; ++ronda) {
        int tubo[2];
        ASSERT_EQ(0, pipe(tubo));
        pid_t hijos[2];
        for (pid_t& hijo : hijos)
            if ((hijo = fork()) == 0) Contabilizar(base, tubo[1]);
        close(tubo[1]);
        char aviso = 0;
        for (int i = 0; i < ronda * 15 && read(tubo[0], &aviso, 1) == 1; ++i) ++confirmados;
        for (const pid_t hijo : hijos) kill(hijo, SIGKILL);
        for (const pid_t hijo : hijos) {
            int estado = 0;
            waitpid(hijo, &estado, 0);
            EXPECT_TRUE(WIFSIGNALED(estado)) << "un apunte falló";
        }
        while (read(tubo[0], &aviso, 1) == 1) ++confirmados;
        close(tubo[0]);
        const auto conexion = base.Abrir();
        const double stock = ADouble(LeerValor(*conexion, "SELECT Stock_Actual FROM Almacen_Articulos"));
        // At most what each process had committed but not yet acknowledged when it died.
        EXPECT_GE(stock, confirmados);
        EXPECT_LE(stock, confirmados + 2);
        confirmados = static_cast<int>(stock);
        EXPECT_EQ("ok", AString(LeerValor(*conexion, "PRAGMA integrity_check"), '.'));
    }
    EXPECT_GT(confirmados, 150);
}

}  // namespace
}  // namespace kv::prueba
