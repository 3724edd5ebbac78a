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

rc::Gen<std::vector<Movimiento>> Movimientos() {
    return rc::gen::container<std::vector<Movimiento>>(rc::gen::construct<Movimiento>(
        rc::gen::element(3, 5, 7, 8, 13, 1), rc::gen::inRange(-6, 12), rc::gen::inRange(0, 500)));
}

bool Sale(int op) {
    return op == 5 || op == 8 || op == 13;
}

// The average of a plain article, worked out in hundredths of a cent by its own rules.
double MediaEsperada(double media, double stock, double unidades, double neto, bool variante) {
    const bool pesa = variante ? stock + unidades > 0 : media > 0 && stock > 0;
    if (!pesa) return variante ? media : neto;
    const double nueva = (media * stock + unidades * neto) / (stock + unidades);
    const double redondeada = std::nearbyint(nueva * 10000) / 10000;
    return redondeada < 0 ? neto : redondeada;
}

struct Almacenado {
    explicit Almacenado(std::shared_ptr<Connection> conexion) {
        almacen.Conexion(std::move(conexion));
        almacen.cEmpresa(std::make_shared<EmpresaFija>());
    }
    void Mover(const Movimiento& m, bool variante) {
        const auto op = static_cast<std::int16_t>(m.op);
        if (variante)
            almacen.Act_Stock_Cualidades(1, 9, 38, 2, m.unidades, 0, m.centimos / 100.0, op, kHoy, puc, medio, stock,
                                         false);
        else
            almacen.Act_Stock(1, 9, m.unidades, 0, m.centimos / 100.0, op, kHoy, puc, medio, stock, false);
    }

    clsAlmacen_Articulo almacen;
    double puc = 0;
    double medio = 0;
    double stock = 0;
};

// Each sequence starts on empty tables: what it writes is undone, however it ends.
struct Deshecha {
    explicit Deshecha(Connection& c) : conexion(c) { conexion.BeginTrans(); }
    ~Deshecha() { conexion.RollbackTrans(); }
    Connection& conexion;
};

void Comprobar(const std::vector<Movimiento>& movimientos, bool variante) {
    static const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    static const auto conexion = base.Abrir();
    const Deshecha deshecha(*conexion);
    Almacenado almacenado(conexion);
    double stock = 0;
    double media = 0;
    bool hayFila = false;
    for (const Movimiento& m : movimientos) {
        almacenado.medio = 0;
        almacenado.Mover(m, variante);
        const double unidades = Sale(m.op) ? -m.unidades : m.unidades;
        const double neto = m.centimos / 100.0;
        if (unidades > 0 && (m.op == 3 || m.op == 7) && neto > 0)
            media = hayFila ? MediaEsperada(media, stock, unidades, neto, variante) : neto;
        else if (!hayFila)
            media = m.op == 7 && neto > 0 ? neto : 0;
        hayFila = true;
        stock += unidades;
        RC_ASSERT(almacenado.stock == stock);
        const std::string tabla = variante ? "Almacen_Articulos_C" : "Almacen_Articulos";
        RC_ASSERT(ADouble(LeerValor(*conexion, "SELECT Stock_Actual FROM " + tabla)) == stock);
        const double guardada = ADouble(LeerValor(*conexion, "SELECT P_Medio FROM " + tabla));
        RC_ASSERT(std::fabs(guardada - media) < 0.00011);
        media = guardada;
        const Fecha fin = ADate(LeerValor(*conexion, "SELECT FFin_Existencias FROM " + tabla));
        if (stock > 0) RC_ASSERT(fin == Fecha::DeAmd(1900, 1, 1));
    }
}

RC_GTEST_PROP(Existencias, SonLaSumaConSignoYLaMediaSeReproduce, ()) {
    Comprobar(*Movimientos(), false);
}

RC_GTEST_PROP(Existencias, DeLaVariante_ConSusPropiasReglas, ()) {
    Comprobar(*Movimientos(), true);
}

// Posts `veces` sales of one unit, each durable, and writes a byte for each one that was acknowledged.
[[noreturn]] void Contabilizar(const std::string& ruta, int veces, int aviso) {
    int codigo = 0;
    try {
        Almacenado almacenado(
            ConexionSqlite::Abrir(ruta, {kAplicacionEsquema, kVersionEsquema}, ConexionSqlite::Modo::LecturaEscritura));
        for (int i = 0; i < veces; ++i) {
            almacenado.Mover({1, 1, 0}, false);
            if (write(aviso, "x", 1) != 1) break;
        }
    } catch (const RuntimeError&) {
        codigo = 1;
    }
    _exit(codigo);
}

TEST(Existencias, DosProcesosALaVez_NoPierdenNada) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    Almacenado(base.Abrir()).Mover({1, 0, 0}, false);
    int tubo[2];
    ASSERT_EQ(0, pipe(tubo));
    pid_t hijos[2];
    for (pid_t& hijo : hijos)
        if ((hijo = fork()) == 0) Contabilizar(base.Ruta(), 100, tubo[1]);
    for (const pid_t hijo : hijos) {
        int estado = 0;
        waitpid(hijo, &estado, 0);
        EXPECT_EQ(0, estado);
    }
    close(tubo[0]);
    close(tubo[1]);
    EXPECT_EQ(200, ADouble(LeerValor(*base.Abrir(), "SELECT Stock_Actual FROM Almacen_Articulos")));
}

TEST(Existencias, MatadoAMitad_ConservaLoConfirmado) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    Almacenado(base.Abrir()).Mover({1, 0, 0}, false);
    int confirmados = 0;
    for (int ronda = 1; ronda <= 5; ++ronda) {
        int tubo[2];
        ASSERT_EQ(0, pipe(tubo));
        const pid_t hijo = fork();
        if (hijo == 0) Contabilizar(base.Ruta(), 1000000, tubo[1]);
        close(tubo[1]);
        char aviso = 0;
        for (int i = 0; i < ronda * 7 && read(tubo[0], &aviso, 1) == 1; ++i) ++confirmados;
        kill(hijo, SIGKILL);
        int estado = 0;
        waitpid(hijo, &estado, 0);
        while (read(tubo[0], &aviso, 1) == 1) ++confirmados;
        close(tubo[0]);
        const auto conexion = base.Abrir();
        const double stock = ADouble(LeerValor(*conexion, "SELECT Stock_Actual FROM Almacen_Articulos"));
        // At most the posting that was committed but not yet acknowledged when the process died.
        EXPECT_GE(stock, confirmados);
        EXPECT_LE(stock, confirmados + 1);
        confirmados = static_cast<int>(stock);
        EXPECT_EQ("ok", AString(LeerValor(*conexion, "PRAGMA integrity_check"), '.'));
    }
    EXPECT_GT(confirmados, 50);
}

}  // namespace
}  // namespace kv::prueba
