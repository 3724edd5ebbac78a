#include <gtest/gtest.h>

#include <cmath>

#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/tests/comun/Errores.h"

namespace kv::prueba {
namespace {

TEST(Fecha, TodoElIntervalo_VaYVuelvePorTextoIsoYOle) {
    // Of eleven days one: over the whole range, each day of the calendar's 400 years falls to some year.
    for (int i = 0; i <= 3615899; i += 11) {
        const Fecha fecha = Fecha::DeAmd(100, 1, 1) + i;
        ASSERT_EQ(fecha, Fecha::DeOle(-657434 + i)) << i;
        ASSERT_EQ(-657434 + i, fecha.AOle());
        ASSERT_EQ(fecha, Fecha::DeAmd(fecha.Anio(), fecha.Mes(), fecha.Dia()));
        ASSERT_EQ(fecha, Fecha::DeTexto(fecha.ATexto()));
        ASSERT_EQ(fecha, Fecha::DeTexto(fecha.AIso()));
    }
    const Fecha ultima = Fecha::DeAmd(9999, 12, 31);
    EXPECT_EQ(2958465, ultima.AOle());
    for (const double malo : {-657435.0, 2958466.0, 1e300, std::nan("")}) {
        SCOPED_TRACE(malo);
        EsperarError(kErrDesbordamiento, "", [&] { Fecha::DeOle(malo); });
    }
    EsperarError(kErrDesbordamiento, "", [&] { (void)(ultima + 1); });
}

TEST(Fecha, Textos) {
    EXPECT_EQ("05/03/0100", Fecha::DeAmd(100, 3, 5).ATexto().Cadena());
    EXPECT_EQ("2028-02-29", (Fecha::DeAmd(2028, 2, 28) + 1).AIso().Cadena());
    EXPECT_EQ("30/12/1899", Fecha().ATexto().Cadena());
    for (const char* texto : {"5/3/2026", " 05/03/2026", "2026-3-5", "2026-03-05 10:30:00", "2026-03-05T00:00:00"})
        EXPECT_EQ(Fecha::DeAmd(2026, 3, 5), Fecha::DeTexto(texto)) << texto;
    for (const char* texto :
         {"",           "29/02/2025", "00/01/2026",   "01/13/2026", "1/1/99",     "01/01/20260", "2026-02-30",
          "05-03-2026", "05/03",      "05/03/2026/1", "a/b/c",      "5.3.2026",   "-5/03/2026",  "05/03/2026x",
          "005/3/2026", "5/003/2026", "02026-3-5",    "2026-3-005", "2026-003-5", "1/1/0099",    "1/0/2026",
          "2026/03/05", "05-03/2026", "05/03/2026/",  "2026-3-5-",  "5/3"}) {
        SCOPED_TRACE(texto);
        EsperarError(kErrTipo, "", [&] { Fecha::DeTexto(texto); });
    }
    EsperarError(kErrLlamadaInvalida, "", [] { Fecha::DeAmd(2025, 2, 29); });
    EsperarError(kErrLlamadaInvalida, "", [] { Fecha::DeAmd(99, 1, 1); });
}

TEST(Fecha, DeOle_QuitaLaHoraPeroNoLaUltimaFraccionDelDia) {
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), Fecha::DeOle(46023.75));
    EXPECT_EQ(Fecha::DeAmd(1899, 12, 29), Fecha::DeOle(-1.75));
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), Fecha::DeOle(46023.99999996528));  // 23:59:59.997
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 2), Fecha::DeOle(46023.999999999993));
    EXPECT_EQ(Fecha::DeAmd(1899, 12, 30), Fecha::DeOle(-1.9999999999));
}

}  // namespace
}  // namespace kv::prueba
