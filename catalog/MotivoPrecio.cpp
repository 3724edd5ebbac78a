#include "kvdatosart/catalog/MotivoPrecio.h"

namespace kv {
namespace {

std::string TextoTarifa(OrigenTarifa origen, std::int16_t tarifa) {
    const std::string texto = "tarifa " + std::to_string(tarifa);
    switch (origen) {
        case OrigenTarifa::Pedida:
            return texto;
        case OrigenTarifa::PromocionCliente:
            return texto + " de promoción del cliente";
        case OrigenTarifa::Cliente:
            return texto + " del cliente";
        case OrigenTarifa::Empresa:
            return texto + " de la empresa";
    }
    return texto;
}

std::string TextoNodo(const NivelesCadena& nodo) {
    std::string texto;
    for (const std::int16_t nivel : nodo) {
        if (nivel == 0) break;
        texto += (texto.empty() ? "" : ".") + std::to_string(nivel);
    }
    return texto;
}

}  // namespace

std::string MotivoPrecio::Texto() const {
    std::string texto;
    switch (procedencia) {
        case ProcedenciaPrecio::Ninguna:
            texto = "sin precio";
            break;
        case ProcedenciaPrecio::Tarifa:
            texto = TextoTarifa(origen, tarifa);
            break;
        case ProcedenciaPrecio::Coste:
            texto = "a coste";
            break;
        case ProcedenciaPrecio::ClienteACoste:
            texto = "cliente a coste";
            break;
        case ProcedenciaPrecio::PrecioCliente:
            texto = "precio del cliente";
            break;
        case ProcedenciaPrecio::PrecioBaseCadena:
            texto = "precio base de cadena " + TextoNodo(nodo);
            break;
        case ProcedenciaPrecio::Convenio:
            texto = "convenio de precio";
            break;
    }
    if (descuentosCadena) texto += ", descuentos de cadena";
    if (descuentoGrupo) texto += ", descuento de grupo";
    if (descuentoFamilia) texto += ", descuento de familia";
    return texto;
}

void OyenteMotivo::Tarifa(const TarifaProbada& tarifa) {
    if (tarifa.hallada) tarifa_ = tarifa;
}

void OyenteMotivo::NodoBase(const NivelesCadena& nodo, const DiasAcuerdo* /*acuerdo*/, Currency base) {
    if (base != Currency()) nodo_ = nodo;
}

void OyenteMotivo::DescuentoLinea(FuenteDescuento fuente, Currency porcentaje) {
    if (porcentaje == Currency()) return;
    motivo_.descuentoGrupo = fuente == FuenteDescuento::Grupo;
    motivo_.descuentoFamilia = fuente == FuenteDescuento::Familia;
}

void OyenteMotivo::DescuentoFallido(FuenteDescuento /*fuente*/, std::string_view procedimiento,
                                    std::string_view fallo) {
    falloDescuento_ = "el procedimiento " + std::string(procedimiento) + " ha fallado: " + std::string(fallo);
}

void OyenteMotivo::Paso(const PasoPrecio& paso) {
    if (!paso.aplicada) return;
    const auto poner = [&](ProcedenciaPrecio procedencia) {
        motivo_.procedencia = procedencia;
        motivo_.tarifa = 0;
    };
    switch (paso.fuente) {
        case FuentePrecio::Tarifa:
            if (!paso.hallada) return;
            poner(ProcedenciaPrecio::Tarifa);
            motivo_.origen = tarifa_.origen;
            motivo_.tarifa = tarifa_.tarifa;
            return;
        case FuentePrecio::Coste:
            return poner(ProcedenciaPrecio::Coste);
        case FuentePrecio::CosteTipoCliente:
            return poner(ProcedenciaPrecio::ClienteACoste);
        case FuentePrecio::PrecioCliente:
            return poner(ProcedenciaPrecio::PrecioCliente);
        case FuentePrecio::PrecioBaseCadena:
            poner(ProcedenciaPrecio::PrecioBaseCadena);
            motivo_.nodo = nodo_;
            return;
        case FuentePrecio::ConvenioPvp:
            return poner(ProcedenciaPrecio::Convenio);
        case FuentePrecio::NetoCadena:
            motivo_.descuentosCadena = paso.antes != paso.despues;
            return;
        case FuentePrecio::Redondeo:
            return;
    }
}

}  // namespace kv
