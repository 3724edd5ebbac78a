#pragma once

#include "tests/com/Comprobaciones.h"
#include "tests/com/Escena.h"

// The parts of prueba_com. The first three need the registered class, the last two that it is not registered.
namespace kv::prueba {

/// A new object with the scene's references and the variant of a case, whose load is what the fakes answer next.
PunteroCom<::_clsDatosArt> Preparar(const Escena& escena, const Caso& caso);
/// Loads a case through the vtable.
Llamada CargarPorRanura(::_clsDatosArt& o, const Caso& caso);

/// Every member: description, slot and name.
void ProbarRanuras();
/// Every recorded load with its price and parent; wrong arguments.
void ProbarCargas(const Escena& escena);
/// References, identity, the class factory, parents, errors and null pointers.
void ProbarObjetos(const Escena& escena);
/// The keys that the registration's own code makes, and what removal leaves.
void ProbarClaves();
/// Use without registration, through the manifest.
void ProbarManifiesto(const char* ruta);

}  // namespace kv::prueba
