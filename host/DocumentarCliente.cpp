#include <algorithm>

#include "kvdatosart/customers/ColumnasCliente.h"
#include "kvdatosart/host/Documentos.h"

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using C = aplicacion::ClaseDato;

/// What each column of a customer is called, in the order of the columns.
constexpr auto kDatosCliente = std::to_array<ColumnaTabla>({
    {"Codigo", "codigo", "Código", C::Codigo},
    {"Nombre", "nombre", "Nombre"},
    {"Nombre_Comercial", "nombreComercial", "Nombre comercial"},
    {"Direccion", "direccion", "Dirección"},
    {"Localidad", "localidad", "Localidad"},
    {"Provincia", "provincia", "Provincia"},
    {"Pais", "pais", "País"},
    {"EMail", "correo", "Correo electrónico"},
    {"Telefono", "telefono", "Teléfono"},
    {"MotivoBaja", "motivoBaja", "Motivo de baja", C::Codigo},
    {"F_Razon", "razonFiscal", "Razón social"},
    {"F_Via", "viaFiscal", "Vía fiscal"},
    {"F_Direccion", "direccionFiscal", "Dirección fiscal"},
    {"F_Numero", "numeroFiscal", "Número fiscal"},
    {"F_Escalera", "escaleraFiscal", "Escalera fiscal"},
    {"F_Piso", "pisoFiscal", "Piso fiscal"},
    {"F_Puerta", "puertaFiscal", "Puerta fiscal"},
    {"F_Cp", "codigoPostalFiscal", "Código postal fiscal"},
    {"F_Localidad", "localidadFiscal", "Localidad fiscal"},
    {"F_Provincia", "provinciaFiscal", "Provincia fiscal"},
    {"F_Pais", "paisFiscal", "País fiscal"},
    {"F_eMail", "correoFiscal", "Correo fiscal"},
    {"F_Web", "web", "Página web"},
    {"IntraCom", "intracomunitario", "Intracomunitario", C::Logico},
    {"Portes", "portesDebidos", "Portes debidos", C::Logico},
    {"Divisas", "divisa", "Divisa", C::Codigo},
    {"Ruta", "ruta", "Ruta", C::Codigo},
    {"Zona", "zona", "Zona", C::Codigo},
    {"Actividad", "actividad", "Actividad", C::Codigo},
    {"Agencia_Transp", "agenciaTransporte", "Agencia de transporte", C::Codigo},
    {"padre", "padre", "Cliente padre", C::Codigo},
    {"Almacen_Asoc", "almacenAsociado", "Almacén asociado", C::Codigo},
    {"Tarifa_Pvp", "tarifa", "Tarifa", C::Codigo},
    {"Tarifa_Promoc", "tarifaPromocion", "Tarifa de promoción", C::Codigo},
    {"Bloqueado", "bloqueado", "Bloqueado", C::Logico},
    {"Fecha_Bloq", "fechaBloqueo", "Fecha del bloqueo", C::Fecha},
    {"Motivo_Bloq", "motivoBloqueo", "Motivo del bloqueo"},
    {"Representante", "representante", "Representante", C::Codigo},
    {"Vendedor", "vendedor", "Vendedor", C::Codigo},
    {"Cobrador", "cobrador", "Cobrador", C::Codigo},
    {"Fecha_Especial", "fechaEspecial", "Fecha especial", C::Fecha},
    {"Desc_Especial", "descripcionFechaEspecial", "Motivo de la fecha especial"},
    {"Contravale", "contravale", "Contravale", C::Logico},
    {"Mtto", "mantenimiento", "Mantenimiento", C::Logico},
    {"Copias_Fra", "copiasFactura", "Copias de la factura", C::Cantidad},
    {"Mensaje", "mensaje", "Mensaje"},
    {"Tipo_Impresion", "tipoImpresion", "Tipo de impresión", C::Codigo},
    {"Tipo_Venta", "tipoVenta", "Tipo de venta", C::Codigo},
    {"Cod_Albaranes", "codigoAlbaranes", "Código de albaranes", C::Codigo},
    {"Periodo_Fact", "periodoFacturacion", "Periodo de facturación", C::Codigo},
    {"Fact_Indep", "facturaIndependiente", "Factura independiente", C::Logico},
    {"Cta_Cliente", "cuentaCliente", "Cuenta contable"},
    {"Cta_Retenciones", "cuentaRetenciones", "Cuenta de retenciones"},
    {"Cta_Efectos", "cuentaEfectos", "Cuenta de efectos"},
    {"Cta_Ventas", "cuentaVentas", "Cuenta de ventas"},
    {"Cta_DVentas", "cuentaDevoluciones", "Cuenta de devoluciones"},
    {"Cod_FPago", "formaPago", "Forma de pago", C::Codigo},
    {"DiaPago_1", "diaPago1", "Primer día de pago", C::Codigo},
    {"DiaPago_2", "diaPago2", "Segundo día de pago", C::Codigo},
    {"DiaCierre_1", "diaCierre1", "Primer día de cierre", C::Codigo},
    {"DiaCierre_2", "diaCierre2", "Segundo día de cierre", C::Codigo},
    {"TipoVenc", "tipoVencimiento", "Tipo de vencimiento", C::Codigo},
    {"Dias_Venc", "diasVencimiento", "Días de vencimiento", C::Cantidad},
    {"Tipo_Carta", "tipoCarta", "Tipo de carta", C::Codigo},
    {"Grupo_Dto", "grupoDescuento", "Grupo de descuentos", C::Codigo},
    {"Dto_1", "descuento1", "Descuento 1 %", C::Porcentaje},
    {"Dto_2", "descuento2", "Descuento 2 %", C::Porcentaje},
    {"Dto_3", "descuento3", "Descuento 3 %", C::Porcentaje},
    {"Dto_4", "descuento4", "Descuento 4 %", C::Porcentaje},
    {"Dto_5", "descuento5", "Descuento 5 %", C::Porcentaje},
    {"Dto_ProntoPago", "descuentoProntoPago", "Descuento por pronto pago %", C::Porcentaje},
    {"Retenciones", "retencion", "Retención %", C::Porcentaje},
    {"Rec_Financiero", "recargoFinanciero", "Recargo financiero %", C::Porcentaje},
    {"Cta_Bancaria", "cuentaBancaria", "Cuenta bancaria"},
    {"Cta_Remesas", "cuentaRemesas", "Cuenta de remesas"},
    {"Credito", "credito", "Crédito", C::Importe},
    {"Riesgo", "riesgo", "Riesgo", C::Importe},
    {"Observ", "observaciones", "Observaciones"},
    {"MsgAlerta", "mensajeAlerta", "Mensaje de alerta"},
    {"Serie", "serie", "Serie"},
    {"MaxPuntos", "maximoPuntos", "Máximo de puntos", C::Cantidad},
    {"FAlta", "fechaAlta", "Fecha de alta", C::Fecha},
    {"FBaja", "fechaBaja", "Fecha de baja", C::Fecha},
    {"FUVenta", "ultimaVenta", "Última venta", C::Fecha},
    {"FUCobro", "ultimoCobro", "Último cobro", C::Fecha},
    {"Alternativo1", "alternativo1", "Texto alternativo 1"},
    {"Alternativo2", "alternativo2", "Texto alternativo 2"},
    {"Alternativo3", "alternativo3", "Texto alternativo 3"},
    {"Alternativo4", "alternativo4", "Texto alternativo 4"},
    {"Alternativo5", "alternativo5", "Texto alternativo 5"},
    {"TipoCliente", "tipoCliente", "Tipo de cliente", C::Codigo},
    {"EnvioEDI", "envioEdi", "Envío por EDI", C::Logico},
    {"Cad_Nivel_1", "cadenaNivel1", "Cadena, nivel 1", C::Codigo},
    {"Cad_Nivel_2", "cadenaNivel2", "Cadena, nivel 2", C::Codigo},
    {"Cad_Nivel_3", "cadenaNivel3", "Cadena, nivel 3", C::Codigo},
    {"Cad_Nivel_4", "cadenaNivel4", "Cadena, nivel 4", C::Codigo},
    {"Cad_Nivel_5", "cadenaNivel5", "Cadena, nivel 5", C::Codigo},
    {"Cad_Nivel_6", "cadenaNivel6", "Cadena, nivel 6", C::Codigo},
    {"Cad_Nivel_7", "cadenaNivel7", "Cadena, nivel 7", C::Codigo},
    {"Cad_Nivel_8", "cadenaNivel8", "Cadena, nivel 8", C::Codigo},
    {"Cad_Nivel_9", "cadenaNivel9", "Cadena, nivel 9", C::Codigo},
    {"Cad_Nivel_10", "cadenaNivel10", "Cadena, nivel 10", C::Codigo},
    {"Factura_PedirLote", "facturaPideLote", "La factura pide lote", C::Logico},
    {"Factura_PedirVto", "facturaPideCaducidad", "La factura pide caducidad", C::Logico},
});
static_assert(std::equal(kDatosCliente.begin(), kDatosCliente.end(), kColumnasCliente.begin(), kColumnasCliente.end(),
                         [](const auto& dato, const auto& columna) { return dato.columna == columna.nombre; }));

