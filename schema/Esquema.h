#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/db/IdentidadBase.h"

namespace kv {

/// What marks an embedded database as ours ("KVDA") and the version of its tables: whoever changes a table in the
/// script gives it the next one, or a file made before would lack what the statements ask for. The production script
/// has no version; a new column brings its own ALTER TABLE there.
inline constexpr std::int32_t kAplicacionEsquema = 0x4B564441;
inline constexpr std::int32_t kVersionEsquema = 2;
/// Both, as who opens or makes a file asks for them: `ConexionSqlite::Abrir("tienda.kv", kIdentidadEsquema)`.
inline constexpr IdentidadBase kIdentidadEsquema{kAplicacionEsquema, kVersionEsquema};

/// Script of the embedded database: tables, indexes and stored procedures for an empty file.
const std::string& EsquemaSqlite();

/// Script of the production database, in batches that end with a line that says GO. It can be run again.
const std::string& EsquemaSqlServer();

}  // namespace kv
