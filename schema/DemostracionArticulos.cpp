#include <array>
#include <string>

#include "schema/DemostracionPartes.h"

namespace kv::demo {
namespace {

struct Subfamilia {
    int familia1;
    int familia2;
    int familia3;
    const char* articulo;
    int centimos;
};

constexpr auto kSubfamilias = std::to_array<Subfamilia>({
    {1, 1, 1, "Martillo de bola", 895},
    {1, 1, 2, "Alicate universal", 1150},
    {1, 1, 3, "Destornillador plano", 420},
    {1, 2, 1, "Taladro percutor", 6490},
    {1, 2, 2, "Amoladora angular", 5890},
    {1, 2, 3, "Sierra de calar", 7250},
    {2, 1, 1, "Manguera trenzada 15 m", 1890},
    {2, 1, 2, "Aspersor circular", 1290},
    {2, 1, 3, "Programador de riego", 3450},
    {2, 2, 1, "Tijera de podar", 1490},
    {2, 2, 2, "Rastrillo de jardín", 1370},
    {2, 2, 3, "Carretilla de obra", 4590},
    {3, 1, 1, "Pantalón multibolsillos", 2590},
    {3, 1, 2, "Chaqueta de trabajo", 3890},
    {3, 1, 3, "Camiseta técnica", 990},
    {3, 2, 1, "Zapato de seguridad", 4290},
    {3, 2, 2, "Guante de nitrilo", 380},
    {3, 2, 3, "Casco de obra", 1190},
    {4, 1, 1, "Sartén antiadherente", 1990},
    {4, 1, 2, "Olla a presión", 5490},
    {4, 1, 3, "Cuchillo cebollero", 1690},
    {4, 2, 1, "Caja organizadora", 790},
    {4, 2, 2, "Perchero de pared", 1250},
    {4, 2, 3, "Escalera plegable", 4990},
    {5, 1, 1, "Bombilla LED E27", 350},
    {5, 1, 2, "Tubo LED 120 cm", 890},
    {5, 1, 3, "Foco proyector", 2190},
    {5, 2, 1, "Base múltiple", 1090},
    {5, 2, 2, "Cable manguera 25 m", 2790},
    {5, 2, 3, "Interruptor simple", 460},
    {6, 1, 1, "Pintura plástica 15 l", 3990},
    {6, 1, 2, "Esmalte al agua", 1590},
    {6, 1, 3, "Imprimación selladora", 2090},
    {6, 2, 1, "Rodillo antigota", 690},
    {6, 2, 2, "Brocha plana", 390},
    {6, 2, 3, "Cinta de carrocero", 240},
});

constexpr auto kGamas = std::to_array<const char*>({"económico", "básico", "estándar", "reforzado", "compacto",
                                                    "profesional", "industrial", "larga duración", "edición taller"});

// Articles at memorable codes, each of which shows one way in which a price or a state is reached.
struct Muestra {
    int codigo;
    const char* descripcion;
    int familia1;
    int familia2;
    int familia3;
    int stock;
    /// Average cost and last purchase price, in ten-thousandths.
    int medio;
    int ultimo;
    int padreVenta;
};

constexpr auto kMuestras = std::to_array<Muestra>({
    {101, "Taladro percutor 750 W con maletín", 1, 2, 1, 24, 523456, 510000, 0},
    {102, "Juego de llaves Allen 9 piezas", 1, 1, 3, 60, 121000, 125000, 0},
    {103, "Bota de seguridad S3", 3, 2, 1, 48, 312500, 320000, 0},
    {104, "Broca para hormigón 8 mm", 1, 2, 1, 200, 28000, 29000, 0},
    {105, "Cinta métrica 5 m", 1, 1, 2, 75, 56000, 57000, 0},
    {106, "Disco de corte 115 mm", 1, 2, 2, 400, 7500, 8000, 0},
    {107, "Saco de cemento cola 25 kg", 6, 1, 3, 90, 184000, 187000, 0},
    {108, "Taladro percutor 750 W sin maletín", 1, 2, 1, 12, 483000, 490000, 0},
    {109, "Taladro percutor 900 W", 1, 2, 1, 8, 544000, 550000, 0},
    {110, "Punta de recambio PH2", 1, 1, 3, 500, 3000, 3200, 0},
    {111, "Tornillo rosca madera 4x40 (caja)", 1, 1, 1, 320, 21500, 22000, 0},
    {112, "Silicona neutra transparente", 6, 2, 3, 140, 26000, 26500, 0},
    {113, "Detergente industrial 10 l", 4, 2, 1, 65, 142000, 145000, 0},
    {114, "Compresor 50 l", 1, 2, 3, 5, 1185000, 1190000, 0},
    {115, "Generador 2 kW", 5, 2, 2, 0, 2490000, 2510000, 0},
    {116, "Hormigonera eléctrica 130 l", 2, 2, 3, 3, 1720000, 1750000, 0},
    {117, "Regleta de conexión 12 polos", 5, 2, 3, 260, 6500, 7000, 0},
    {118, "Linterna frontal (unidad)", 5, 1, 3, 36, 45000, 46000, 119},
    {119, "Linterna frontal (caja de 12)", 5, 1, 3, 4, 528000, 540000, 0},
    {120, "Porte y montaje", 4, 2, 2, 0, 0, 0, 0},
});

constexpr int kPrimerArticulo = 1001;
constexpr int kArticuloSinStock = 120;

void Articulo(Escritor& escritor, int codigo, const std::string& descripcion, int f1, int f2, int f3, Currency compra,
              int padreVenta) {
    escritor.Fila("Articulos",
                  "Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3, UxCaja, Largo, Ancho, Altura,"
                  " DStock, TipoImpuesto, CtaVentas, CtaDVentas, RAEE, FidelizacionPuntos, Peso, PadreVenta, Tipo,"
                  " PU_Compra",
                  kEmpresa, codigo, descripcion, f1, f2, f3, codigo % 4 == 0 ? 12 : 1, 10 + codigo % 30,
                  5 + codigo % 20, 2 + codigo % 15, codigo == kArticuloSinStock ? 0 : 1, 1 + codigo % 3,
                  "70000000" + std::to_string(f1), "70800000" + std::to_string(f1), Centimos(f1 == 5 ? 15 : 0),
                  codigo % 7, Currency::DeDiezmilesimas(2500 + codigo % 50 * 1000), padreVenta,
                  codigo == kArticuloSinStock ? 1 : 0, compra);
}

void Almacen(Escritor& escritor, int empresa, int almacen, int codigo, int stock, Currency medio, Currency ultimo,
             int bloqueo) {
    escritor.Fila("Almacen_Articulos",
                  "Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubicacion, Stock_Actual, Stock_Minimo, Stock_Optimo,"
                  " Pend_Recibir, Pend_Servir, PU_Compra, P_Medio, FUlt_Compra, FIni_Existencias, Bloqueo,"
                  " DF_PU_Compra, DF_P_Medio",
                  empresa, almacen, codigo, "A-" + std::to_string(codigo % 40 + 1), stock, 2, 20,
                  codigo % 11 == 0 ? 12 : 0, codigo % 13 == 0 ? 3 : 0, ultimo, medio,
                  Fecha::DeAmd(2026, 1 + codigo % 6, 1 + codigo % 28),
                  stock > 0 ? Fecha::DeAmd(2026, 1 + codigo % 6, 1 + codigo % 28) : Fecha::DeAmd(1900, 1, 1), bloqueo,
                  ultimo, medio);
}

void Tarifa(Escritor& escritor, int codigo, int tarifa, Currency pvp) {
    escritor.Fila("Articulos_Tarifas", "Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp", kEmpresa, codigo, tarifa, pvp);
}

// From the retail price: wholesale, professional and web prices; the promotion tariff only holds every tenth article.
void TarifasUsuales(Escritor& escritor, int codigo, int centimos) {
    Tarifa(escritor, codigo, 1, Centimos(centimos));
    Tarifa(escritor, codigo, 2, Centimos(centimos * 80 / 100));
    Tarifa(escritor, codigo, 3, Centimos(centimos * 88 / 100));
    if (codigo % 10 == 0) Tarifa(escritor, codigo, 4, Centimos(centimos * 75 / 100));
    Tarifa(escritor, codigo, 5, Centimos(centimos * 97 / 100));
}

void CatalogoGeneral(Escritor& escritor) {
    int codigo = kPrimerArticulo;
    for (const Subfamilia& sub : kSubfamilias) {
        for (std::size_t gama = 0; gama < kGamas.size(); ++gama, ++codigo) {
            const int centimos = sub.centimos * (100 + 14 * static_cast<int>(gama)) / 100;
            const Currency coste = Centimos(centimos * 58 / 100);
            const Currency ultimo = Centimos(centimos * 59 / 100);
            Articulo(escritor, codigo, std::string(sub.articulo) + " " + kGamas[gama], sub.familia1, sub.familia2,
                     sub.familia3, ultimo, 0);
            TarifasUsuales(escritor, codigo, centimos);
            for (int almacen = 1; almacen <= 3; ++almacen) {
                const int stock = (codigo * 7 + almacen * 13) % 60;
                if ((codigo + almacen) % 5 != 0)
                    Almacen(escritor, 1, almacen, codigo, codigo % 17 == 0 ? 0 : stock, coste, ultimo,
                            codigo % 29 == 0 ? 1 : 0);
            }
            if (codigo % 2 == 0) Almacen(escritor, 2, 1, codigo, codigo % 40, coste, ultimo, 0);
        }
    }
}

void Muestrario(Escritor& escritor) {
    for (const Muestra& m : kMuestras) {
        const Currency medio = Currency::DeDiezmilesimas(m.medio);
        const Currency ultimo = Currency::DeDiezmilesimas(m.ultimo);
        Articulo(escritor, m.codigo, m.descripcion, m.familia1, m.familia2, m.familia3, ultimo, m.padreVenta);
        const int bloqueo = m.codigo == 114 ? 1 : 0;
        Almacen(escritor, 1, 1, m.codigo, m.stock, medio, ultimo, bloqueo);
        Almacen(escritor, 2, 1, m.codigo, m.stock, medio, ultimo, bloqueo);
    }
    struct Precio {
        int codigo;
        int tarifa;
        int centimos;
    };
    constexpr auto kPrecios = std::to_array<Precio>({
        {101, 1, 8995}, {101, 2, 7196}, {101, 5, 8725},  {102, 1, 2450},  {102, 2, 1960},  {103, 1, 5900},
        {103, 2, 4720}, {104, 1, 995},  {104, 4, 795},   {105, 1, 1240},  {106, 1, 195},   {106, 2, 156},
        {107, 1, 3490}, {107, 2, 3290}, {108, 1, 8450},  {109, 1, 9990},  {110, 1, 120},   {111, 1, 595},
        {112, 1, 485},  {113, 1, 2400}, {114, 1, 18900}, {115, 1, 39900}, {116, 1, 28900}, {117, 5, 0},
        {117, 2, 1800}, {117, 1, 2050}, {118, 1, 890},   {119, 1, 9600},  {120, 1, 4500},
    });
    for (const Precio& p : kPrecios) Tarifa(escritor, p.codigo, p.tarifa, Centimos(p.centimos));
}

// Sizes on the first axis, colours (1 black, 2 brown) on the second. Size 46 is only sold in tariff 3.
void Variantes(Escritor& escritor) {
    for (int talla = 38; talla <= 46; ++talla) {
        const int tarifa = talla == 46 ? 3 : 1;
        const int centimos = talla == 46 ? 6600 : 5900 + (talla >= 42 ? 500 : 0);
        escritor.Fila("Articulos_Tarifas_C", "Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp", kEmpresa, 103,
                      talla, tarifa, Centimos(centimos));
        for (int color = 1; color <= 2; ++color)
            escritor.Fila("Almacen_Articulos_C",
                          "Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, Stock_Actual, PU_Compra,"
                          " P_Medio",
                          kEmpresa, 1, 103, talla, color, talla == 44 ? 0 : talla - 36, Centimos(3250),
                          Centimos(talla == 45 ? 0 : 3175));
    }
    for (int articulo = 1109; articulo <= 1117; ++articulo)
        for (int talla = 1; talla <= 5; ++talla)
            escritor.Fila("Articulos_Tarifas_C", "Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp", kEmpresa,
                          articulo, talla, 1, Centimos(2590 + talla * 100));
}

void CambiosProgramados(Escritor& escritor) {
    struct Cambio {
        int articulo;
        int dias;
        int centimos;
        int actualizado;
        int borrado;
    };
    // Two changes on the same day: the last one recorded counts. One was withdrawn, another one takes no part.
    constexpr auto kCambios = std::to_array<Cambio>({
        {102, -90, 2450, 1, 0},
        {102, 30, 2690, 1, 0},
        {102, 60, 2790, 1, 0},
        {102, 60, 2750, 1, 0},
        {102, 90, 1990, 1, 1},
        {102, 90, 2090, 0, 0},
        {101, 45, 9295, 1, 0},
        {105, 15, 1290, 1, 0},
    });
    int codigo = 1;
    for (const Cambio& c : kCambios)
        escritor.Fila("Tarifas_Modificacion",
                      "Codigo, Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado",
                      codigo++, kEmpresa, c.articulo, 1, Centimos(c.centimos), escritor.Hoy() + c.dias, c.actualizado,
                      c.borrado);
    for (int articulo = 1001; articulo <= 1180; articulo += 9)
        escritor.Fila("Tarifas_Modificacion",
                      "Codigo, Cod_Empresa, Cod_Articulo, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado",
                      codigo++, kEmpresa, articulo, 1, Centimos(999 + articulo), escritor.Hoy() + (articulo % 60 - 20),
                      1, 0);
    escritor.Fila("Tarifas_Modificacion_C",
                  "Codigo, Cod_Empresa, Cod_Articulo, CualidadX, Cod_Tarifa, Pvp, Fecha_Entrada, Actualizado, Borrado",
                  1, kEmpresa, 103, 42, 1, Centimos(6790), escritor.Hoy() + 30, 1, 0);
}

}  // namespace

void EscribirArticulos(Escritor& escritor) {
    constexpr auto kTarifas =
        std::to_array<const char*>({"Venta al público", "Mayorista", "Profesional", "Promoción", "Web"});
    for (std::size_t i = 0; i < kTarifas.size(); ++i)
        escritor.Fila("Tarifas", "Cod_Empresa, Codigo, Descripcion", kEmpresa, static_cast<int>(i) + 1, kTarifas[i]);
    constexpr auto kAlmacenes = std::to_array<const char*>({"Central", "Tienda Norte", "Tienda Puerto"});
    for (std::size_t i = 0; i < kAlmacenes.size(); ++i)
        escritor.Fila("Almacenes", "Cod_Empresa, Codigo, Nombre", kEmpresa, static_cast<int>(i) + 1, kAlmacenes[i]);
    escritor.Fila("Almacenes", "Cod_Empresa, Codigo, Nombre", 2, 1, "Web");
    Muestrario(escritor);
    CatalogoGeneral(escritor);
    Variantes(escritor);
    CambiosProgramados(escritor);
    escritor.Fila("Almacen_Articulos_Ubic",
                  "Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5, Stock_Actual", kEmpresa,
                  1, 101, "P1", "E04", "", "", "", 24);
}

}  // namespace kv::demo