constexpr ColumnaTabla kTelefonos[] = {{"", "telefono", "Teléfono"}};

struct AValor {
    const clsCliente& cliente;
    Valor operator()(std::optional<Fecha> clsCliente::*miembro) const {
        return cliente.*miembro ? Valor(*(cliente.*miembro)) : Valor(Nulo{});
    }
    template <class T>
    Valor operator()(T clsCliente::*miembro) const {
        return cliente.*miembro;
    }
};

}  // namespace

void Documentar(Documento& d, const aplicacion::RespuestaCliente& cliente) {
    for (std::size_t i = 0; i < kDatosCliente.size(); ++i) {
        const ColumnaTabla& dato = kDatosCliente[i];
        d.Dato(dato.clave, dato.rotulo, std::visit(AValor{cliente.ficha}, kColumnasCliente[i].destino), dato.clase);
    }
    aplicacion::Tabla telefonos{"telefonos", kTelefonos};
    for (const std::string& telefono : cliente.telefonos) telefonos.filas.push_back({telefono});
    d.Anadir({std::move(telefonos), "Teléfonos", {}});
}

void Documentar(Documento& d, const aplicacion::RespuestaEliminado& eliminado) {
    d.Dato("eliminado", "Cliente eliminado", eliminado.codigo, C::Codigo);
}

void Documentar(Documento& d, const aplicacion::RespuestaResumen& resumen) {
    d.Dato("codigo", "Cliente", resumen.codigo, C::Codigo);
    d.Dato("saldoAlbaranes", "Albaranes sin facturar", resumen.saldoAlbaranes, C::Importe);
    d.Dato("saldoPuntos", "Puntos", resumen.saldoPuntos, C::Cantidad);
    d.Dato("notasVencidas", "Notas vencidas en la empresa", resumen.notasVencidas, C::Logico);
    d.Dato("codigoNuevo", "Siguiente código libre", resumen.codigoNuevo, C::Codigo);
}

}  // namespace kv::host
