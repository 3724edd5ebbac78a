#include "application/Acuerdos.h"

#include "application/Rechazo.h"
#include "db/Transaccion.h"
#include "db/ValoresSql.h"
#include "rules/DescuentosAcuerdo.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"

namespace kv::aplicacion {
namespace {

using Clase = clsClientes_Cadenas_ConvArt;

constexpr ColumnaTabla kAcuerdos[] = {
    {"", "nodo", "Nodo"},
    {"", "desde", "Desde", ClaseDato::Fecha},
    {"", "hasta", "Hasta", ClaseDato::Fecha},
    {"", "precioBase", "Precio base", ClaseDato::Importe},
    {"", "dto1", "Dto. 1"},
    {"", "dto2", "Dto. 2"},
    {"", "dto3", "Dto. 3"},
    {"", "dto4", "Dto. 4"},
    {"", "dto5", "Dto. 5"},
    {"", "sumaPadre", "Suma los de encima", ClaseDato::Logico},
};

constexpr std::size_t kNiveles = std::tuple_size_v<NivelesCadena>;

NivelesCadena LeerNodo(Recordset& rs) {
    NivelesCadena nodo{};
    for (std::size_t i = 0; i < kNiveles; ++i)
        nodo[i] = AInteger(rs.Fields("Cod_Nivel" + std::to_string(i + 1)).Value());
    return nodo;
}

std::string TextoDescuento(Recordset& rs, const ColumnasDescuento& columnas, Currency importe) {
    using Tipo = DescuentoAcuerdo::Tipo;
    const std::int16_t clase = AInteger(rs.Fields(columnas.tipo).Value());
    switch (clase) {
        case kDtoPorcentaje:
            return TextoDe({ABoolean(rs.Fields(columnas.cascada).Value()) ? Tipo::Cascada : Tipo::Porcentaje, importe});
        case kDtoImporte:
            return TextoDe({Tipo::Importe, importe});
        case kDtoOferta:
            return TextoDe({Tipo::Oferta, importe, AInteger(rs.Fields(columnas.cantidad).Value())});
        default:
            return "clase " + std::to_string(clase) + ": " + importe.ATexto('.').Cadena();
    }
}

// The discount of a slot, NULL when it is unused; with its own days when it does not last as long as the agreement.
Valor LeerDescuento(Recordset& rs, const ColumnasDescuento& columnas) {
    const Currency importe = ACurrency(rs.Fields(columnas.importe).Value());
    if (importe == Currency()) return Nulo{};
    std::string texto = TextoDescuento(rs, columnas, importe);
    const Fecha desde = ADate(rs.Fields(columnas.entrada).Value());
    const Fecha hasta = ADate(rs.Fields(columnas.salida).Value());
    if (desde > ADate(rs.Fields("FechaEntrada").Value()) || hasta < ADate(rs.Fields("FechaSalida").Value()))
        Agregar(texto, " (", SqlFecha(desde), "-", SqlFecha(hasta), ")");
    return texto;
}

Tabla LeerAcuerdos(const Sesion& sesion, std::int32_t articulo) {
    std::string sql =
        TextoSql("SELECT * FROM Clientes_Cadenas_ConvArt WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                 " AND Cod_Articulo =", SqlEntero(articulo), " ORDER BY ");
    for (std::size_t i = 1; i <= kNiveles; ++i) Agregar(sql, "Cod_Nivel", SqlEntero(static_cast<int>(i)), ", ");
    sql += "FechaEntrada";
    Tabla tabla{"acuerdos", kAcuerdos};
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    for (; !rs->Eof(); rs->MoveNext()) {
        FilaTabla fila = {TextoDe(LeerNodo(*rs)), rs->Fields("FechaEntrada").Value(), rs->Fields("FechaSalida").Value(),
                          rs->Fields("PBase").Value()};
        for (const ColumnasDescuento& columnas : kDescuentosAcuerdo) fila.push_back(LeerDescuento(*rs, columnas));
        fila.push_back(rs->Fields("Dto_Padre").Value());
        tabla.filas.push_back(std::move(fila));
    }
    return tabla;
}

void PonerDescuentos(Clase& acuerdo, const std::vector<DescuentoAcuerdo>& descuentos) {
    if (descuentos.size() > kDescuentosAcuerdo.size()) RechazarImposible("dto", "caben cinco descuentos");
    for (std::size_t i = 0; i < descuentos.size(); ++i) {
        const auto casilla = static_cast<std::int16_t>(i);
        const DescuentoAcuerdo& d = descuentos[i];
        const bool oferta = d.tipo == DescuentoAcuerdo::Tipo::Oferta;
        acuerdo.TipoDto(casilla, oferta                                      ? kDtoOferta
                                 : d.tipo == DescuentoAcuerdo::Tipo::Importe ? kDtoImporte
                                                                             : kDtoPorcentaje);
        acuerdo.ImporteDto(casilla, d.importe);
        acuerdo.UnidadesDto(casilla, oferta ? d.gratis : std::int16_t(0));
        acuerdo.AplicarCascada(casilla, d.tipo == DescuentoAcuerdo::Tipo::Cascada);
    }
}

void Abrir(Clase& acuerdo, const Sesion& sesion, std::int32_t articulo, const NivelesCadena& nodo) {
    sesion.Inyectar(acuerdo);
    acuerdo.Cod_Articulo = articulo;
    std::int16_t* const niveles[] = {&acuerdo.Cod_Nivel1, &acuerdo.Cod_Nivel2, &acuerdo.Cod_Nivel3, &acuerdo.Cod_Nivel4,
                                     &acuerdo.Cod_Nivel5, &acuerdo.Cod_Nivel6, &acuerdo.Cod_Nivel7, &acuerdo.Cod_Nivel8,
                                     &acuerdo.Cod_Nivel9, &acuerdo.Cod_Nivel10};
    for (std::size_t i = 0; i < kNiveles; ++i) {
        *niveles[i] = nodo[i];
        if (nodo[i] != 0) acuerdo.Nivel = static_cast<std::int16_t>(i + 1);
    }
}

template <class Accion>
Tabla Escribir(const Sesion& sesion, std::int32_t articulo, Accion accion) {
    Transaccion transaccion(sesion.Cnx());
    accion();
    Tabla quedan = LeerAcuerdos(sesion, articulo);
    transaccion.Confirmar();
    return quedan;
}

}  // namespace

std::string TextoDe(const NivelesCadena& nodo) {
    std::string texto;
    for (const std::int16_t nivel : nodo) {
        if (nivel == 0) break;
        texto += (texto.empty() ? "" : ".") + std::to_string(nivel);
    }
    return texto;
}

std::string TextoDe(const DescuentoAcuerdo& descuento) {
    constexpr const char* kTipos[] = {"porcentaje:", "cascada:", "importe:", "oferta:"};
    std::string texto = kTipos[static_cast<std::size_t>(descuento.tipo)];
    texto += descuento.importe.ATexto('.').Cadena();
    if (descuento.tipo == DescuentoAcuerdo::Tipo::Oferta) texto += "+" + std::to_string(descuento.gratis);
    return texto;
}

RespuestaAcuerdos VerAcuerdos(const Sesion& sesion, const PeticionAcuerdos& peticion) {
    RespuestaAcuerdos respuesta{peticion.nodo, "", LeerAcuerdos(sesion, peticion.articulo)};
    if (respuesta.acuerdos.filas.empty()) RechazarNegativa("articulo", "el artículo no tiene acuerdos");
    if (peticion.nodo) {
        Clase acuerdo;
        Abrir(acuerdo, sesion, peticion.articulo, *peticion.nodo);
        respuesta.texto = acuerdo.Dev_CadenaConvenio_Nivel(peticion.fecha.value_or(sesion.Hoy()));
    }
    return respuesta;
}

Tabla PonerAcuerdo(const Sesion& sesion, const PeticionAcuerdo& peticion) {
    Clase acuerdo;
    Abrir(acuerdo, sesion, peticion.articulo, peticion.nodo);
    PonerDescuentos(acuerdo, peticion.descuentos);
    acuerdo.DtoPadre = !peticion.sinPadre;
    return Escribir(sesion, peticion.articulo, [&] { acuerdo.Insertar(); });
}

Tabla CambiarAcuerdo(const Sesion& sesion, const PeticionAcuerdo& peticion) {
    Clase acuerdo;
    Abrir(acuerdo, sesion, peticion.articulo, peticion.nodo);
    PonerDescuentos(acuerdo, peticion.descuentos);
    acuerdo.DtoPadre = !peticion.sinPadre;
    return Escribir(sesion, peticion.articulo, [&] { acuerdo.Modificar(); });
}

Tabla QuitarAcuerdo(const Sesion& sesion, const ClaveAcuerdo& peticion) {
    Clase acuerdo;
    Abrir(acuerdo, sesion, peticion.articulo, peticion.nodo);
    return Escribir(sesion, peticion.articulo, [&] { acuerdo.Eliminar(); });
}

}  // namespace kv::aplicacion
