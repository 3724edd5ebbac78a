#include "kvdatosart/application/Clientes.h"

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/db/Transaccion.h"

namespace kv::aplicacion {
namespace {

[[noreturn]] void NoExiste(std::int32_t codigo) {
    RechazarNegativa("codigo", "no existe el cliente " + std::to_string(codigo));
}

void Abrir(clsCliente& cliente, const Sesion& sesion, const PeticionCliente& peticion) {
    sesion.Inyectar(cliente);
    cliente.Codigo = peticion.codigo;
}

void AbrirExistente(clsCliente& cliente, const Sesion& sesion, const PeticionCliente& peticion) {
    Abrir(cliente, sesion, peticion);
    if (!cliente.Existe()) NoExiste(peticion.codigo);
}

void AbrirCargado(clsCliente& cliente, const Sesion& sesion, const PeticionCliente& peticion) {
    Abrir(cliente, sesion, peticion);
    if (!cliente.Cargar()) NoExiste(peticion.codigo);
}

void LeerTelefonos(RespuestaCliente& respuesta) {
    respuesta.ficha.Cargar_Telefonos();
    for (std::size_t i = 0; i < respuesta.ficha.NumeroTelefonos(); ++i)
        respuesta.telefonos.push_back(respuesta.ficha.Numero(i));
}

bool Dar(clsCliente& cliente, Paso paso) {
    switch (paso) {
        case Paso::Primero:
            return cliente.Cargar_Primero(nullptr);
        case Paso::Ultimo:
            return cliente.Cargar_Ultimo(nullptr);
        case Paso::Anterior:
            return cliente.Cargar_Anterior(nullptr);
        case Paso::Siguiente:
            break;
    }
    return cliente.Cargar_Siguiente(nullptr);
}

RespuestaFechaCliente Anotar(const Sesion& sesion, const PeticionFechaCliente& peticion,
                             void (clsCliente::*metodo)(Fecha), std::optional<Fecha> clsCliente::*dato) {
    const Fecha fecha = peticion.fecha.value_or(sesion.Hoy());
    ExigirPasada("fecha", fecha, sesion.Hoy(), peticion.forzar);
    clsCliente cliente;
    AbrirExistente(cliente, sesion, peticion);
    Transaccion transaccion(sesion.Cnx());
    (cliente.*metodo)(fecha);
    cliente.Cargar();
    transaccion.Confirmar();
    return {cliente.Codigo, cliente.*dato};
}

}  // namespace

RespuestaCliente VerCliente(const Sesion& sesion, const PeticionCliente& peticion) {
    RespuestaCliente respuesta;
    AbrirCargado(respuesta.ficha, sesion, peticion);
    LeerTelefonos(respuesta);
    return respuesta;
}

RespuestaCliente RecorrerClientes(const Sesion& sesion, const PeticionRecorrido& peticion) {
    RespuestaCliente respuesta;
    // By name, the neighbour is the one of the customer's name.
    if (peticion.paso == Paso::Anterior || peticion.paso == Paso::Siguiente)
        AbrirCargado(respuesta.ficha, sesion, peticion);
    else
        sesion.Inyectar(respuesta.ficha);
    respuesta.ficha.FichaClienteModoDesp = peticion.porNombre;
    if (!Dar(respuesta.ficha, peticion.paso)) RechazarNegativa("codigo", "no hay más clientes en esa dirección");
    LeerTelefonos(respuesta);
    return respuesta;
}

RespuestaEliminado EliminarCliente(const Sesion& sesion, const PeticionEliminarCliente& peticion) {
    clsCliente cliente;
    AbrirExistente(cliente, sesion, peticion);
    if (!cliente.Eliminar(peticion.forzar))
        RechazarNegativa("codigo", "el cliente " + std::to_string(peticion.codigo) + " no se ha eliminado");
    return {peticion.codigo};
}

RespuestaResumen ResumirCliente(const Sesion& sesion, const PeticionResumen& peticion) {
    clsCliente cliente;
    AbrirExistente(cliente, sesion, peticion);
    return {cliente.Codigo, cliente.Dev_SaldoAlbaranes(), cliente.Dev_SaldoPuntos(), cliente.Verif_Notas(),
            cliente.Dev_Codigo_Nuevo(peticion.minimo)};
}

RespuestaFechaCliente AnotarVenta(const Sesion& sesion, const PeticionFechaCliente& peticion) {
    return Anotar(sesion, peticion, &clsCliente::Act_FUVenta, &clsCliente::FUVenta);
}

RespuestaFechaCliente AnotarCobro(const Sesion& sesion, const PeticionFechaCliente& peticion) {
    return Anotar(sesion, peticion, &clsCliente::Act_FUCobro, &clsCliente::FUCobro);
}

}  // namespace kv::aplicacion
