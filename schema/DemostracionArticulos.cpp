#include <array>
#include <string>

#include "kvdatosart/schema/DemostracionPartes.h"

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

// An article at a memorable code, which shows one way in which a price or a state is reached. Average cost and last
// purchase price are in ten-thousandths.
struct Muestra {
    int codigo;
    const char* descripcion;
    int familia1;
    int familia2;
    int familia3;
    int stock;
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
    {122, "Palé retornable", 6, 1, 3, 40, 90000, 92000, 0},
});

constexpr int kPrimerArticulo = 1001;
constexpr int kServicio = 120;
constexpr int kSinPrecioNiStock = 121;
constexpr int kEnvase = 122;
constexpr int kBloqueado = 114;

struct Ficha {
    int codigo;
    std::string descripcion;
    int familia1;
    int familia2;
    int familia3;
    Currency compra;
    int padreVenta = 0;
};

void Articulo(Escritor& escritor, const Ficha& f) {
    const bool herramienta = f.familia1 == 1 && f.familia2 == 2;
    const bool electrico = f.familia1 == 5;
    const bool pintura = f.familia1 == 6 && f.familia2 == 1;
    const bool porMetros = electrico && f.familia2 == 2 && f.familia3 == 2;
    const bool descatalogado = f.codigo % 101 == 10;
    escritor.Fila("Articulos",
                  "Cod_Empresa, Codigo, Descripcion, Familia_1, Familia_2, Familia_3, UxCaja, Largo, Ancho, Altura,"
                  " Control_NSeries, DStock, TipoImpuesto, CtaVentas, CtaDVentas, Bloqueado, MsjAlerta, Envase, RAEE,"
                  " ECORAEE, FidelizacionPuntos, Control_Caducidad, TipoRep, Control_Lotes, Peso, MotivoBaja,"
                  " BajoPedido, UnidadesDecimales, PadreVenta, Tipo, PU_Compra",
                  kEmpresa, f.codigo, f.descripcion, f.familia1, f.familia2, f.familia3, f.codigo % 4 == 0 ? 12 : 1,
                  10 + f.codigo % 30, 5 + f.codigo % 20, 2 + f.codigo % 15, herramienta, f.codigo != kServicio,
                  1 + f.codigo % 3, "70000000" + std::to_string(f.familia1), "70800000" + std::to_string(f.familia1),
                  descatalogado, descatalogado ? "Descatalogado: ofrecer el modelo nuevo" : "",
                  pintura && f.codigo != kEnvase ? kEnvase : 0, Centimos(electrico ? 15 : 0),
                  Centimos(electrico ? 5 : 0), f.codigo % 7, pintura, f.codigo % 3, pintura,
                  Currency::DeDiezmilesimas(2500 + f.codigo % 50 * 1000), descatalogado ? 3 : 0, f.codigo % 50 == 49,
                  porMetros, f.padreVenta, f.codigo == kServicio, f.compra);
}

struct Existencias {
    int stock;
    Currency medio;
    Currency ultimo;
    bool bloqueo = false;
};

void Almacen(Escritor& escritor, int empresa, int almacen, int codigo, const Existencias& e) {
    const Fecha compra = Fecha::DeAmd(2024, 1 + codigo % 6, 1 + codigo % 28);
    escritor.Fila("Almacen_Articulos",
                  "Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubicacion, Stock_Actual, Stock_Minimo, Stock_Optimo,"
                  " Pend_Recibir, Pend_Servir, Stock_MiniCompra, PU_Compra, P_Medio, FUlt_Compra, FIni_Existencias,"
                  " Bloqueo, BloqueoVenta, ArticuloGenerico, DF_PU_Compra, DF_P_Medio",
                  empresa, almacen, codigo, "A-" + std::to_string(codigo % 40 + 1), e.stock, 2, 20,
                  codigo % 11 == 0 ? 12 : 0, codigo % 13 == 0 ? 3 : 0, codigo % 41 == 0 ? 5 : 0, e.ultimo, e.medio,
                  compra, e.stock > 0 ? compra : Fecha::DeAmd(1900, 1, 1), e.bloqueo, codigo % 43 == 0,
                  codigo == kServicio, e.ultimo, e.medio);
}

