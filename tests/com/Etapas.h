#pragma once

#include "tests/com/ComandoFalso.h"
#include "tests/com/Comprobaciones.h"

// The parts of prueba_servidor. All but the last need the registered class.
namespace kv::prueba {

/// A recording with fakes that stand for its company and connection.
struct Escena {
    std::vector<Caso> casos;
    PunteroCom<EmpresaFalsa> empresa;
    PunteroCom<ConexionFalsa> conexion;

    /// A new object with both references and the variant of a case, whose load is what the fakes answer next.
    PunteroCom<::_clsDatosArt> Preparar(const Caso& caso) const;
    /// Loads a case through the vtable and checks its status.
    void Cargar(::_clsDatosArt& o, const Caso& caso) const;
};

/// Every member: description, slot and name.
void ProbarRanuras();
/// Every recorded load by name, in each way of passing the arguments; wrong ones.
void ProbarPorNombre(const Escena& escena);
/// Independence, references, identity, the class factory, parents and errors.
void ProbarObjetos(const Escena& escena);
/// Use without registration, through the manifest.
void ProbarManifiesto(const char* ruta);

}  // namespace kv::prueba
