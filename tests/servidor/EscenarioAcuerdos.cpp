#include "db/ValoresSql.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "tests/servidor/Escenarios.h"

namespace kv::prueba {
namespace {

using Acuerdo = clsClientes_Cadenas_ConvArt;
using Nodo = std::array<std::int16_t, 4>;

struct Dto {
    std::int16_t tipo;
    Currency importe;
    std::int16_t unidades;
    bool cascada;
};

struct Encargo {
    int metodo;
    std::int32_t articulo;
    Nodo nodo;
    Fecha dia;
    Currency base;
    bool dtoPadre;
    std::array<Dto, 5> dtos;
};

Encargo UnEncargo(Azar& azar, Fecha hoy) {
    Encargo e{azar.Entre(0, 7),
              azar.Entre(101, 106),
              azar.De<Nodo>({Nodo{}, {1}, {1, 1}, {1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 2}, {2}, {2, 1}}),
              azar.Dia(hoy, -30, 30),
              azar.Importe(0, 90, 2),
              azar.Una(2),
              {}};
    // An offer of nothing, which is a division by zero, comes up now and then.
    for (Dto& d : e.dtos)
        d = {static_cast<std::int16_t>(azar.Entre(0, 3)),
             azar.Una(3) ? azar.Importe(-1, 30, azar.Entre(0, 2)) : Currency(),
             static_cast<std::int16_t>(azar.Entre(0, 2)), azar.Una(2)};
    return e;
}

void Rellenar(Acuerdo& a, const Encargo& e) {
    a.Cod_Articulo = e.articulo;
    a.Cod_Nivel1 = e.nodo[0];
    a.Cod_Nivel2 = e.nodo[1];
    a.Cod_Nivel3 = e.nodo[2];
    a.Cod_Nivel4 = e.nodo[3];
    a.PrecioBase = e.base;
    a.DtoPadre = e.dtoPadre;
    for (std::int16_t n = 0; n < 5; ++n) {
        const Dto& d = e.dtos[static_cast<std::size_t>(n)];
        a.TipoDto(n, d.tipo);
        a.ImporteDto(n, d.importe);
        a.UnidadesDto(n, d.unidades);
        a.AplicarCascada(n, d.cascada);
    }
}

// A new agreement takes its first day from the database's clock, which may be in another zone: it is given one.
void Poner(Lado& lado, Acuerdo& a, const Encargo& e, Fecha desde) {
    a.Eliminar();
    a.Insertar();
    lado.conexion->Ejecutar(
        TextoSql("UPDATE Clientes_Cadenas_ConvArt SET FechaEntrada ='", SqlFecha(desde),
                 "', PBase =", SqlCurrencyConPunto(e.metodo == 0 ? e.base : Currency()),
                 " WHERE Cod_Empresa =1 AND Cod_Articulo =", SqlEntero(e.articulo),
                 " AND Cod_Nivel1 =", SqlEntero(e.nodo[0]), " AND Cod_Nivel2 =", SqlEntero(e.nodo[1]),
                 " AND Cod_Nivel3 =", SqlEntero(e.nodo[2]), " AND Cod_Nivel4 =", SqlEntero(e.nodo[3])));
}

void Leer(Acuerdo& a, Respuestas& r) {
    a.Cargar();
    r("hasta", a.FechaSalida);
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
}

void Valorar(Acuerdo& a, Fecha dia, Respuestas& r) {
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

std::string Nombre(const Encargo& e) {
    std::string nombre = TextoSql("acuerdos ", SqlEntero(e.metodo), ", artículo ", SqlEntero(e.articulo), ", nodo");
    for (const std::int16_t nivel : e.nodo) Agregar(nombre, " ", SqlEntero(nivel));
    return nombre;
}

}  // namespace

void CompararAcuerdos(Pareja& pareja, Azar& azar, Fecha hoy, int veces) {
    for (int i = 0; i < veces; ++i) {
        const Encargo e = UnEncargo(azar, hoy);
        pareja.Probar(Nombre(e), [&](Lado& lado, Respuestas& r) {
            Acuerdo a;
            Rellenar(lado.Inyectar(a), e);
            a.FechaEntrada = hoy + -10;
            if (e.metodo <= 1) Poner(lado, a, e, a.FechaEntrada);
            if (e.metodo == 2) a.Modificar();
            if (e.metodo == 3 && e.dtoPadre) a.Eliminar();
            if (e.metodo == 4) Leer(a, r);
            if (e.metodo > 4) Valorar(a, e.dia, r);
        });
    }
}

}  // namespace kv::prueba
