#include "db/ValoresSql.h"
#include "rules/clsCliente_Articulo.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

using Precios = clsCliente_Articulo;
using Recorrido = bool (Precios::*)(std::unique_ptr<Recordset>&);

// Prices of a customer for an article never overlap here: of two on the same day, any database may return either.
void Preciar(Lado& lado, Azar& azar, Respuestas& r) {
    Precios p;
    lado.Inyectar(p);
    const int metodo = azar.Entre(0, 11);
    const int periodo = azar.Entre(0, 2);
    const bool porArticulo = azar.Una(2);
    p.Cod_Empresa = p.Cod_EmpresaExtra = p.Cod_Almacen = 1;
    p.Cod_Articulo = azar.Entre(101, 112);
    p.Cod_Cliente = azar.Entre(21, 32);
    p.Fecha_Inicial = azar.hoy + (periodo * 30 - 30);
    p.Fecha_Final = p.Fecha_Inicial + 29;
    const std::int32_t codigo = porArticulo ? p.Cod_Articulo : p.Cod_Cliente;
    const Fecha dia = azar.Una(2) ? p.Fecha_Final : azar.Dia(-40, 70);
    const Currency unidades = azar.Importe(-9, 60, 2);
    const Currency importe = azar.Importe(-50, 900, 4);
    const Currency coste = azar.Una(2) ? Currency() : azar.Importe(1, 500, 4);
    p.precio = importe.ADouble();
    p.Por_Articulo(porArticulo || metodo == 4);
    p.Key(codigo);
    if (metodo <= 2) p.Insertar();
    if (metodo == 3) p.Eliminar(porArticulo ? p.Cod_Cliente : p.Cod_Articulo, p.Fecha_Inicial, p.Fecha_Final);
    if (metodo == 4) p.Modificar(azar.Entre(21, 32));
    if (metodo == 5) r("hay", p.Dev_Precio(dia));
    if (metodo == 5) r("precio", p.precio);
    std::unique_ptr<Recordset> rs;
    if (metodo == 6) r("hay", p.Cargar(rs, porArticulo, codigo, nullptr));
    constexpr Recorrido kRecorridos[] = {&Precios::Cargar_Siguiente, &Precios::Cargar_Anterior,
                                         &Precios::Cargar_Primero, &Precios::Cargar_Ultimo};
    if (metodo == 7 || metodo == 8) r("hallado", (p.*kRecorridos[azar.Entre(0, 3)])(rs));
    if (rs) r.Filas(*rs);
    if (metodo == 9 || metodo == 10) p.Acumular(p.Fecha_Inicial, unidades, importe, coste);
    if (metodo == 11) p.Acumular_C(p.Fecha_Inicial, unidades, importe, coste, azar.Entre<std::int16_t>(38, 45), 1);
}

template <class Clase>
void Rellenar(Clase& dtos, Azar& azar) {
    const auto familia = [&](int desde, int maximo) {
        return dtos.Nivel >= desde ? azar.Entre<std::int16_t>(1, maximo) : std::int16_t{0};
    };
    dtos.NumNiveles = 3;
    dtos.Nivel = azar.Entre<std::uint8_t>(1, 4);
    dtos.Familia_1 = familia(1, 3);
    dtos.Familia_2 = familia(2, 2);
    dtos.Familia_3 = familia(3, 2);
    dtos.Cod_Articulo = azar.Entre(101, 106);
    dtos.Descuento = azar.Importe(0, 60, 2).ADouble();
}

void DeFamilia(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 6);
    clsCliente_DtosFamilias dtos;
    Rellenar(lado.Inyectar(dtos), azar);
    dtos.Cliente = azar.Entre(21, 26);
    if (metodo <= 1) dtos.Insertar();
    if (metodo == 2) dtos.Modificar();
    if (metodo == 3) dtos.Eliminar();
    if (metodo == 4) r("exacto", dtos.Dev_Descuento());
    if (metodo == 5) r("activo", dtos.Dev_Descuento_Activo());
    if (metodo != 6) return;
    r.Filas(*dtos.Cargar_Todos());
    r("artículos", !dtos.Cargar_Articulos(dtos.Familia_1, dtos.Familia_2, dtos.Familia_3)->Eof());
}

void DeGrupo(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 6);
    clsCliente_Grp_Dtos dtos;
    Rellenar(lado.Inyectar(dtos), azar);
    dtos.Cod_Grupo = azar.Entre<std::int16_t>(1, 3);
    // No range begins where one of the demonstration does: which row of the same key comes first would be anyone's.
    const int minimo = azar.De({0, 2, 11, 101});
    dtos.Unidades_Min = Currency::DeEntero(minimo);
    dtos.Unidades_Max = Currency::DeEntero(minimo == 0 ? 0 : minimo == 2 ? 9 : minimo == 11 ? 99 : 500);
    const Currency unidades = azar.Importe(0, 600, azar.Entre(0, 2));
    if (metodo <= 1) dtos.Insertar();
    if (metodo == 2) dtos.Modificar();
    if (metodo == 3) dtos.Eliminar();
    if (metodo == 4) r("exacto", dtos.Dev_Descuento(unidades));
    if (metodo == 5) r("activo", dtos.Dev_Descuento_Activo(azar.Entre(21, 26), unidades));
    if (metodo != 6) return;
    // Of several overlapping ranges the bounds of any may come back: only whether there is one counts.
    Currency desde;
    Currency hasta;
    r("se solapa", dtos.Comprobar_Encajados(desde, hasta));
    r.Filas(*dtos.Cargar_Todos());
}

