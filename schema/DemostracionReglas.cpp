#include <array>

#include "kvdatosart/schema/DemostracionPartes.h"

namespace kv::demo {
namespace {

const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

void PreciosCliente(Escritor& escritor) {
    constexpr const char* kColumnas = "Cod_Empresa, Cod_Cliente, Cod_Articulo, Fecha_Inicial, Fecha_Final, PVP";
    escritor.Fila("Clientes_Art_PVP", kColumnas, kEmpresa, 3, 106, Fecha::DeAmd(2020, 1, 1), kSiempre, Centimos(157));
    // An expired price, which no longer counts.
    escritor.Fila("Clientes_Art_PVP", kColumnas, kEmpresa, 3, 101, Fecha::DeAmd(2019, 1, 1), Fecha::DeAmd(2019, 12, 31),
                  Centimos(7500));
    // The base price that the chain agreed counts more than this one.
    escritor.Fila("Clientes_Art_PVP", kColumnas, kEmpresa, 11, 107, Fecha::DeAmd(2024, 1, 1), kSiempre, Centimos(3300));
    for (int articulo = 1005; articulo <= 1300; articulo += 37)
        escritor.Fila("Clientes_Art_PVP", kColumnas, kEmpresa, 20 + articulo % 12, articulo, Fecha::DeAmd(2024, 1, 1),
                      kSiempre, Centimos(500 + articulo % 90 * 10));
}

void Convenios(Escritor& escritor) {
    constexpr const char* kColumnas = "Cod_Empresa, Cod_Cliente, Cod_Articulo, Cod_ArticuloB, PUC, Pvp";
    escritor.Fila("Clientes_Convenio_Pvp", kColumnas, kEmpresa, 4, 108, 101, 0, Centimos(200));
    escritor.Fila("Clientes_Convenio_Pvp", kColumnas, kEmpresa, 4, 109, 101, Centimos(500), 0);
    // More off than the base article costs: the convention is ignored.
    escritor.Fila("Clientes_Convenio_Pvp", kColumnas, kEmpresa, 4, 110, 110, 0, Centimos(300));
    // The base article is not sold in tariff 1: ignored too.
    escritor.Fila("Clientes_Convenio_Pvp", kColumnas, kEmpresa, 4, 105, 121, Centimos(100), 0);
    // It counts more than the chain's base price; the chain's discounts follow.
    escritor.Fila("Clientes_Convenio_Pvp", kColumnas, kEmpresa, 20, 116, 115, 0, Centimos(15000));
}

void DescuentosGrupo(Escritor& escritor) {
    constexpr auto kGrupos = std::to_array<const char*>({"Instaladores", "Obra", "Hostelería"});
    for (std::size_t i = 0; i < kGrupos.size(); ++i)
        escritor.Fila("Clientes_Grp_Descuentos", "Cod_Empresa, Codigo, Descripcion, Act", kEmpresa,
                      static_cast<int>(i) + 1, kGrupos[i], 1);
    struct Fila {
        int grupo;
        int nivel;
        int f1;
        int f2;
        int f3;
        int articulo;
        int minimo;
        int maximo;
        int porcentaje;
    };
    constexpr auto kFilas = std::to_array<Fila>({
        {1, 4, 1, 1, 1, 111, 0, 0, 5},
        {1, 4, 1, 1, 1, 111, 1, 9, 7},
        {1, 4, 1, 1, 1, 111, 10, 99, 9},
        {1, 1, 1, 0, 0, 0, 0, 0, 2},
        {1, 2, 1, 2, 0, 0, 0, 0, 4},
        {1, 3, 1, 2, 2, 0, 5, 500, 6},
        {2, 1, 6, 0, 0, 0, 0, 0, 8},
        {2, 2, 2, 2, 0, 0, 10, 1000, 11},
        {3, 1, 4, 0, 0, 0, 0, 0, 10},
    });
    for (const Fila& f : kFilas)
        escritor.Fila("Clientes_Grp_Descuentos_Fam",
                      "Cod_Empresa, Cod_Grupo, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Unidades_Min,"
                      " Unidades_Max, Descuento",
                      kEmpresa, f.grupo, f.nivel, f.f1, f.f2, f.f3, f.articulo, f.minimo, f.maximo, f.porcentaje);
}

void DescuentosFamilia(Escritor& escritor) {
    constexpr const char* kColumnas =
        "Codigo, Cod_Empresa, Cod_Cliente, Nivel, Familia_1, Familia_2, Familia_3, Cod_Articulo, Descuento";
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 5, 1, 6, 0, 0, 0, 3);
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 5, 2, 6, 2, 0, 0, 6);
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 5, 3, 6, 2, 1, 0, 8);
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 5, 4, 6, 2, 3, 112, 12);
    // A customer with a group: its group has no discount on family 6, and counts more on family 1.
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 6, 1, 6, 0, 0, 0, 3);
    escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, 6, 1, 1, 0, 0, 0, 15);
    for (int cliente = 36; cliente <= 45; ++cliente)
        escritor.Fila("Descuentos_Familias", kColumnas, 0, kEmpresa, cliente, 1, 1 + cliente % 6, 0, 0, 0,
                      2 + cliente % 5);
}

