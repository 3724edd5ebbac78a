#include "kvdatosart/host/LecturaClaves.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <vector>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/Lectura.h"

namespace kv::host {
namespace {

using aplicacion::DescuentoAcuerdo;
using aplicacion::RechazarImposible;
using aplicacion::TipoMovimiento;

std::vector<std::string> Partir(std::string_view texto, char separador) {
    std::vector<std::string> trozos;
    for (auto pos = texto.find(separador); pos != std::string_view::npos; pos = texto.find(separador)) {
        trozos.emplace_back(texto.substr(0, pos));
        texto.remove_prefix(pos + 1);
    }
    trozos.emplace_back(texto);
    return trozos;
}

}  // namespace

NivelesCadena LeerNodo(const std::string& campo, const std::string& texto) {
    NivelesCadena nodo{};
    const std::vector<std::string> codigos = Partir(texto, '.');
    if (codigos.size() > nodo.size())
        RechazarImposible(campo, "«" + texto + "» no vale; se esperan de 1 a 10 códigos separados por puntos");
    for (std::size_t i = 0; i < codigos.size(); ++i) nodo[i] = LeerCodigo(campo, codigos[i]);
    return nodo;
}

DescuentoAcuerdo LeerDescuentoAcuerdo(const std::string& campo, const std::string& texto) {
    const auto partes = Partir(texto, ':');
    const std::string clase = partes.size() == 2 ? partes[0] : "";
    if (clase == "porcentaje") return {DescuentoAcuerdo::Tipo::Porcentaje, LeerImporte(campo, partes[1])};
    if (clase == "cascada") return {DescuentoAcuerdo::Tipo::Cascada, LeerImporte(campo, partes[1])};
    if (clase == "importe") return {DescuentoAcuerdo::Tipo::Importe, LeerImporte(campo, partes[1])};
    const auto unidades = Partir(partes.back(), '+');
    if (clase != "oferta" || unidades.size() != 2)
        RechazarImposible(
            campo, "«" + texto + "» no vale; se espera porcentaje:X, cascada:X, importe:X u oferta:PAGADAS+GRATIS");
    return {DescuentoAcuerdo::Tipo::Oferta, LeerImporte(campo, unidades[0]), LeerCodigo(campo, unidades[1], 0)};
}

aplicacion::ClaveDescuento LeerClaveDescuento(const std::string& campo, const std::string& texto) {
    const auto partes = Partir(texto, '-');
    if (partes.size() != 5)
        RechazarImposible(campo, "«" + texto + "» no vale; se espera artículo-nivel-familia1-familia2-familia3");
    aplicacion::ClaveDescuento clave;
    clave.articulo = LeerEntero(campo, partes[0], 0, std::numeric_limits<std::int32_t>::max());
    clave.nivel = static_cast<std::uint8_t>(LeerEntero(campo, partes[1], 0, 255));
    for (std::size_t i = 0; i < clave.familias.size(); ++i) clave.familias[i] = LeerCodigo(campo, partes[i + 2], 0);
    return clave;
}

aplicacion::Familias LeerFamilias(const std::string& campo, const std::string& texto) {
    aplicacion::Familias familias{};
    const std::vector<std::string> codigos = Partir(texto, '.');
    if (codigos.size() > familias.size())
        RechazarImposible(campo, "«" + texto + "» no vale; se esperan de 1 a 3 códigos separados por puntos");
    for (std::size_t i = 0; i < codigos.size(); ++i) familias[i] = LeerCodigo(campo, codigos[i]);
    return familias;
}

TipoMovimiento LeerTipoMovimiento(const std::string& campo, const std::string& texto) {
    for (const auto tipo : {TipoMovimiento::Compra, TipoMovimiento::Venta, TipoMovimiento::Devolucion,
                            TipoMovimiento::Entrada, TipoMovimiento::Salida})
        if (texto == NombreDe(tipo)) return tipo;
    RechazarImposible(campo, "«" + texto + "» no vale; se espera compra, venta, devolucion, entrada o salida");
}

}  // namespace kv::host
