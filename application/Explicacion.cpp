#include "kvdatosart/application/Explicacion.h"

#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"

namespace kv::aplicacion {
namespace {

std::string TextoNodo(const NivelesCadena& nodo) {
    std::string texto;
    for (const std::int16_t nivel : nodo) {
        if (nivel == 0) break;
        texto += (texto.empty() ? "" : ".") + std::to_string(nivel);
    }
    return texto;
}

const char* NombreOrigen(OrigenTarifa origen) {
    switch (origen) {
        case OrigenTarifa::Pedida:
            return "pedida";
        case OrigenTarifa::PromocionCliente:
            return "promoción del cliente";
        case OrigenTarifa::Cliente:
            return "del cliente";
        case OrigenTarifa::Empresa:
            return "de la empresa";
    }
    return "";
}

const char* NombreFuente(FuentePrecio fuente) {
    switch (fuente) {
        case FuentePrecio::Tarifa:
            return "Tarifa";
        case FuentePrecio::Coste:
            return "Venta a coste";
        case FuentePrecio::CosteTipoCliente:
            return "Cliente a coste";
        case FuentePrecio::PrecioCliente:
            return "Precio del cliente";
        case FuentePrecio::PrecioBaseCadena:
            return "Precio base de cadena";
        case FuentePrecio::ConvenioPvp:
            return "Convenio de precio";
        case FuentePrecio::NetoCadena:
            return "Neto de cadena";
        case FuentePrecio::Redondeo:
            return "Redondeo";
    }
    return "";
}

// The last day of an agreement without end.
const Fecha kSiempre = Fecha::DeAmd(2050, 12, 31);

std::string TextoPlazo(Fecha entrada, Fecha salida) {
    if (salida >= kSiempre) return TextoSql("desde el ", SqlFecha(entrada));
    return TextoSql("del ", SqlFecha(entrada), " al ", SqlFecha(salida));
}

std::string CondicionNodo(const NivelesCadena& nodo) {
    std::string sql;
    for (std::size_t i = 0; i < nodo.size(); ++i)
        Agregar(sql, " AND Cod_Nivel", TextoEntero(static_cast<std::int64_t>(i) + 1), " =", SqlEntero(nodo[i]));
    return sql;
}

}  // namespace

Explicacion::Renglon& Explicacion::Nuevo(std::string fuente, Frase clave) {
    Renglon renglon;
    renglon.paso.fuente = std::move(fuente);
    renglon.paso.clave = std::move(clave);
    return renglones_.emplace_back(std::move(renglon));
}

void Explicacion::Tarifa(const TarifaProbada& tarifa) {
    std::string fuente = tarifa.programada ? "Cambio de tarifa" : "Tarifa";
    if (tarifa.porCualidad) fuente += " de la variante " + std::to_string(asunto_.cualidadX);
    Renglon& r = Nuevo(fuente, {"tarifa " + std::to_string(tarifa.tarifa) + " (" + NombreOrigen(tarifa.origen) + ")"});
    r.paso.tarifa = tarifa.tarifa;
    r.tarifa = tarifa.tarifa;
    r.porCualidad = tarifa.porCualidad;
    if (tarifa.hallada) {
        r.paso.importe = tarifa.pvp;
        r.paso.resultado = {"hallada: {$}", {tarifa.pvp}};
        return;
    }
    r.duda = tarifa.programada ? Duda::Cambio : Duda::Tarifa;
}

void Explicacion::Paso(const PasoPrecio& paso) {
    Renglon& r = Nuevo(NombreFuente(paso.fuente));
    r.paso.antes = paso.antes;
    r.paso.despues = paso.despues;
    r.puso = paso.aplicada && paso.fuente != FuentePrecio::Redondeo && paso.fuente != FuentePrecio::NetoCadena;
    r.paso.resultado = {paso.aplicada ? "aplicado" : "nada"};
    r.paso.vacia = paso.antes == paso.despues && (!paso.hallada || paso.fuente == FuentePrecio::Redondeo);
    if (paso.fuente == FuentePrecio::Tarifa && !paso.hallada) {
        r.paso.resultado = {"ninguna tarifa tiene precio"};
        r.paso.vacia = false;
        r.puso = false;
    }
    if (paso.fuente == FuentePrecio::PrecioCliente) {
        r.paso.clave = {"cliente " + std::to_string(asunto_.cliente)};
        if (!paso.hallada) r.duda = Duda::PrecioCliente;
    }
    if (paso.fuente == FuentePrecio::ConvenioPvp) {
        r.paso.clave = {"cliente " + std::to_string(asunto_.cliente)};
        if (!paso.hallada)
            r.duda = Duda::Convenio;
        else if (!paso.aplicada)
            r.paso.resultado = {"hallado, pero el precio sale 0 o menos: se ignora"};
    }
    if (paso.fuente == FuentePrecio::PrecioBaseCadena && !paso.hallada)
        r.paso.resultado = {preguntadaCadena_ ? "ningún nodo tiene precio base" : "el cliente no tiene cadena"};
    if (paso.fuente == FuentePrecio::NetoCadena && !paso.hallada) r.paso.resultado = {"el cliente no tiene cadena"};
}

Explicacion::Renglon& Explicacion::NuevoDescuento(FuenteDescuento fuente) {
    return Nuevo(fuente == FuenteDescuento::Grupo ? "Descuento de grupo" : "Descuento de familia",
                 {"cliente " + std::to_string(asunto_.cliente)});
}

void Explicacion::DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) {
    Renglon& r = NuevoDescuento(fuente);
    r.paso.importe = porcentaje;
    r.paso.vacia = porcentaje == Currency();
    r.paso.resultado =
        porcentaje == Currency() ? Frase{"ninguno"} : Frase{"{} % para la línea, fuera del precio", {porcentaje}};
}

