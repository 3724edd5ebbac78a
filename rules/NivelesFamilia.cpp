#include "kvdatosart/rules/NivelesFamilia.h"

#include <charconv>
#include <limits>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Tokens.h"

namespace kv {
namespace {

constexpr std::int32_t kEsperaSegundos = 500;

// Positions are counted from 1, 0 for none, and held in a byte.
std::size_t PosicionEnByte(std::size_t encontrada) {
    if (encontrada == std::string_view::npos) return 0;
    if (encontrada + 1 > std::numeric_limits<std::uint8_t>::max())
        LanzarError(kErrDesbordamiento, "separador de la clave más allá de la posición 255");
    return encontrada + 1;
}

// Takes the number behind the last separator off the key. Without one, the whole key is the number.
std::int16_t TomarUltimo(std::string_view& clave) {
    const std::size_t q = PosicionEnByte(clave.rfind('-'));
    const std::int16_t valor = AInteger(NumeroInicial(clave.substr(q)));
    clave = clave.substr(0, q == 0 ? 0 : q - 1);
    return valor;
}

}  // namespace

bool EsNivelArticulo(std::uint8_t nivel, std::int16_t numNiveles) {
    if (numNiveles == std::numeric_limits<std::int16_t>::max()) LanzarError(kErrDesbordamiento, "NumNiveles + 1");
    return nivel == numNiveles + 1;
}

double NumeroInicial(std::string_view texto) {
    std::string digitos;
    for (const char c : texto)
        if (c != ' ' && c != '\t' && c != '\n') digitos += c;
    const std::size_t cifras = !digitos.empty() && (digitos[0] == '-' || digitos[0] == '+') ? 1 : 0;
    const std::size_t fin = FinNumero(digitos, cifras);
    if (fin == cifras) return 0;
    double valor = 0;
    const char* inicio = digitos.data() + (digitos[0] == '+' ? 1 : 0);
    if (std::from_chars(inicio, digitos.data() + fin, valor).ec == std::errc::result_out_of_range)
        LanzarError(kErrDesbordamiento, digitos);
    return valor;
}

void LeerClaveDescuento(std::string_view clave, std::int16_t numNiveles, const CamposClave& campos) {
    const std::size_t p = PosicionEnByte(clave.find('-'));
    // The level ends at the next "-", which is no exponent's; one that stands first is its sign.
    const std::string_view nivel = clave.substr(p);
    campos.Nivel = AByte(NumeroInicial(nivel.substr(0, nivel.find('-', 1))));
    const std::string_view articulo = clave.substr(0, p == 0 ? 0 : p - 1);
    campos.Cod_Articulo = EsNivelArticulo(campos.Nivel, numNiveles) ? ALong(NumeroInicial(articulo)) : 0;
    std::string_view resto = clave;
    campos.Familia_3 = TomarUltimo(resto);
    campos.Familia_2 = TomarUltimo(resto);
    campos.Familia_1 = TomarUltimo(resto);
}

void PrepararDescuento(Command& comando, const char* procedimiento, const cEmpresa& empresa,
                       const PreguntaDescuento& pregunta) {
    const bool nivel1 = !empresa.CaptionFamilia(0).empty();
    const bool nivel2 = !empresa.CaptionFamilia(1).empty();
    const bool nivel3 = !empresa.CaptionFamilia(2).empty();
    std::uint8_t nivel = 2;
    if (nivel2) nivel = 3;
    if (nivel3) nivel = 4;
    std::uint8_t niveles = 1;
    if (nivel3)
        niveles = 3;
    else if (nivel2)
        niveles = 2;

    comando.CommandType = CommandType::adCmdStoredProc;
    comando.CommandTimeout = kEsperaSegundos;
    comando.CommandText = procedimiento;
    const auto entrada = [&](std::string_view nombre, DataType tipo, auto valor) {
        comando.Parameters.Append(nombre, tipo, ParameterDirection::adParamInput, 0, valor);
    };
    comando.Parameters.Append({"Return", DataType::adInteger, ParameterDirection::adParamReturnValue, 0, Nulo{}});
    entrada("@Empresa", DataType::adTinyInt, empresa.CodEmpresa());
    entrada("@Cliente", DataType::adInteger, pregunta.lngCliente);
    entrada("@Articulo", DataType::adInteger, pregunta.Cod_Articulo);
    entrada("@Familia1", DataType::adSmallInt, pregunta.Familia_1);
    entrada("@Familia2", DataType::adSmallInt, pregunta.Familia_2);
    entrada("@Familia3", DataType::adSmallInt, pregunta.Familia_3);
    entrada("@Nivel", DataType::adTinyInt, nivel);
    entrada("@Niveles", DataType::adTinyInt, niveles);
    entrada("@EmpFamilia1", DataType::adBoolean, nivel1);
    entrada("@EmpFamilia2", DataType::adBoolean, nivel2);
    entrada("@EmpFamilia3", DataType::adBoolean, nivel3);
}

std::string TextoDelFallo() {
    try {
        throw;
    } catch (const std::exception& fallo) {
        return fallo.what();
    } catch (...) {
        return "sin descripción";
    }
}

}  // namespace kv
