#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/application/Existencias.h"
#include "kvdatosart/application/Listados.h"
#include "kvdatosart/application/Precios.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/application/Revisiones.h"
#include "kvdatosart/application/Tarifas.h"
#include "kvdatosart/application/Ventas.h"
#include "kvdatosart/tests/servidor/Pareja.h"

namespace kv::prueba {
namespace {

using namespace aplicacion;

Sesion Abierta(Lado& lado, const Azar& azar, std::int16_t empresa = 1) {
    return {lado.conexion, lado.empresas.at(empresa), azar.hoy};
}

// Whole numbers of any width are the same, since what is worked out has no declared one.
void Anotar(Respuestas& r, const Tabla& tabla) {
    for (std::size_t i = 0; i < tabla.filas.size(); ++i)
        for (std::size_t j = 0; j < tabla.columnas.size(); ++j) {
            const Valor& valor = tabla.filas[i][j];
            const bool entero =
                std::holds_alternative<std::uint8_t>(valor) || std::holds_alternative<std::int16_t>(valor);
            r(std::to_string(i) + " " + std::string(tabla.columnas[j].clave), entero ? Valor(ALong(valor)) : valor);
        }
}

template <class Accion>
void Pedir(Respuestas& r, Accion accion) try {
    accion();
} catch (const Rechazo& rechazo) {
    r("rechazo", std::string(rechazo.what()));
}

std::optional<Fecha> Quiza(Azar& azar, int minimo, int maximo) {
    const Fecha dia = azar.Dia(minimo, maximo);
    return azar.Una(2) ? std::optional(dia) : std::nullopt;
}

void Buscar(Lado& lado, Azar& azar, Respuestas& r) {
    const Sesion sesion = Abierta(lado, azar, azar.Entre<std::int16_t>(1, 2));
    const int cual = azar.Entre(0, 6);
    PeticionArticulos articulos;
    PeticionClientes clientes;
    PeticionListado otro;
    otro.texto = azar.De<std::string>({"", "1", "EN", "í", "tarifa web", "o'", "%", "101", "norte"});
    if (azar.Una(2)) otro.limite = azar.Entre(1, 9);
    static_cast<PeticionListado&>(articulos) = static_cast<PeticionListado&>(clientes) = otro;
    if (azar.Una(2)) articulos.familia = Familias{azar.Entre<std::int16_t>(1, 6), azar.Entre<std::int16_t>(0, 2), 0};
    if (azar.Una(3)) clientes.grupo = azar.Entre<std::int16_t>(0, 3);
    if (azar.Una(3)) clientes.nodo = NivelesCadena{azar.Entre<std::int16_t>(1, 2), azar.Entre<std::int16_t>(0, 2)};
    constexpr RespuestaListado (*kOtros[])(const Sesion&, const PeticionListado&) = {
        ListarTarifas, ListarAlmacenes, ListarGrupos, ListarCadenas, ListarEmpresas};
    Pedir(r, [&] {
        const RespuestaListado hay = cual == 0   ? ListarArticulos(sesion, articulos)
                                     : cual == 1 ? ListarClientes(sesion, clientes)
                                                 : kOtros[cual - 2](sesion, otro);
        r("hallados", static_cast<std::int32_t>(hay.hallados));
        Anotar(r, hay.tabla);
    });
}

void Tarifar(Lado& lado, Azar& azar, Respuestas& r) {
    PeticionTarifasDe peticion{azar.Entre(100, 122), {}, Quiza(azar, 0, 100)};
    if (azar.Una(3)) peticion.tarifa = azar.Entre<std::int16_t>(1, 6);
    Pedir(r, [&] { Anotar(r, TarifasDe(Abierta(lado, azar), peticion)); });
}

DescuentoAcuerdo UnDescuento(Azar& azar) {
    const auto tipo = static_cast<DescuentoAcuerdo::Tipo>(azar.Entre(0, 3));
    return {tipo, azar.Importe(0, 20, 2), azar.Entre<std::int16_t>(0, 3)};
}

void Acordar(Lado& lado, Azar& azar, Respuestas& r) {
    const Sesion sesion = Abierta(lado, azar);
    const ClaveAcuerdo clave{azar.Entre(106, 109), {azar.Entre<std::int16_t>(1, 2), azar.Entre<std::int16_t>(0, 2)}};
    TerminosAcuerdo terminos;
    terminos.hasta = Quiza(azar, -5, 30);
    if (azar.Una(2)) terminos.precioBase = azar.Importe(0, 300, 4);
    for (int i = azar.Entre(0, 5); i > 0; --i) terminos.descuentos.push_back(UnDescuento(azar));
    terminos.sinPadre = azar.Una(3);
    const bool forzar = azar.Una(2);
    const SeleccionAcuerdos seleccion{clave, Quiza(azar, -3, 3), azar.Una(3)};
    const int que = azar.Entre(0, 5);
    Pedir(r, [&] {
        if (que <= 2) Anotar(r, PonerAcuerdo(sesion, {clave, terminos, Quiza(azar, -3, 3), forzar}).acuerdos);
        if (que == 3) Anotar(r, CambiarAcuerdo(sesion, {seleccion, terminos}).acuerdos);
        if (que == 4) r("quitados", static_cast<std::int32_t>(QuitarAcuerdo(sesion, seleccion).cuantos));
        if (que != 5) return;
        const RespuestaAcuerdos hay = VerAcuerdos(sesion, {clave.articulo, clave.nodo, seleccion.desde});
        Anotar(r, hay.acuerdos);
        r("texto", hay.texto);
    });
}

ClaveDescuento UnaClave(Azar& azar) {
    const std::uint8_t nivel = azar.Entre<std::uint8_t>(1, 4);
    ClaveDescuento clave{nivel == 4 ? azar.Entre(110, 112) : 0, nivel, {1, 1, 1}};
    for (std::size_t i = nivel; i < 3; ++i) clave.familias[i] = 0;
    return clave;
}

void Descontar(Lado& lado, Azar& azar, Respuestas& r) {
    const Sesion sesion = Abierta(lado, azar);
    const PeticionDtoFamilia familia{{azar.Entre(5, 7), UnaClave(azar)}, azar.Importe(0, 101, 4)};
    PeticionDtoGrupo grupo{{azar.Entre<std::int16_t>(1, 2), familia.clave, azar.Importe(0, 30, 2), {}}, {}};
    grupo.maximo = grupo.minimo + azar.Importe(0, 9, 2);
    grupo.descuento = familia.descuento;
    const int que = azar.Entre(0, 7);
    Pedir(r, [&] {
        if (que == 0) PonerDtoFamilia(sesion, familia);
        if (que == 1) CambiarDtoFamilia(sesion, familia);
        if (que == 2) QuitarDtoFamilia(sesion, familia);
        if (que == 3)
            r("filas", static_cast<std::int32_t>(ListarDtosFamilia(sesion, {{}, familia.cliente}).filas.size()));
        if (que == 4) PonerDtoGrupo(sesion, grupo);
        if (que == 5) CambiarDtoGrupo(sesion, grupo);
        if (que == 6) QuitarDtoGrupo(sesion, grupo);
        if (que == 7) r("filas", static_cast<std::int32_t>(ListarDtosGrupo(sesion, {{}, grupo.grupo}).filas.size()));
    });
}

void Preciar(Lado& lado, Azar& azar, Respuestas& r) {
    const Sesion sesion = Abierta(lado, azar);
    PeticionPonerPrecio precio;
    precio.articulo = azar.Entre(121, 123);
    precio.cliente = azar.Entre(51, 53);
    precio.desde = azar.hoy + azar.Entre(-3, 3);
    precio.hasta = precio.desde + azar.Entre(-1, 3);
    precio.precio = azar.Importe(0, 90, 4);
    const int que = azar.Entre(0, 4);
    Pedir(r, [&] {
        if (que <= 1) PonerPrecio(sesion, precio);
        if (que == 2) CambiarPrecio(sesion, precio);
        if (que == 3) QuitarPrecio(sesion, precio);
        if (que == 4)
            r("filas",
              static_cast<std::int32_t>(ListarPrecios(sesion, {{}, precio.cliente, Quiza(azar, -3, 3)}).filas.size()));
    });
}

void Mover(Lado& lado, Azar& azar, Respuestas& r) {
    const Sesion sesion = Abierta(lado, azar);
    PeticionMovimiento movimiento;
    movimiento.articulo = azar.Entre(104, 107);
    movimiento.almacen = azar.Entre<std::int16_t>(1, 4);
    movimiento.tipo = static_cast<TipoMovimiento>(azar.Entre(0, 4));
    movimiento.unidades = azar.Importe(0, 50, 2);
    movimiento.coste = azar.Importe(0, 9, 4);
    movimiento.fecha = Quiza(azar, -3, 1);
    PeticionUbicacion ubicacion;
    ubicacion.articulo = movimiento.articulo;
    ubicacion.niveles = {azar.De<std::string>({"A", "B'", "12345678901"}), "1", "", "", ""};
    ubicacion.unidades = movimiento.unidades;
    const bool mueve = azar.Una(2);
    Pedir(r, [&] {
        const RespuestaExistencias quedan =
            mueve ? MoverExistencias(sesion, movimiento).quedan : SumarEnUbicacion(sesion, ubicacion);
        Anotar(r, quedan.almacenes);
        r("ubicaciones", static_cast<std::int32_t>(quedan.ubicaciones.filas.size()));
    });
    Pedir(r, [&] {
        Anotar(r, AcumularVenta(sesion, {movimiento.articulo,
                                         azar.Entre(3, 5),
                                         movimiento.almacen,
                                         movimiento.unidades,
                                         azar.Importe(0, 99, 2),
                                         {},
                                         movimiento.fecha,
                                         0,
                                         0,
                                         false}));
    });
}

void RevisarTodo(Lado& lado, Azar& azar, Respuestas& r) {
    const auto hallazgos = Revisar(Abierta(lado, azar), [](std::size_t, std::size_t) {});
    for (std::size_t i = 0; i < hallazgos.size(); ++i) r(std::to_string(i), std::string(hallazgos[i].que));
}

}  // namespace

void CompararAplicacion(Pareja& pareja, Azar& azar, int veces) {
    pareja.Repetir("listados", azar, veces, Buscar);
    pareja.Repetir("tarifas de un artículo", azar, veces, Tarifar);
    pareja.Repetir("acuerdos uno a uno", azar, veces, Acordar);
    pareja.Repetir("descuentos comprobados", azar, veces, Descontar);
    pareja.Repetir("precios comprobados", azar, veces, Preciar);
    pareja.Repetir("existencias comprobadas", azar, veces, Mover);
    pareja.Probar("revisar", azar, RevisarTodo);
}

}  // namespace kv::prueba
