#include <array>

#include "kvdatosart/schema/DemostracionPartes.h"

namespace kv::demo {
namespace {

void Tarifa(Escritor& escritor, int articulo, int tarifa, int centimos) {
    escritor.Fila("Articulos_Tarifas", "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp", kEmpresa, articulo, tarifa,
                  Centimos(centimos));
}

struct Cambio {
    int articulo;
    int tarifa;
    int centimos;
    // Days from today.
    int dias;
    bool actualizado = true;
    bool borrado = false;
};

void Programar(Escritor& escritor, int codigo, const Cambio& c) {
    escritor.Fila("Tarifas_Modificacion",
                  "Codigo, Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado", codigo,
                  kEmpresa, c.articulo, c.tarifa, Centimos(c.centimos), escritor.Hoy() + c.dias, c.actualizado,
                  c.borrado);
}

// Percentages of the retail price: wholesale, professional and web.
struct Margen {
    int tarifa;
    int tantoPorCiento;
};
constexpr auto kMargenes = std::to_array<Margen>({{1, 100}, {2, 80}, {3, 88}, {5, 97}});

void PreciosMuestrario(Escritor& escritor) {
    struct Precio {
        int articulo;
        int tarifa;
        int centimos;
    };
    constexpr auto kPrecios = std::to_array<Precio>({
        {101, 1, 8995}, {101, 2, 7196}, {101, 5, 8725},  {102, 1, 2450},  {102, 2, 1960},  {103, 1, 5900},
        {103, 2, 4720}, {104, 1, 995},  {104, 4, 795},   {105, 1, 1240},  {106, 1, 195},   {106, 2, 156},
        {107, 1, 3490}, {107, 2, 3290}, {108, 1, 8450},  {109, 1, 9990},  {110, 1, 120},   {111, 1, 595},
        {112, 1, 485},  {113, 1, 2400}, {114, 1, 18900}, {115, 1, 39900}, {116, 1, 28900}, {117, 5, 0},
        {117, 2, 1800}, {117, 1, 2050}, {118, 1, 890},   {119, 1, 9600},  {120, 1, 4500},  {122, 1, 1200},
    });
    for (const Precio& p : kPrecios) Tarifa(escritor, p.articulo, p.tarifa, p.centimos);
}

// Boots by size, of which the last one is only sold in tariff 3, and trousers by size.
void PreciosPorTalla(Escritor& escritor) {
    constexpr const char* kColumnas = "Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp";
    for (int talla = 38; talla <= 45; ++talla)
        escritor.Fila("Articulos_Tarifas_C", kColumnas, kEmpresa, 103, talla, 1, Centimos(talla >= 42 ? 6400 : 5900));
    escritor.Fila("Articulos_Tarifas_C", kColumnas, kEmpresa, 103, 46, 3, Centimos(6600));
    for (int articulo = 1109; articulo <= 1117; ++articulo)
        for (int talla = 1; talla <= 5; ++talla)
            escritor.Fila("Articulos_Tarifas_C", kColumnas, kEmpresa, articulo, talla, 1, Centimos(2590 + talla * 100));
}

void CambiosMuestrario(Escritor& escritor) {
    // Of two changes on the same day the last one recorded counts. One was withdrawn, another one takes no part.
    constexpr auto kCambios = std::to_array<Cambio>({
        {102, 1, 2450, -90},
        {102, 1, 2690, 30},
        {102, 1, 2790, 60},
        {102, 1, 2750, 60},
        {102, 1, 1990, 90, true, true},
        {102, 1, 2090, 90, false},
        {101, 1, 9295, 45},
        {105, 1, 1290, 15},
        {104, 4, 695, 20},
    });
    int codigo = 1;
    for (const Cambio& c : kCambios) Programar(escritor, codigo++, c);
    escritor.Fila("Tarifas_Modificacion_C",
                  "Codigo, Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado",
                  1, kEmpresa, 103, 42, 1, Centimos(6790), escritor.Hoy() + 30, 1, 0);
}

}  // namespace

void EscribirTarifas(Escritor& escritor, int articulo, int centimos) {
    // A change of the past holds today's price; one to come raises it.
    const int dias = articulo % 60 - 20;
    const int subida = dias > 0 ? 105 : 100;
    for (const Margen& m : kMargenes) {
        const int precio = centimos * m.tantoPorCiento / 100;
        Tarifa(escritor, articulo, m.tarifa, precio);
        if (articulo % 9 == 0)
            Programar(escritor, articulo * 10 + m.tarifa, {articulo, m.tarifa, precio * subida / 100, dias});
    }
    if (articulo % 10 == 0) Tarifa(escritor, articulo, 4, centimos * 75 / 100);
}

void EscribirTarifasMuestrario(Escritor& escritor) {
    constexpr auto kTarifas =
        std::to_array<const char*>({"Venta al público", "Mayorista", "Profesional", "Promoción", "Web"});
    for (std::size_t i = 0; i < kTarifas.size(); ++i)
        escritor.Fila("Tarifas", "Cod_Empresa, Codigo, Descripcion", kEmpresa, static_cast<int>(i) + 1, kTarifas[i]);
    PreciosMuestrario(escritor);
    PreciosPorTalla(escritor);
    CambiosMuestrario(escritor);
}

}  // namespace kv::demo
