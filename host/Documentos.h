#pragma once

#include "kvdatosart/application/Acuerdos.h"
#include "kvdatosart/application/Cambios.h"
#include "kvdatosart/application/Carga.h"
#include "kvdatosart/application/Clientes.h"
#include "kvdatosart/application/Descuentos.h"
#include "kvdatosart/application/Ensayos.h"
#include "kvdatosart/application/Existencias.h"
#include "kvdatosart/application/Historias.h"
#include "kvdatosart/application/Listados.h"
#include "kvdatosart/application/Precios.h"
#include "kvdatosart/application/Revisiones.h"
#include "kvdatosart/application/Tabla.h"
#include "kvdatosart/application/Tarifas.h"
#include "kvdatosart/host/Documento.h"

namespace kv::host {

// What each answer says, whoever writes it and in whatever form.

void Documentar(Documento& d, const aplicacion::RespuestaPvp& pvp);
void Documentar(Documento& d, const aplicacion::RespuestaCarga& carga);
void Documentar(Documento& d, const aplicacion::RespuestaHistoria& historia);
void Documentar(Documento& d, const aplicacion::RespuestaEnsayo& ensayo);
void Documentar(Documento& d, const aplicacion::RespuestaExistencias& existencias);
void Documentar(Documento& d, const aplicacion::RespuestaMovimiento& movimiento);
void Documentar(Documento& d, const aplicacion::RespuestaCliente& cliente);
void Documentar(Documento& d, const aplicacion::RespuestaEliminado& eliminado);
void Documentar(Documento& d, const aplicacion::RespuestaResumen& resumen);
void Documentar(Documento& d, const aplicacion::RespuestaPrecio& precio);
void Documentar(Documento& d, const aplicacion::RespuestaCambio& cambio);
void Documentar(Documento& d, const aplicacion::RespuestaDescuento& descuento);
void Documentar(Documento& d, const aplicacion::RespuestaAcuerdos& acuerdos);
void Documentar(Documento& d, const aplicacion::RespuestaEscritura& escritura);
void Documentar(Documento& d, const aplicacion::RespuestaListado& listado);
void Documentar(Documento& d, const std::vector<aplicacion::Hallazgo>& hallazgos);
void Documentar(Documento& d, const aplicacion::Tabla& tabla);

}  // namespace kv::host
