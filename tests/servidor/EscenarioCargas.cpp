#include "component/clsDatosArt.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

void Anotar(Respuestas& r, const std::string& prefijo, const DatosArticulo& a) {
#define KV_PROPIEDAD(nombre, tipo) r(prefijo + #nombre, a.nombre);
#include "component/com/Propiedades.inc"
#undef KV_PROPIEDAD
}

// Boots and trousers are sold by size; some articles do not exist.
std::int32_t Articulo(Azar& azar) {
    if (azar.Una(8)) return azar.De({103, 1109, 1113});
    if (azar.Una(40)) return azar.De({0, -1, 5555});
    return azar.Una(3) ? azar.Entre(1001, 1324) : azar.Entre(101, 122);
}

std::uint8_t Talla(Azar& azar, std::int32_t articulo) {
    if (articulo >= 1109) return azar.Entre<std::uint8_t>(0, 6);
    return articulo == 103 || azar.Una(20) ? azar.Entre<std::uint8_t>(37, 47) : std::uint8_t{0};
}

}  // namespace

void CompararCargas(Pareja& pareja, Azar& azar, int veces) {
    // One object a side loads article after article, so that what a load leaves as it was is compared too.
    std::array<clsDatosArt, 2> articulos;
    for (int i = 0; i < veces; ++i) {
        pareja.Probar("Cargar", azar, [&](Lado& lado, Azar& suerte, Respuestas& r) {
            const auto corto = [&](int minimo, int maximo) { return suerte.Entre<std::int16_t>(minimo, maximo); };
            clsDatosArt& a = lado.Inyectar(articulos[lado.indice], corto(1, 2));
            const std::int32_t articulo = Articulo(suerte);
            const std::int32_t cliente = suerte.Una(40) ? 999 : suerte.Entre(1, 60);
            a.CualidadX = Talla(suerte, articulo);
            a.CualidadY = suerte.Entre<std::uint8_t>(0, 2);
            const Fecha fecha = suerte.Dia(-500, 130);
            const std::int16_t tarifa = corto(-1, 6);
            const std::int16_t almacen = corto(1, 4);
            const std::int16_t decimales = corto(0, 4);
            const Currency unidades =
                suerte.Una(2) ? suerte.Importe(0, 200, 4) : Currency::DeEntero(suerte.De({0, 1, 9, 10, 500}));
            r("resultado", a.Cargar(articulo, cliente, fecha, tarifa, almacen, decimales, unidades));
            Anotar(r, "", a);
            if (const auto padre = a.padre()) Anotar(r, "padre.", *padre);
        });
        // Most questions have an answer: a future day finds one where a change is in force on it.
        pareja.Probar("DevPvp", azar, [](Lado& lado, Azar& suerte, Respuestas& r) {
            clsDatosArt a;
            lado.Inyectar(a, suerte.Entre<std::int16_t>(1, 2));
            const bool futura = suerte.Una(3);
            const bool cualquiera = suerte.Una(6);
            a.Codigo = cualquiera ? Articulo(suerte)
                       : futura   ? suerte.De({102, 103, 1026, 1035, 1044})
                                  : suerte.Entre(1001, 1324);
            a.CualidadX = Talla(suerte, a.Codigo);
            const auto tarifa =
                cualquiera ? suerte.Entre<std::int16_t>(-1, 6) : suerte.De<std::int16_t>({1, 1, 2, 3, 5});
            const Fecha fecha = futura ? suerte.Dia(1, 130) : suerte.Dia(-500, 0);
            r("precio", a.DevPvp(tarifa, fecha, suerte.Una(3)));
            r("TarifaPVP", a.TarifaPVP);
        });
    }
}

}  // namespace kv::prueba
