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

struct Encargo {
    int metodo;
    std::int32_t articulo;
    std::int32_t cliente;
    std::int32_t otro;
    int periodo;
    bool porArticulo;
    Fecha dia;
    Currency unidades;
    Currency importe;
    Currency coste;
    std::int16_t x;
};

void Hacer(Precios& p, const Encargo& e, Fecha hoy, Respuestas& r) {
    const std::int32_t codigo = e.porArticulo ? e.articulo : e.cliente;
    p.Cod_Empresa = p.Cod_EmpresaExtra = p.Cod_Almacen = 1;
    p.Cod_Articulo = e.articulo;
    p.Cod_Cliente = e.cliente;
    p.Fecha_Inicial = Inicio(hoy, e.periodo);
    p.Fecha_Final = Inicio(hoy, e.periodo + 1) + -1;
    p.precio = e.importe.ADouble();
    p.Por_Articulo(e.porArticulo || e.metodo == 4);
    p.Key(codigo);
    if (e.metodo <= 2) p.Insertar();
    if (e.metodo == 3) p.Eliminar(e.porArticulo ? e.cliente : e.articulo, p.Fecha_Inicial, p.Fecha_Final);
    if (e.metodo == 4) p.Modificar(e.otro);
    if (e.metodo == 5) r("hay", p.Dev_Precio(e.dia));
    if (e.metodo == 5) r("precio", p.precio);
    if (e.metodo == 6) {
        std::unique_ptr<Recordset> rs;
        r("hay", p.Cargar(rs, e.porArticulo, codigo, nullptr));
        r.Filas(*rs);
    }
    if (e.metodo == 7) Recorrer(p, kRecorridos[e.periodo], r);
    if (e.metodo == 8) Recorrer(p, kRecorridos[3], r);
    if (e.metodo == 9 || e.metodo == 10) p.Acumular(e.dia, e.unidades, e.importe, e.coste);
    if (e.metodo == 11) p.Acumular_C(e.dia, e.unidades, e.importe, e.coste, e.x, 1);
}

struct Descuento {
    int metodo;
    std::uint8_t nivel;
    std::array<std::int16_t, 3> familias;
    std::int32_t articulo;
    std::int32_t cliente;
    std::array<int, 2> tramo;
    Currency unidades;
    double porcentaje;
};

Descuento UnDescuento(Azar& azar) {
    const int nivel = azar.Entre(1, 4);
    const auto familia = [&](int desde, int maximo) {
        return static_cast<std::int16_t>(nivel >= desde ? azar.Entre(1, maximo) : 0);
    };
    // No range begins where one of the demonstration does: which row of the same key comes first would be anyone's.
    return {azar.Entre(0, 13),
            static_cast<std::uint8_t>(nivel),
            {familia(1, 3), familia(2, 2), familia(3, 2)},
            azar.Entre(101, 106),
            azar.Entre(21, 26),
            azar.De<std::array<int, 2>>({{0, 0}, {2, 9}, {11, 99}, {101, 500}}),
            azar.Importe(0, 600, azar.Entre(0, 2)),
            azar.Importe(0, 60, 2).ADouble()};
}

template <class Clase>
void Rellenar(Clase& dtos, const Descuento& d) {
    dtos.NumNiveles = 3;
    dtos.Nivel = d.nivel;
    dtos.Familia_1 = d.familias[0];
    dtos.Familia_2 = d.familias[1];
    dtos.Familia_3 = d.familias[2];
    dtos.Cod_Articulo = d.articulo;
    dtos.Descuento = d.porcentaje;
}

void Hacer(clsCliente_DtosFamilias& dtos, const Descuento& d, Respuestas& r) {
    Rellenar(dtos, d);
    dtos.Cliente = d.cliente;
    if (d.metodo <= 1) dtos.Insertar();
    if (d.metodo == 2) dtos.Modificar();
    if (d.metodo == 3) dtos.Eliminar();
    if (d.metodo == 4) r("exacto", dtos.Dev_Descuento());
    if (d.metodo == 5) r("activo", dtos.Dev_Descuento_Activo());
    if (d.metodo != 6) return;
    r.Filas(*dtos.Cargar_Todos());
    r("artículos de la familia", !dtos.Cargar_Articulos(d.familias[0], d.familias[1], d.familias[2])->Eof());
}

void Hacer(clsCliente_Grp_Dtos& dtos, const Descuento& d, Respuestas& r) {
    Rellenar(dtos, d);
    dtos.Cod_Grupo = static_cast<std::int16_t>(1 + d.cliente % 3);
    dtos.Unidades_Min = Currency::DeEntero(d.tramo[0]);
    dtos.Unidades_Max = Currency::DeEntero(d.tramo[1]);
    if (d.metodo <= 8) dtos.Insertar();
    if (d.metodo == 9) dtos.Modificar();
    if (d.metodo == 10) dtos.Eliminar();
    if (d.metodo == 11) r("exacto", dtos.Dev_Descuento(d.unidades));
    if (d.metodo == 12) r("activo", dtos.Dev_Descuento_Activo(d.cliente, d.unidades));
    if (d.metodo != 13) return;
    // Of several overlapping ranges the bounds of any may come back: only whether there is one counts.
    Currency minimo;
    Currency maximo;
    r("se solapa", dtos.Comprobar_Encajados(minimo, maximo));
    r.Filas(*dtos.Cargar_Todos());
}

}  // namespace

void CompararPrecios(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    for (int i = 0; i < veces; ++i) {
        const Encargo e{azar.Entre(0, 11),
                        azar.Entre(101, 112),
                        azar.Entre(21, 32),
                        azar.Entre(21, 32),
                        azar.Entre(0, 2),
                        azar.Una(2),
                        azar.Dia(hoy, -40, 70),
                        azar.Importe(-9, 60, 2),
                        azar.Importe(-50, 900, 4),
                        azar.Una(2) ? Currency() : azar.Importe(1, 500, 4),
                        static_cast<std::int16_t>(azar.Entre(38, 45))};
        pareja.Probar(Nombre("precios", e.metodo, {e.articulo, e.cliente, e.otro, e.periodo}),
                      [&](Lado& lado, Respuestas& r) {
                          Precios p;
                          Hacer(lado.Inyectar(p), e, hoy, r);
                      });
    }
}

void CompararDescuentos(Pareja& pareja, Azar& azar, int veces) {
    for (int i = 0; i < veces; ++i) {
        const Descuento d = UnDescuento(azar);
        const auto& f = d.familias;
        pareja.Probar(Nombre("descuentos", d.metodo, {d.nivel, f[0], f[1], f[2], d.articulo, d.cliente}),
                      [&](Lado& lado, Respuestas& r) {
                          clsCliente_DtosFamilias familia;
                          clsCliente_Grp_Dtos grupo;
                          if (d.metodo < 7)
                              Hacer(lado.Inyectar(familia), d, r);
                          else
                              Hacer(lado.Inyectar(grupo), d, r);
                      });
    }
}

}  // namespace kv::prueba
