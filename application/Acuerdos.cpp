#include "kvdatosart/application/Acuerdos.h"

#include "kvdatosart/application/AcuerdosListados.h"
#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"
#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"

namespace kv::aplicacion {
namespace {

using Clase = clsClientes_Cadenas_ConvArt;
using Tipo = DescuentoAcuerdo::Tipo;

const Fecha kSinFin = Fecha::DeAmd(2050, 12, 31);

void Abrir(Clase& acuerdo, const Sesion& sesion, const ClaveAcuerdo& clave) {
    sesion.Inyectar(acuerdo);
    acuerdo.Cod_Articulo = clave.articulo;
    std::int16_t* const niveles[] = {&acuerdo.Cod_Nivel1, &acuerdo.Cod_Nivel2, &acuerdo.Cod_Nivel3, &acuerdo.Cod_Nivel4,
                                     &acuerdo.Cod_Nivel5, &acuerdo.Cod_Nivel6, &acuerdo.Cod_Nivel7, &acuerdo.Cod_Nivel8,
                                     &acuerdo.Cod_Nivel9, &acuerdo.Cod_Nivel10};
    for (std::size_t i = 0; i < clave.nodo.size(); ++i) {
        *niveles[i] = clave.nodo[i];
        if (clave.nodo[i] != 0) acuerdo.Nivel = static_cast<std::int16_t>(i + 1);
    }
}

void Exigir(const DescuentoAcuerdo& descuento) {
    ExigirNoNegativo("dto", descuento.importe);
    if (descuento.tipo == Tipo::Porcentaje || descuento.tipo == Tipo::Cascada)
        ExigirPorcentaje("dto", descuento.importe);
    // Nothing paid is a slot that is not in use.
    if (descuento.tipo == Tipo::Oferta && (descuento.importe == Currency() || descuento.gratis < 0))
        RechazarImposible("dto", "«" + TextoDe(descuento) + "» no vale; se espera alguna unidad pagada");
}

void Exigir(const TerminosAcuerdo& terminos) {
    if (terminos.precioBase) ExigirNoNegativo("precioBase", *terminos.precioBase);
    if (terminos.descuentos.size() > kDescuentosAcuerdo.size()) RechazarImposible("dto", "caben cinco descuentos");
    if (terminos.sinPadre && terminos.conPadre) RechazarImposible("", "{sinPadre} y {conPadre} se contradicen");
    for (const DescuentoAcuerdo& descuento : terminos.descuentos) Exigir(descuento);
}

void Aplicar(Clase& acuerdo, const TerminosAcuerdo& terminos) {
    if (terminos.sinPadre || terminos.conPadre) acuerdo.DtoPadre = terminos.conPadre;
    if (terminos.descuentos.empty()) return;
    for (std::size_t i = 0; i < kDescuentosAcuerdo.size(); ++i) {
        const auto casilla = static_cast<std::int16_t>(i);
        const DescuentoAcuerdo d = i < terminos.descuentos.size() ? terminos.descuentos[i] : DescuentoAcuerdo();
        acuerdo.TipoDto(casilla, d.tipo == Tipo::Oferta    ? kDtoOferta
                                 : d.tipo == Tipo::Importe ? kDtoImporte
                                                           : kDtoPorcentaje);
        acuerdo.ImporteDto(casilla, d.importe);
        acuerdo.UnidadesDto(casilla, d.gratis);
        acuerdo.AplicarCascada(casilla, d.tipo == Tipo::Cascada);
    }
}

std::string Condicion(const Sesion& sesion, const ClaveAcuerdo& clave) {
    return TextoSql(" WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresa()),
                    " AND Cod_Articulo =", SqlEntero(clave.articulo), CondicionNodo("Cod_Nivel", clave.nodo));
}

// The class writes the day on which it runs and goes for every dated agreement of its key. So the one that is meant is
// worked on under the article's code with a minus, which no article has, and nobody sees it until the commit.
ClaveAcuerdo Apartada(const ClaveAcuerdo& clave) {
    return {-clave.articulo, clave.nodo};
}

void Mover(const Sesion& sesion, const ClaveAcuerdo& desde, const ClaveAcuerdo& hasta, const std::string& ademas,
           const std::string& condicion) {
    sesion.Cnx().Ejecutar(TextoSql("UPDATE Clientes_Cadenas_ConvArt SET Cod_Articulo =", SqlEntero(hasta.articulo),
                                   ademas, Condicion(sesion, desde), condicion));
}

std::string CondicionDia(Fecha desde) {
    return TextoSql(" AND FechaEntrada ='", SqlFecha(desde), "'");
}

std::string Dias(Fecha desde, const TerminosAcuerdo& terminos) {
    std::string sql = TextoSql(", FechaEntrada ='", SqlFecha(desde), "'");
    if (terminos.hasta) Agregar(sql, ", FechaSalida ='", SqlFecha(*terminos.hasta), "'");
    if (terminos.precioBase) Agregar(sql, ", PBase =", SqlCurrencyConPunto(*terminos.precioBase));
    return sql;
}

struct Plazo {
    Fecha desde;
    Fecha hasta;
};

std::vector<Plazo> LeerPlazos(const Sesion& sesion, const ClaveAcuerdo& clave) {
    std::vector<Plazo> plazos;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(),
                 TextoSql("SELECT FechaEntrada, FechaSalida FROM Clientes_Cadenas_ConvArt", Condicion(sesion, clave),
                          " ORDER BY FechaEntrada"));
    for (; !rs->Eof(); rs->MoveNext())
        plazos.push_back({ADate(rs->Fields("FechaEntrada").Value()), ADate(rs->Fields("FechaSalida").Value())});
    return plazos;
}

void ExigirSitio(const Sesion& sesion, const PeticionPonerAcuerdo& peticion, const Plazo& nuevo) {
    for (const Plazo& plazo : LeerPlazos(sesion, peticion)) {
        if (plazo.desde == nuevo.desde)
            RechazarNegativa("desde", TextoSql("ya hay un acuerdo de ese nodo y artículo desde el ",
                                               SqlFecha(plazo.desde), "; se cambia o se quita"));
        if (!peticion.forzar && plazo.desde <= nuevo.hasta && plazo.hasta >= nuevo.desde)
            RechazarNegativa("desde",
                             TextoSql("ya hay un acuerdo del ", SqlFecha(plazo.desde), " al ", SqlFecha(plazo.hasta),
                                      ", que comparte días; con {forzar} se pone igual"));
    }
}

std::vector<Plazo> Elegir(const Sesion& sesion, const SeleccionAcuerdos& seleccion) {
    std::vector<Plazo> plazos = LeerPlazos(sesion, seleccion);
    if (seleccion.desde) {
        if (seleccion.todos) RechazarImposible("", "{desde} y {todos} se contradicen");
        std::erase_if(plazos, [&](const Plazo& plazo) { return plazo.desde != *seleccion.desde; });
    }
    if (plazos.empty()) RechazarNegativa("nodo", "no hay ningún acuerdo de ese nodo y artículo que sea ese");
    if (plazos.size() > 1 && !seleccion.todos)
        RechazarImposible("", "hay " + std::to_string(plazos.size()) + " acuerdos: se espera {desde} FECHA o {todos}");
    return plazos;
}

// Works on each chosen agreement, set aside, and puts back what remains of it.
template <class Accion>
RespuestaEscritura EnCadaUno(const Sesion& sesion, const SeleccionAcuerdos& seleccion, Accion accion) {
    Transaccion transaccion(sesion.Cnx());
    const std::vector<Plazo> plazos = Elegir(sesion, seleccion);
    for (const Plazo& plazo : plazos) {
        Mover(sesion, seleccion, Apartada(seleccion), "", CondicionDia(plazo.desde));
        Clase acuerdo;
        Abrir(acuerdo, sesion, Apartada(seleccion));
        acuerdo.FechaEntrada = plazo.desde;
        accion(acuerdo, plazo);
    }
    RespuestaEscritura respuesta{plazos.size(), ListarAcuerdos(sesion, seleccion.articulo)};
    transaccion.Confirmar();
    return respuesta;
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
    RespuestaAcuerdos respuesta{ListarAcuerdos(sesion, peticion.articulo, peticion.nodo, peticion.fecha), peticion.nodo,
                                ""};
    if (respuesta.acuerdos.filas.empty())
        RechazarNegativa("articulo", peticion.nodo || peticion.fecha ? "el artículo no tiene acuerdos así"
                                                                     : "el artículo no tiene acuerdos");
    if (peticion.nodo) {
        Clase acuerdo;
        Abrir(acuerdo, sesion, {peticion.articulo, *peticion.nodo});
        respuesta.texto = acuerdo.Dev_CadenaConvenio_Nivel(peticion.fecha.value_or(sesion.Hoy()));
    }
    return respuesta;
}

RespuestaEscritura PonerAcuerdo(const Sesion& sesion, const PeticionPonerAcuerdo& peticion) {
    Exigir(peticion);
    const Plazo plazo{peticion.desde.value_or(sesion.Hoy()), peticion.hasta.value_or(kSinFin)};
    ExigirPlazo(plazo.desde, plazo.hasta);
    ExigirArticulo(sesion, peticion.articulo);
    ExigirNodo(sesion, peticion.nodo);
    Clase acuerdo;
    Abrir(acuerdo, sesion, Apartada(peticion));
    acuerdo.DtoPadre = true;
    Aplicar(acuerdo, peticion);
    Transaccion transaccion(sesion.Cnx());
    ExigirSitio(sesion, peticion, plazo);
    acuerdo.Insertar();
    Mover(sesion, Apartada(peticion), peticion, Dias(plazo.desde, peticion), "");
    RespuestaEscritura respuesta{1, ListarAcuerdos(sesion, peticion.articulo)};
    transaccion.Confirmar();
    return respuesta;
}

RespuestaEscritura CambiarAcuerdo(const Sesion& sesion, const PeticionCambiarAcuerdo& peticion) {
    Exigir(peticion);
    return EnCadaUno(sesion, peticion, [&](Clase& acuerdo, const Plazo& plazo) {
        ExigirPlazo(plazo.desde, peticion.hasta.value_or(plazo.hasta));
        acuerdo.Cargar();
        Aplicar(acuerdo, peticion);
        acuerdo.Modificar();
        Mover(sesion, Apartada(peticion), peticion, Dias(plazo.desde, peticion), "");
    });
}

RespuestaEscritura QuitarAcuerdo(const Sesion& sesion, const SeleccionAcuerdos& peticion) {
    return EnCadaUno(sesion, peticion, [](Clase& acuerdo, const Plazo&) { acuerdo.Eliminar(); });
}

}  // namespace kv::aplicacion
