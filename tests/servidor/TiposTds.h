#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Valor.h"
#include "db/Tokens.h"
#include "tests/servidor/MensajeTds.h"

namespace kv::prueba {

/// The types of the production script's columns, as they travel; a text is a varchar in the code page of western
/// Europe.
enum class TipoTds : std::uint8_t { Logico, Octeto, Corto, Largo, Grande, Doble, Dinero, Momento, Texto };

/// The type of an expression that gave this value; a text for NULL.
TipoTds TipoDeValor(const Valor& valor);
/// The types of the columns of every table of the production script, under their names in lower case.
std::map<std::string, std::map<std::string, TipoTds>> TiposDelEsquema();
/// The pieces of a statement or of a batch, which must outlive them.
std::vector<Token> TokensDe(std::string_view texto);

void EscribirTipo(MensajeTds& mensaje, TipoTds tipo);
void EscribirValor(MensajeTds& mensaje, TipoTds tipo, const Valor& valor);

struct ParametroTds {
    bool sale = false;
    Valor valor;
};
/// A parameter of a call; std::runtime_error for a type that no procedure of the suite takes.
ParametroTds LeerParametro(LecturaTds& lectura);
/// decimal(19,4), as which the component asks for amounts.
void EscribirDecimal(MensajeTds& mensaje, const Valor& valor);

/// Code page, language and comparison of the texts.
inline constexpr std::string_view kIntercalacion{"\x0A\x0C\xD0\x00\x00", 5};

}  // namespace kv::prueba