void Explicacion::DescuentoFallido(FuenteDescuento fuente, std::string_view procedimiento, std::string_view fallo) {
    NuevoDescuento(fuente).paso.resultado = {TextoSql("el procedimiento ", procedimiento, " ha fallado: ", fallo)};
}

void Explicacion::NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, Currency base) {
    preguntadaCadena_ = true;
    const bool sinBase = base == Currency();
    PasoExplicado& paso = NuevoNodo("Acuerdo: precio base", nodo, acuerdo,
                                    sinBase ? Frase{"sin precio base"} : Frase{"hallado: {$}", {base}})
                              .paso;
    paso.vacia = sinBase;
    if (!sinBase) paso.importe = base;
}

void Explicacion::NodoDescuentos(const NivelesCadena& nodo, const DiasAcuerdo* acuerdo, int aplicables) {
    NuevoNodo("Acuerdo: descuentos", nodo, acuerdo,
              {std::to_string(aplicables) + (aplicables == 1 ? " descuento vigente" : " descuentos vigentes")})
        .paso.vacia = aplicables == 0;
}

Explicacion::Renglon& Explicacion::NuevoNodo(const char* fuente, const NivelesCadena& nodo, const DiasAcuerdo* acuerdo,
                                             Frase resultado) {
    const std::string camino = TextoNodo(nodo);
    Renglon& r = Nuevo(fuente, {"nodo " + camino});
    r.nodo = nodo;
    r.paso.nodo = camino;
    r.paso.resultado = std::move(resultado);
    if (acuerdo == nullptr)
        r.duda = Duda::Nodo;
    else
        r.paso.resultado += " (acuerdo " + TextoPlazo(ADate(acuerdo->entrada), ADate(acuerdo->salida)) + ")";
    return r;
}

void Explicacion::DescuentoCadena(const DescuentoAplicado& d) {
    Renglon& r = Nuevo("Descuento de cadena");
    r.paso.antes = d.antes;
    r.paso.despues = d.despues;
    r.paso.importe = d.importe;
    r.paso.resultado = {"quita {$}, redondeado {$}", {d.sinRedondear, d.redondeado}};
    switch (d.tipo) {
        case kDtoPorcentaje:
            r.paso.clave = {d.cascada ? "{} % en cascada sobre {$}" : "{} % sobre {$}", {d.importe, d.base}};
            break;
        case kDtoImporte:
            r.paso.clave = {"importe {$}", {d.importe}};
            break;
        case kDtoOferta:
            r.paso.clave = {"oferta {} + {} gratis", {d.importe, d.cantidad}};
            r.paso.resultado.texto = "precio {$}, redondeado {$}";
            break;
        default:
            r.paso.clave = {"clase " + std::to_string(d.tipo)};
            r.paso.resultado = {"clase desconocida: no cambia el precio"};
    }
}

std::string Explicacion::MotivoTarifa(const Sesion& sesion, const Renglon& r) const {
    const std::string tabla = r.porCualidad ? "Articulos_Tarifas_C" : "Articulos_Tarifas";
    std::string sql =
        TextoSql("SELECT Pvp FROM ", tabla, " WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaArticulos()),
                 " AND Cod_Articulo =", SqlEntero(asunto_.articulo), " AND Cod_Tarifa =", SqlEntero(r.tarifa));
    if (r.porCualidad) Agregar(sql, " AND CualidadX =", SqlEntero(asunto_.cualidadX));
    return sesion.Hay(sql) ? "precio 0" : "sin fila";
}

