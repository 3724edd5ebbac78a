// What a person writes as a key, an amount or a day is read or refused; what is read reads the same written plainly.
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/fuzz/Exigir.h"
#include "kvdatosart/host/Lectura.h"
#include "kvdatosart/host/LecturaClaves.h"

namespace kv::difuso {
namespace {

// False when it is refused, as it must be: in words, and as what cannot be meant.
template <class F>
bool Leido(F&& leer, const std::string& texto) {
    try {
        leer();
        return true;
    } catch (const aplicacion::Rechazo& rechazo) {
        Exigir(rechazo.clase == aplicacion::Rechazo::Clase::Imposible && *rechazo.what() != '\0',
               "un rechazo dice por qué", texto);
        return false;
    }
}

void ProbarDescuento(const std::string& texto) {
    const auto clave = host::LeerClaveDescuento("clave", texto);
    std::string llana = std::to_string(clave.articulo) + "-" + std::to_string(clave.nivel);
    for (const auto familia : clave.familias) llana += "-" + std::to_string(familia);
    const auto otra = host::LeerClaveDescuento("clave", llana);
    Exigir(clave.articulo == otra.articulo && clave.nivel == otra.nivel && clave.familias == otra.familias,
           "la clave, escrita de nuevo", texto);
}

void ProbarNodo(const std::string& texto) {
    const auto nodo = host::LeerNodo("nodo", texto);
    std::string llano;
    for (const auto codigo : nodo)
        if (codigo != 0) llano += (llano.empty() ? "" : ".") + std::to_string(codigo);
    Exigir(host::LeerNodo("nodo", llano) == nodo, "el nodo, escrito de nuevo", texto);
}

void ProbarImporte(const std::string& texto) {
    const Currency importe = host::LeerImporte("importe", texto);
    Exigir(host::LeerImporte("importe", importe.ATexto(',').Cadena()) == importe, "el importe, con coma", texto);
}

}  // namespace
}  // namespace kv::difuso

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv;
    using namespace kv::difuso;
    const std::string texto = Texto(datos, largo);
    Leido([&] { ProbarDescuento(texto); }, texto);
    Leido([&] { ProbarNodo(texto); }, texto);
    Leido([&] { ProbarImporte(texto); }, texto);
    Leido([&] { host::LeerDescuentoAcuerdo("dto1", texto); }, texto);
    Leido([&] { host::LeerFamilias("familia", texto); }, texto);
    Leido([&] { host::LeerFecha("fecha", texto); }, texto);
    Leido([&] { host::LeerEntero("decimales", texto, -1, 4); }, texto);
    return 0;
}
