#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvdatosart/db/Command.h"
#include "kvdatosart/db/cEmpresa.h"

namespace kv {

/// The fields that the key of a discount row fills: "article-level-family1-family2-family3".
struct CamposClave {
    std::uint8_t& Nivel;
    std::int32_t& Cod_Articulo;
    std::int16_t& Familia_1;
    std::int16_t& Familia_2;
    std::int16_t& Familia_3;
};

/// True when `nivel` is the article level: one more than the number of family levels. Error 6 when that number is
/// 32767.
bool EsNivelArticulo(std::uint8_t nivel, std::int16_t numNiveles);

/// Reads a key into the fields, level and article first and then the families from the last to the first. Missing
/// separators give wrong fields without an error; a separator beyond position 255 and a number too large for its field
/// are error 6, with the fields before it filled. The article is 0 on family rows.
void LeerClaveDescuento(std::string_view clave, std::int16_t numNiveles, const CamposClave& campos);

/// The number that a text begins with (blanks skipped, sign, digits, one point, exponent), 0 when it begins with none.
double NumeroInicial(std::string_view texto);

/// What both discount procedures are asked about.
struct PreguntaDescuento {
    std::int32_t lngCliente;
    std::int32_t Cod_Articulo;
    std::int16_t Familia_1;
    std::int16_t Familia_2;
    std::int16_t Familia_3;
};

/// Makes `comando` a call of the procedure with the parameters that both share, from "Return" to "@EmpFamilia3". The
/// levels come from the family captions that the company uses.
void PrepararDescuento(Command& comando, const char* procedimiento, const cEmpresa& empresa,
                       const PreguntaDescuento& pregunta);

/// To be called inside a handler: the text of the failure being handled.
std::string TextoDelFallo();

}  // namespace kv
