#include "component/clsDatosArt.h"
#include "db/ValoresSql.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

using D = DatosArticulo;
constexpr auto kDatos = std::to_array<Columna<DatosArticulo>>({
    {"Codigo", &D::Codigo},
    {"Familia_1", &D::Familia_1},
    {"Familia_2", &D::Familia_2},
    {"Familia_3", &D::Familia_3},
    {"Descripcion", &D::Descripcion},
    {"UxB", &D::UxB},
    {"PvpBase", &D::PvpBase},
    {"Convenio", &D::Convenio},
    {"Pvp", &D::Pvp},
    {"PvpOriginal", &D::PvpOriginal},
    {"PDescuento", &D::PDescuento},
    {"Impuesto", &D::Impuesto},
    {"Tipo", &D::Tipo},
    {"CtaVentas", &D::CtaVentas},
    {"CtaDVentas", &D::CtaDVentas},
    {"PCosto", &D::PCosto},
    {"RAEE", &D::RAEE},
    {"ECORAEE", &D::ECORAEE},
    {"FidelizacionPuntos", &D::FidelizacionPuntos},
    {"DStock", &D::DStock},
    {"Control_Series", &D::Control_Series},
    {"Cod_Envase", &D::Cod_Envase},
    {"Stock", &D::Stock},
    {"Bloqueado", &D::Bloqueado},
    {"Control_Caducidad", &D::Control_Caducidad},
    {"Control_Lotes", &D::Control_Lotes},
    {"TipoRep", &D::TipoRep},
    {"Largo", &D::Largo},
    {"Ancho", &D::Ancho},
    {"Altura", &D::Altura},
    {"BloqueadoVenta", &D::BloqueadoVenta},
    {"BloqueadoGral", &D::BloqueadoGral},
    {"MsjAlerta", &D::MsjAlerta},
    {"MotivoBaja", &D::MotivoBaja},
    {"BajoPedido", &D::BajoPedido},
    {"TarifaPVP", &D::TarifaPVP},
    {"PendienteServir", &D::PendienteServir},
    {"PendienteRecibir", &D::PendienteRecibir},
    {"Impuesto2", &D::Impuesto2},
    {"UnidadesDecimales", &D::UnidadesDecimales},
    {"Peso", &D::Peso},
});

struct Linea {
    std::int16_t empresa;
    std::int32_t articulo;
    std::int32_t cliente;
    Fecha fecha;
    std::int16_t tarifa;
    std::int16_t almacen;
    std::int16_t decimales;
    Currency unidades;
    std::uint8_t x = 0;
    std::uint8_t y = 0;
    bool forzar = false;

    std::string Nombre(const char* metodo) const {
        return TextoSql(std::string_view(metodo), "(", SqlEntero(articulo), ", ", SqlEntero(cliente), ", ",
                        SqlFecha(fecha), ", ", SqlEntero(tarifa), ", ", SqlEntero(almacen), ", ", SqlEntero(decimales),
                        ", ", SqlCurrencyConPunto(unidades), ") empresa ", SqlEntero(empresa), " variante ",
                        SqlEntero(x), "-", SqlEntero(y), std::string_view(forzar ? " forzado" : ""));
    }
};

Linea UnaLinea(Azar& azar, Fecha hoy) {
    const auto corto = [&](int minimo, int maximo) { return static_cast<std::int16_t>(azar.Entre(minimo, maximo)); };
    Linea l{corto(1, 2),
            azar.Una(3) ? azar.Entre(1001, 1324) : azar.Entre(101, 122),
            azar.Entre(1, 60),
            azar.Dia(hoy, -500, 130),
            corto(-1, 6),
            corto(1, 4),
            corto(0, 4),
            azar.Una(2) ? azar.Importe(0, 200, 4)
                        : azar.De<Currency>({Currency(), Currency::DeEntero(1), Currency::DeEntero(9),
                                             Currency::DeEntero(10), Currency::DeEntero(500)})};
    if (azar.Una(40)) l.articulo = azar.De({0, -1, 5555});
    if (azar.Una(40)) l.cliente = 999;
    // Boots and trousers are sold by size.
    if (azar.Una(8)) l.articulo = azar.De({103, 1109, 1113});
    if (l.articulo == 103 || azar.Una(20)) l.x = static_cast<std::uint8_t>(azar.Entre(37, 47));
    if (l.articulo >= 1109) l.x = static_cast<std::uint8_t>(azar.Entre(0, 6));
    l.y = static_cast<std::uint8_t>(azar.Entre(0, 2));
    l.forzar = azar.Una(3);
    return l;
}

}  // namespace

void CompararCargas(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    // One object a side loads article after article, so that what a load leaves as it was is compared too.
    std::array<clsDatosArt, 2> articulos;
    for (int i = 0; i < veces; ++i) {
        const Linea l = UnaLinea(azar, hoy);
        pareja.Probar(l.Nombre("Cargar"), [&](Lado& lado, Respuestas& r) {
            clsDatosArt& a = lado.Inyectar(articulos[lado.indice], l.empresa);
            a.CualidadX = l.x;
            a.CualidadY = l.y;
            r("resultado", a.Cargar(l.articulo, l.cliente, l.fecha, l.tarifa, l.almacen, l.decimales, l.unidades));
            r.Miembros("", static_cast<const DatosArticulo&>(a), kDatos);
            if (const auto padre = a.padre()) r.Miembros("padre.", static_cast<const DatosArticulo&>(*padre), kDatos);
        });
        pareja.Probar(l.Nombre("DevPvp"), [&](Lado& lado, Respuestas& r) {
            clsDatosArt a;
            lado.Inyectar(a, l.empresa);
            a.Codigo = l.articulo;
            a.CualidadX = l.x;
            r("precio", a.DevPvp(l.tarifa, l.fecha, l.forzar));
            r("TarifaPVP", a.TarifaPVP);
        });
    }
}

}  // namespace kv::prueba