void Muestrario(Escritor& escritor) {
    for (const Muestra& m : kMuestras) {
        const Existencias e{m.stock, Currency::DeDiezmilesimas(m.medio), Currency::DeDiezmilesimas(m.ultimo),
                            m.codigo == kBloqueado};
        Articulo(escritor, {m.codigo, m.descripcion, m.familia1, m.familia2, m.familia3, e.ultimo, m.padreVenta});
        Almacen(escritor, 1, 1, m.codigo, e);
        Almacen(escritor, 2, 1, m.codigo, e);
        // The second warehouse holds none of the locked article.
        if (e.bloqueo) Almacen(escritor, 1, 2, m.codigo, {0, e.medio, e.ultimo, true});
    }
    Articulo(escritor, {kSinPrecioNiStock, "Expositor de mostrador", 4, 2, 2, Centimos(1500)});
}

void ExistenciasGenerales(Escritor& escritor, int codigo, int centimos) {
    const Currency medio = Centimos(centimos * 58 / 100);
    const Currency ultimo = Centimos(centimos * 59 / 100);
    for (int almacen = 1; almacen <= 3; ++almacen) {
        if ((codigo + almacen) % 5 == 0) continue;
        const int stock = codigo % 17 == 0 ? 0 : (codigo * 7 + almacen * 13) % 60;
        Almacen(escritor, 1, almacen, codigo, {stock, medio, ultimo, codigo % 29 == 0});
    }
    if (codigo % 2 == 0) Almacen(escritor, 2, 1, codigo, {codigo % 40, medio, ultimo});
}

void CatalogoGeneral(Escritor& escritor) {
    int codigo = kPrimerArticulo;
    for (const Subfamilia& sub : kSubfamilias) {
        int tantoPorCiento = 100;
        for (const char* gama : kGamas) {
            const int centimos = sub.centimos * tantoPorCiento / 100;
            Articulo(escritor, {codigo, std::string(sub.articulo) + " " + gama, sub.familia1, sub.familia2,
                                sub.familia3, Centimos(centimos * 59 / 100)});
            EscribirTarifas(escritor, codigo, centimos);
            ExistenciasGenerales(escritor, codigo, centimos);
            tantoPorCiento += 14;
            ++codigo;
        }
    }
}

// Sizes on the first axis, colours (1 black, 2 brown) on the second. Size 44 is sold out, size 45 has no cost of its
// own.
void TallasEnAlmacen(Escritor& escritor) {
    for (int talla = 38; talla <= 46; ++talla)
        for (int color = 1; color <= 2; ++color)
            escritor.Fila("Almacen_Articulos_C",
                          "Cod_Empresa, Cod_Almacen, Cod_Articulo, CualidadX, CualidadY, Stock_Actual, PU_Compra,"
                          " P_Medio",
                          kEmpresa, 1, 103, talla, color, talla == 44 ? 0 : talla - 36, Centimos(3250),
                          Centimos(talla == 45 ? 0 : 3175));
}

}  // namespace

void EscribirArticulos(Escritor& escritor) {
    constexpr auto kAlmacenes = std::to_array<const char*>({"Central", "Tienda Norte", "Tienda Puerto"});
    for (std::size_t i = 0; i < kAlmacenes.size(); ++i)
        escritor.Fila("Almacenes", "Cod_Empresa, Codigo, Nombre", kEmpresa, static_cast<int>(i) + 1, kAlmacenes[i]);
    escritor.Fila("Almacenes", "Cod_Empresa, Codigo, Nombre", 2, 1, "Web");
    Muestrario(escritor);
    CatalogoGeneral(escritor);
    TallasEnAlmacen(escritor);
    escritor.Fila("Almacen_Articulos_Ubic",
                  "Cod_Empresa, Cod_Almacen, Cod_Articulo, Ubic1, Ubic2, Ubic3, Ubic4, Ubic5, Stock_Actual", kEmpresa,
                  1, 101, "P1", "E04", "", "", "", 24);
}

}  // namespace kv::demo
