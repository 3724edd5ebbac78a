#pragma once

#include <memory>
#include <string>

#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/tests/comun/FicheroTemporal.h"
#include "kvdatosart/tests/comun/LeerValor.h"

namespace kv::prueba {

/// A real database file of the suite's schema, with or without the demonstration data, gone at the end.
class BaseDePrueba {
  public:
    enum class Datos : std::uint8_t { Ninguno, Demostracion };

    BaseDePrueba(Datos datos, Fecha hoy) {
        ConexionSqlite::Crear(ruta_, kIdentidad, EsquemaSqlite(), [&](Connection& conexion) {
            if (datos == Datos::Demostracion) CargarDemostracion(conexion, hoy);
        });
    }

    /// A copy of the file, while nobody has it open.
    BaseDePrueba(const BaseDePrueba& otra) { std::filesystem::copy_file(otra.ruta_, ruta_); }

    std::shared_ptr<ConexionSqlite> Abrir() const {
        return ConexionSqlite::Abrir(ruta_, kIdentidad, ConexionSqlite::Modo::LecturaEscritura);
    }
    /// A connection whose commits need not survive a power cut.
    std::shared_ptr<ConexionSqlite> AbrirSinDisco() const {
        auto conexion = Abrir();
        conexion->Ejecutar("PRAGMA synchronous = OFF");
        return conexion;
    }
    const std::string& Ruta() const { return ruta_; }

  private:
    static constexpr IdentidadBase kIdentidad = kIdentidadEsquema;

    CarpetaTemporal carpeta_;
    std::string ruta_ = carpeta_.Fichero("prueba.kv");
};

}  // namespace kv::prueba
