#pragma once

#include "application/Acuerdos.h"
#include "application/Carga.h"
#include "application/Clientes.h"
#include "application/Descuentos.h"
#include "application/Existencias.h"
#include "application/Listados.h"
#include "application/Precios.h"
#include "application/Tabla.h"
#include "application/Tarifas.h"
#include "host/Respuesta.h"

namespace kv::host {

// What each answer says, whoever writes it and in whatever form.

void Documentar(Respuesta& r, const aplicacion::RespuestaPvp& pvp);
void Documentar(Respuesta& r, const aplicacion::RespuestaCarga& carga);
void Documentar(Respuesta& r, const aplicacion::RespuestaExistencias& existencias);
void Documentar(Respuesta& r, const aplicacion::RespuestaMovimiento& movimiento);
void Documentar(Respuesta& r, const aplicacion::RespuestaCliente& cliente);
void Documentar(Respuesta& r, const aplicacion::RespuestaEliminado& eliminado);
void Documentar(Respuesta& r, const aplicacion::RespuestaResumen& resumen);
void Documentar(Respuesta& r, const aplicacion::RespuestaPrecio& precio);
void Documentar(Respuesta& r, const aplicacion::RespuestaDescuento& descuento);
void Documentar(Respuesta& r, const aplicacion::RespuestaAcuerdos& acuerdos);
void Documentar(Respuesta& r, const aplicacion::RespuestaEscritura& escritura);
void Documentar(Respuesta& r, const aplicacion::RespuestaListado& listado);
void Documentar(Respuesta& r, const aplicacion::Tabla& tabla);

}  // namespace kv::host