using Nodo = std::array<std::int16_t, 4>;
constexpr Nodo kNodos[] = {{}, {1}, {1, 1}, {1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 2}, {2}, {2, 1}};

void Rellenar(clsClientes_Cadenas_ConvArt& a, Azar& azar) {
    const Nodo& nodo = kNodos[azar.Entre(0, 7)];
    a.Cod_Articulo = azar.Entre(101, 106);
    a.Cod_Nivel1 = nodo[0];
    a.Cod_Nivel2 = nodo[1];
    a.Cod_Nivel3 = nodo[2];
    a.Cod_Nivel4 = nodo[3];
    a.PrecioBase = azar.Importe(0, 90, 2);
    a.DtoPadre = azar.Una(2);
    a.FechaEntrada = azar.hoy + -10;
    // An offer of nothing, which is a division by zero, comes up now and then.
    for (std::int16_t n = 0; n < 5; ++n) {
        a.TipoDto(n, azar.Entre<std::int16_t>(0, 3));
        a.ImporteDto(n, azar.Una(3) ? azar.Importe(-1, 30, azar.Entre(0, 2)) : Currency());
        a.UnidadesDto(n, azar.Entre<std::int16_t>(0, 2));
        a.AplicarCascada(n, azar.Una(2));
    }
}

// A new agreement takes its first day from the database's clock, which may be in another zone: it is given one.
void Poner(Lado& lado, clsClientes_Cadenas_ConvArt& a, Currency base) {
    a.Eliminar();
    a.Insertar();
    lado.conexion->Ejecutar(TextoSql(
        "UPDATE Clientes_Cadenas_ConvArt SET FechaEntrada ='", SqlFecha(a.FechaEntrada),
        "', PBase =", SqlCurrencyConPunto(base), " WHERE Cod_Empresa =1 AND Cod_Articulo =", SqlEntero(a.Cod_Articulo),
        " AND Cod_Nivel1 =", SqlEntero(a.Cod_Nivel1), " AND Cod_Nivel2 =", SqlEntero(a.Cod_Nivel2),
        " AND Cod_Nivel3 =", SqlEntero(a.Cod_Nivel3), " AND Cod_Nivel4 =", SqlEntero(a.Cod_Nivel4)));
}

void Acordar(Lado& lado, Azar& azar, Respuestas& r) {
    const int metodo = azar.Entre(0, 7);
    clsClientes_Cadenas_ConvArt a;
    Rellenar(lado.Inyectar(a), azar);
    if (metodo <= 1) Poner(lado, a, metodo == 0 ? a.PrecioBase : Currency());
    if (metodo == 2) a.Modificar();
    if (metodo == 3 && a.DtoPadre) a.Eliminar();
    if (metodo == 4) a.Cargar();
    r("salida", a.FechaSalida);
    r("del padre", a.DtoPadre);
    for (std::int16_t n = 0; n < 5; ++n) {
        const std::string casilla = " " + std::to_string(n);
        r("tipo" + casilla, a.TipoDto(n));
        r("importe" + casilla, a.ImporteDto(n));
        r("unidades" + casilla, a.UnidadesDto(n));
        r("cascada" + casilla, a.AplicarCascada(n));
        r("desde" + casilla, a.FechaDtoI(n));
        r("hasta" + casilla, a.FechaDtoF(n));
    }
    if (metodo <= 4) return;
    const Fecha dia = azar.Dia(-30, 30);
    std::string cadena;
    Fecha entrada;
    Valor salida;
    r("base", a.Devuelve_PBase(cadena, entrada, salida, dia));
    r("cadena", cadena);
    r("entrada", entrada);
    r("salida", salida);
    r("nivel", a.Dev_CadenaConvenio_Nivel(dia));
    r("total", a.Dev_CadenaConvenio_Total(dia));
    r("neto", a.Dev_Neto(dia));
}

}  // namespace

void CompararReglas(Pareja& pareja, Azar& azar, int veces) {
    pareja.Repetir("precios", azar, veces, Preciar);
    pareja.Repetir("descuento de familia", azar, veces / 2, DeFamilia);
    pareja.Repetir("descuento de grupo", azar, veces / 2, DeGrupo);
    pareja.Repetir("acuerdos", azar, veces, Acordar);
}

}  // namespace kv::prueba