std::string Explicacion::MotivoCambio(const Sesion& sesion, const Renglon& r) const {
    const std::string tabla = r.porCualidad ? "Tarifas_Modificacion_C" : "Tarifas_Modificacion";
    std::string sql =
        TextoSql("SELECT Pvp FROM ", tabla, " WHERE Cod_Empresa =", SqlEntero(sesion.Emp().CodEmpresaArticulos()),
                 " AND Cod_Articulo =", SqlEntero(asunto_.articulo), " AND Cod_Tarifa =", SqlEntero(r.tarifa));
    if (r.porCualidad) Agregar(sql, " AND CualidadX =", SqlEntero(asunto_.cualidadX));
    if (!sesion.Hay(sql)) return "sin cambios programados";
    Agregar(sql, " AND Actualizado =1 AND Borrado =0");
    if (!sesion.Hay(sql)) return "los cambios están retirados o no toman parte";
    Agregar(sql, " AND Fecha_Entrada <='", SqlFecha(asunto_.fecha), "'");
    return sesion.Hay(sql) ? "precio 0" : "los cambios entran después de la fecha";
}

// The days of every agreement that the node has, none of them for the date.
std::string Explicacion::MotivoNodo(const Sesion& sesion, const Renglon& r) const {
    const std::string sql =
        TextoSql("SELECT FechaEntrada, FechaSalida FROM Clientes_Cadenas_ConvArt WHERE Cod_Empresa =",
                 SqlEntero(sesion.Emp().CodEmpresa()), " AND Cod_Articulo =", SqlEntero(asunto_.articulo),
                 CondicionNodo(r.nodo), " ORDER BY FechaEntrada DESC");
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, sesion.Cnx(), sql);
    std::string plazos;
    for (; !rs->Eof(); rs->MoveNext())
        plazos += (plazos.empty() ? "" : "; ") +
                  TextoPlazo(ADate(rs->Fields("FechaEntrada").Value()), ADate(rs->Fields("FechaSalida").Value()));
    return plazos.empty() ? "sin acuerdo" : "acuerdo fuera de sus fechas: " + plazos;
}

Frase Explicacion::Motivo(const Sesion& sesion, const Renglon& r) const {
    const TextoNumero empresa = SqlEntero(sesion.Emp().CodEmpresa());
    const TextoNumero cliente = SqlEntero(asunto_.cliente);
    const TextoNumero articulo = SqlEntero(asunto_.articulo);
    switch (r.duda) {
        case Duda::Tarifa:
            return {MotivoTarifa(sesion, r)};
        case Duda::Cambio:
            return {MotivoCambio(sesion, r)};
        case Duda::PrecioCliente:
            return {sesion.Hay(TextoSql("SELECT PVP FROM Clientes_Art_PVP WHERE Cod_Empresa =", empresa,
                                        " AND Cod_Cliente =", cliente, " AND Cod_Articulo =", articulo))
                        ? "fuera de sus fechas"
                        : "sin precio propio"};
        case Duda::Nodo:
            return {MotivoNodo(sesion, r)};
        case Duda::Convenio:
            return {sesion.Hay(TextoSql("SELECT Pvp FROM Clientes_Convenio_Pvp WHERE Cod_Empresa =", empresa,
                                        " AND Cod_Cliente =", cliente, " AND Cod_Articulo =", articulo))
                        ? "el artículo base no está o no tiene tarifa 1"
                        : "sin convenio"};
        case Duda::Ninguna:
            break;
    }
    return r.paso.resultado;
}

std::vector<PasoExplicado> Explicacion::Pasos(const Sesion& sesion) const {
    std::vector<PasoExplicado> pasos;
    for (std::size_t i = 0; i < renglones_.size(); ++i) {
        const Renglon& r = renglones_[i];
        PasoExplicado& paso = pasos.emplace_back(r.paso);
        paso.resultado = Motivo(sesion, r);
        paso.decide = r.puso;
        paso.vacia = paso.vacia || r.duda != Duda::Ninguna;
        for (std::size_t j = i + 1; paso.decide && j < renglones_.size(); ++j) {
            if (!renglones_[j].puso) continue;
            paso.resultado += "; lo sustituye: " + renglones_[j].paso.fuente;
            paso.decide = false;
        }
    }
    return pasos;
}

}  // namespace kv::aplicacion