// One discount of an agreement.
struct Dto {
    int tipo = 0;
    Currency importe;
    Currency cantidad;
    int cascada = 0;
};

Dto Porcentaje(int centesimas) {
    return {0, Centimos(centesimas), Currency(), 0};
}

Dto Cascada(int centesimas) {
    return {0, Centimos(centesimas), Currency(), 1};
}

Dto Importe(int centimos) {
    return {1, Centimos(centimos), Currency(), 0};
}

Dto Oferta(std::int64_t pagadas, std::int64_t gratis) {
    return {2, Currency::DeEntero(pagadas), Currency::DeEntero(gratis), 0};
}

void Acuerdo(Escritor& escritor, int articulo, std::array<int, 4> nodo, Fecha entrada, Fecha salida, Currency base,
             int dtoPadre, const Dto& uno = {}, const Dto& dos = {}) {
    int profundidad = 0;
    for (const int nivel : nodo) profundidad += nivel != 0 ? 1 : 0;
    escritor.Fila("Clientes_Cadenas_ConvArt",
                  "Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5, Cod_Nivel6,"
                  " Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada, FechaSalida, PBase, TDto1,"
                  " ImporteDto1, CantidadDto1, Aplicar_Cascada1, TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,"
                  " Dto_Padre, Nivel",
                  kEmpresa, articulo, nodo[0], nodo[1], nodo[2], nodo[3], 0, 0, 0, 0, 0, 0, entrada, salida, base,
                  uno.tipo, uno.importe, uno.cantidad, uno.cascada, dos.tipo, dos.importe, dos.cantidad, dos.cascada,
                  dtoPadre, profundidad);
}

void Acuerdos(Escritor& escritor) {
    const Fecha desde = Fecha::DeAmd(2024, 1, 1);
    const Dto sinUsar{};
    // Article 107: the base price is agreed two levels above the customer.
    Acuerdo(escritor, 107, {1, 1, 1, 1}, desde, kSiempre, Currency(), 1);
    Acuerdo(escritor, 107, {1, 1, 0, 0}, desde, kSiempre, Centimos(3120), 0, Porcentaje(300));
    // Article 113: every kind of discount on the way from the chain's head to the customer.
    Acuerdo(escritor, 113, {1, 0, 0, 0}, desde, kSiempre, Currency(), 0, Porcentaje(1000));
    Acuerdo(escritor, 113, {1, 1, 0, 0}, desde, kSiempre, Currency(), 1, Importe(150));
    Acuerdo(escritor, 113, {1, 1, 1, 0}, desde, kSiempre, Currency(), 1, Cascada(500), Porcentaje(200));
    Acuerdo(escritor, 113, {1, 1, 1, 1}, desde, kSiempre, Currency(), 1, Oferta(5, 1));
    // Article 116: an agreement with a last day wins over an open-ended one, and does not pass on to the chain's head.
    Acuerdo(escritor, 116, {2, 0, 0, 0}, desde, kSiempre, Centimos(27000), 0, Porcentaje(2000));
    Acuerdo(escritor, 116, {2, 1, 0, 0}, Fecha::DeAmd(2024, 6, 1), kSiempre, Centimos(26500), 1, sinUsar);
    Acuerdo(escritor, 116, {2, 1, 0, 0}, Fecha::DeAmd(2024, 1, 1), escritor.Hoy() + 60, Centimos(25500), 0,
            Importe(500));
    for (int articulo = 1010; articulo <= 1320; articulo += 31)
        Acuerdo(escritor, articulo, {1 + articulo % 2, 0, 0, 0}, desde, kSiempre, Currency(), 0, Porcentaje(250));
}

}  // namespace

void EscribirReglas(Escritor& escritor) {
    PreciosCliente(escritor);
    Convenios(escritor);
    DescuentosGrupo(escritor);
    DescuentosFamilia(escritor);
    Acuerdos(escritor);
}

}  // namespace kv::demo
