#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/Fecha.h"
#include "tests/comun/Errores.h"

namespace kv::prueba {
namespace {

// An independent calendar: it only knows the lengths of the months.
struct Calendario {
    int anio = 100;
    int mes = 1;
    int dia = 1;

    int DiasDelMes() const {
        constexpr int kDias[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool bisiesto = (anio % 4 == 0 && anio % 100 != 0) || anio % 400 == 0;
        return mes == 2 && bisiesto ? 29 : kDias[mes - 1];
    }
    void Avanzar() {
        if (++dia <= DiasDelMes()) return;
        dia = 1;
        if (++mes <= 12) return;
        mes = 1;
        ++anio;
    }
};

TEST(Fecha, TodosLosDias_VanYVuelvenPorTextoIsoYOle) {
    double ole = -657434;  // 01/01/0100
    Calendario dia;
    for (; dia.anio <= 9999; dia.Avanzar(), ++ole) {
        const Fecha fecha = Fecha::DeOle(ole);
        ASSERT_EQ(dia.anio, fecha.Anio());
        ASSERT_EQ(dia.mes, fecha.Mes());
        ASSERT_EQ(dia.dia, fecha.Dia());
        ASSERT_EQ(fecha, Fecha::DeAmd(dia.anio, dia.mes, dia.dia));
        ASSERT_EQ(ole, fecha.AOle());
        ASSERT_EQ(fecha, Fecha::DeTexto(fecha.ATexto()));
        ASSERT_EQ(fecha, Fecha::DeTexto(fecha.AIso()));
    }
    EXPECT_EQ(2958466, ole);
    EsperarError(kErrDesbordamiento, "", [&] { Fecha::DeOle(ole); });
    EsperarError(kErrDesbordamiento, "", [] { Fecha::DeOle(-657435); });
    EsperarError(kErrDesbordamiento, "", [] { (void)(Fecha::DeAmd(9999, 12, 31) + 1); });
    EsperarError(kErrDesbordamiento, "", [] { Fecha::DeOle(std::nan("")); });
    EsperarError(kErrDesbordamiento, "", [] { Fecha::DeOle(std::numeric_limits<double>::infinity()); });
}

TEST(Fecha, Textos) {
    EXPECT_EQ("05/03/0100", Fecha::DeAmd(100, 3, 5).ATexto().Cadena());
    EXPECT_EQ("2026-11-09", Fecha::DeAmd(2026, 11, 9).AIso().Cadena());
    EXPECT_EQ("30/12/1899", Fecha().ATexto().Cadena());
    const Fecha dia = Fecha::DeAmd(2026, 3, 5);
    for (const char* texto : {"5/3/2026", "05/03/2026", " 05/03/2026", "2026-03-05", "2026-3-5", "2026-03-05 10:30:00",
                              "2026-03-05T00:00:00"})
        EXPECT_EQ(dia, Fecha::DeTexto(texto)) << texto;
    for (const char* texto :
         {"", "29/02/2025", "31/04/2026", "00/01/2026", "01/13/2026", "1/1/99", "01/01/20260", "2026-02-30",
          "05-03-2026", "05/03", "05/03/2026/1", "a/b/c", "5.3.2026", "-5/03/2026", "05/03/2026x"})
        EsperarError(kErrTipo, "", [&] { Fecha::DeTexto(texto); });
    EsperarError(kErrLlamadaInvalida, "", [] { Fecha::DeAmd(2025, 2, 29); });
    EsperarError(kErrLlamadaInvalida, "", [] { Fecha::DeAmd(99, 1, 1); });
}

TEST(Fecha, SumaYOrden) {
    EXPECT_EQ(Fecha::DeAmd(2024, 3, 1), Fecha::DeAmd(2024, 2, 28) + 2);
    EXPECT_EQ(Fecha::DeAmd(2025, 12, 31), Fecha::DeAmd(2026, 1, 1) + -1);
    EXPECT_LT(Fecha::DeAmd(2026, 1, 31), Fecha::DeAmd(2026, 2, 1));
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), Fecha::DeOle(46023.75));
    EXPECT_EQ(Fecha::DeAmd(1899, 12, 29), Fecha::DeOle(-1.75));
    EXPECT_EQ(Fecha::DeAmd(1899, 12, 30), Fecha::DeOle(-0.75));
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 1), Fecha::DeOle(46023.99999996528));  // 23:59:59.997
    EXPECT_EQ(Fecha::DeAmd(2026, 1, 2), Fecha::DeOle(46023.999999999993));
    EXPECT_EQ(Fecha::DeAmd(1899, 12, 30), Fecha::DeOle(-1.9999999999));
}

}  // namespace
}  // namespace kv::prueba
