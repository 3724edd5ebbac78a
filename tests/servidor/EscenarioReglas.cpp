#include "db/ValoresSql.h"
#include "rules/clsCliente_Articulo.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

using Precios = clsCliente_Articulo;

std::string Nombre(const char* que, int metodo, std::initializer_list<int> claves) {
    std::string nombre = TextoSql(std::string_view(que), " ", SqlEntero(metodo), ":");
    for (const int clave : claves) Agregar(nombre, " ", SqlEntero(clave));
    return nombre;
}

// Prices of a customer for an article never overlap here: of two on the same day, any database may return either.
Fecha Inicio(Fecha hoy, int periodo) {
    return hoy + (periodo * 30 - 30);
}

using Recorrido = bool (Precios::*)(std::unique_ptr<Recordset>&);
constexpr Recorrido kRecorridos[] = {&Precios::Cargar_Siguiente, &Precios::Cargar_Anterior, &Precios::Cargar_Primero,
                                     &Precios::Cargar_Ultimo};

void Recorrer(Precios& precios, Recorrido recorrido, Respuestas& r) {
    std::unique_ptr<Recordset> rs;
    r("hallado", (precios.*recorrido)(rs));
    r.Filas(*rs);
}

}  // namespace

void CompararPrecios(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    for (int i = 0; i < veces; ++i) {
        const int metodo = azar.Entre(0, 11);
        const std::int32_t articulo = azar.Entre(101, 112);
        const std::int32_t cliente = azar.Entre(21, 32);
        const std::int32_t otro = azar.Entre(21, 32);
        const int periodo = azar.Entre(0, 2);
        const bool porArticulo = azar.Una(2);
        const Fecha dia = azar.Dia(hoy, -40, 70);
        const Currency unidades = azar.Importe(-9, 60, 2);
        const Currency importe = azar.Importe(-50, 900, 4);
        const Currency coste = azar.Una(2) ? Currency() : azar.Importe(1, 500, 4);
        const auto x = static_cast<std::int16_t>(azar.Entre(38, 45));
        pareja.Probar(Nombre("precios", metodo, {articulo, cliente, otro, periodo}), [&](Lado& lado, Respuestas& r) {
            Precios p;
            lado.Inyectar(p);
            p.Cod_Empresa = p.Cod_EmpresaExtra = p.Cod_Almacen = 1;
            p.Cod_Articulo = articulo;
            p.Cod_Cliente = cliente;
            p.Fecha_Inicial = Inicio(hoy, periodo);
            p.Fecha_Final = Inicio(hoy, periodo + 1) + -1;
            p.precio = importe.ADouble();
            p.Por_Articulo(porArticulo);
            p.Key(porArticulo ? articulo : cliente);
            if (metodo <= 2) p.Insertar();
            if (metodo == 3) p.Eliminar(porArticulo ? cliente : articulo, p.Fecha_Inicial, p.Fecha_Final);
            if (metodo == 4) {
                p.Por_Articulo(true);
                p.Modificar(otro);
            }
            if (metodo == 5) {
                r("hay", p.Dev_Precio(dia));
                r("precio", p.precio);
            }
            if (metodo == 6) {
                std::unique_ptr<Recordset> rs;
                r("hay", p.Cargar(rs, porArticulo, porArticulo ? articulo : cliente, nullptr));
                r.Filas(*rs);
            }
            if (metodo == 7) Recorrer(p, kRecorridos[periodo], r);
            if (metodo == 8) Recorrer(p, kRecorridos[3], r);
            if (metodo == 9 || metodo == 10) p.Acumular(dia, unidades, importe, coste);
            if (metodo == 11) p.Acumular_C(dia, unidades, importe, coste, x, 1);
        });
    }
}

void CompararDescuentos(Pareja& pareja, Azar& azar, int veces) {
    struct Tramo {
        int minimo;
        int maximo;
    };
    for (int i = 0; i < veces; ++i) {
        const int metodo = azar.Entre(0, 13);
        const auto nivel = static_cast<std::uint8_t>(azar.Entre(1, 4));
        const auto familia = [&](int desde, int maximo) {
            return static_cast<std::int16_t>(nivel >= desde ? azar.Entre(1, maximo) : 0);
        };
        const std::array<std::int16_t, 3> f = {familia(1, 3), familia(2, 2), familia(3, 2)};
        const std::int32_t articulo = azar.Entre(101, 106);
        const std::int32_t cliente = azar.Entre(21, 26);
        // None begins where a range of the demonstration does: the row of the same key to come first would be any.
        const Tramo tramo = azar.De<Tramo>({{0, 0}, {2, 9}, {11, 99}, {101, 500}});
        const Currency unidades = azar.Importe(0, 600, azar.Entre(0, 2));
        const double descuento = azar.Importe(0, 60, 2).ADouble();
        const auto rellenar = [&](auto& dtos) {
            dtos.NumNiveles = 3;
            dtos.Nivel = nivel;
            dtos.Familia_1 = f[0];
            dtos.Familia_2 = f[1];
            dtos.Familia_3 = f[2];
            dtos.Cod_Articulo = articulo;
            dtos.Descuento = descuento;
        };
        const std::string nombre = Nombre("descuentos", metodo, {nivel, f[0], f[1], f[2], articulo, cliente});
        if (metodo < 7)
            pareja.Probar(nombre, [&](Lado& lado, Respuestas& r) {
                clsCliente_DtosFamilias dtos;
                rellenar(lado.Inyectar(dtos));
                dtos.Cliente = cliente;
                if (metodo <= 1) dtos.Insertar();
                if (metodo == 2) dtos.Modificar();
                if (metodo == 3) dtos.Eliminar();
                if (metodo == 4) r("exacto", dtos.Dev_Descuento());
                if (metodo == 5) r("activo", dtos.Dev_Descuento_Activo());
                if (metodo == 6) {
                    r.Filas(*dtos.Cargar_Todos());
                    r("artículos de la familia", !dtos.Cargar_Articulos(f[0], f[1], f[2])->Eof());
                }
            });
        else
            pareja.Probar(nombre, [&](Lado& lado, Respuestas& r) {
                clsCliente_Grp_Dtos dtos;
                rellenar(lado.Inyectar(dtos));
                dtos.Cod_Grupo = static_cast<std::int16_t>(1 + cliente % 3);
                dtos.Unidades_Min = Currency::DeEntero(tramo.minimo);
                dtos.Unidades_Max = Currency::DeEntero(tramo.maximo);
                Currency minimo;
                Currency maximo;
                if (metodo <= 8) dtos.Insertar();
                if (metodo == 9) dtos.Modificar();
                if (metodo == 10) dtos.Eliminar();
                if (metodo == 11) r("exacto", dtos.Dev_Descuento(unidades));
                if (metodo == 12) r("activo", dtos.Dev_Descuento_Activo(cliente, unidades));
                // Of several overlapping ranges the bounds of any may come back: only whether there is one counts.
                if (metodo == 13) r("se solapa", dtos.Comprobar_Encajados(minimo, maximo));
                if (metodo == 13) r.Filas(*dtos.Cargar_Todos());
            });
    }
}

}  // namespace kv::prueba
