#include "tests/servidor/TiposTds.h"

#include <algorithm>
#include <array>
#include <bit>

#include "db/Nombres.h"
#include "schema/Esquema.h"
#include "schema/Lotes.h"

namespace kv::prueba {
namespace {

struct Forma {
    TipoTds tipo;
    const char* nombre;
    unsigned marca;
    int octetos;
};

constexpr auto kFormas = std::to_array<Forma>({{TipoTds::Logico, "bit", 0x68, 1},
                                               {TipoTds::Octeto, "tinyint", 0x26, 1},
                                               {TipoTds::Corto, "smallint", 0x26, 2},
                                               {TipoTds::Largo, "int", 0x26, 4},
                                               {TipoTds::Grande, "bigint", 0x26, 8},
                                               {TipoTds::Doble, "float", 0x6D, 8},
                                               {TipoTds::Dinero, "money", 0x6E, 8},
                                               {TipoTds::Momento, "datetime", 0x6F, 8},
                                               {TipoTds::Texto, "varchar", 0xA7, 8000}});

const Forma& FormaDe(TipoTds tipo) {
    return kFormas[static_cast<std::size_t>(tipo)];
}

// The server's days count from 01/01/1900, two after the epoch of the component's numbers.
constexpr int kEpoca = 2;

std::string EnPagina1252(const std::string& texto) {
    TextoAncho ancho;
    AAncho(texto, ancho);
    std::string pagina;
    for (const SQLWCHAR unidad : ancho) {
        const unsigned octeto = unidad == 0x20AC ? 0x80U : unidad;
        if (octeto > 0xFF) throw std::runtime_error("no cabe en la página 1252: " + texto);
        pagina.push_back(static_cast<char>(octeto));
    }
    return pagina;
}

std::uint64_t Bits(TipoTds tipo, const Valor& valor) {
    switch (tipo) {
        case TipoTds::Logico:
            return ABoolean(valor) ? 1 : 0;
        case TipoTds::Octeto:
            return AByte(valor);
        case TipoTds::Grande:
            return static_cast<std::uint64_t>(std::get<std::int64_t>(valor));
        case TipoTds::Doble:
            return std::bit_cast<std::uint64_t>(ADouble(valor));
        case TipoTds::Dinero:
            // Its upper half travels first.
            return std::rotl(static_cast<std::uint64_t>(ACurrency(valor).Diezmilesimas()), 32);
        case TipoTds::Momento:
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(ADate(valor).AOle()) - kEpoca);
        default:
            return static_cast<std::uint64_t>(ALong(valor));
    }
}

Currency LeerDecimal(LecturaTds& lectura, std::size_t octetos) {
    const bool positivo = lectura.Numero(1) != 0;
    const auto diezmilesimas = static_cast<std::int64_t>(lectura.Numero(octetos - 1));
    return Currency::DeDiezmilesimas(positivo ? diezmilesimas : -diezmilesimas);
}

}  // namespace

TipoTds TipoDeValor(const Valor& valor) {
    constexpr std::array kTipos = {TipoTds::Texto,  TipoTds::Logico,  TipoTds::Octeto, TipoTds::Corto,
                                   TipoTds::Largo,  TipoTds::Grande,  TipoTds::Doble,  TipoTds::Doble,
                                   TipoTds::Dinero, TipoTds::Momento, TipoTds::Texto};
    return kTipos[valor.index()];
}

std::map<std::string, std::map<std::string, TipoTds>> TiposDelEsquema() {
    std::map<std::string, std::map<std::string, TipoTds>> tablas;
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) {
        const std::vector<Token> tokens = TokensDe(lote);
        auto token =
            std::find_if(tokens.begin(), tokens.end(), [](const Token& uno) { return uno.EsPalabra("TABLE"); });
        if (token == tokens.end()) continue;
        auto& columnas = tablas[Minusculas((++token)->texto)];
        for (; token + 1 < tokens.end(); ++token)
            for (const Forma& forma : kFormas)
                if (token[1].texto == forma.nombre) columnas[Minusculas(token->texto)] = forma.tipo;
    }
    return tablas;
}

std::vector<Token> TokensDe(std::string_view texto) {
    std::vector<Token> tokens;
    LectorTokens lector(texto);
    for (Token token = lector.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector.Siguiente())
        tokens.push_back(token);
    return tokens;
}

void EscribirTipo(MensajeTds& mensaje, TipoTds tipo) {
    const Forma& forma = FormaDe(tipo);
    mensaje.Numero(forma.marca, 1);
    mensaje.Numero(static_cast<std::uint64_t>(forma.octetos), tipo == TipoTds::Texto ? 2 : 1);
    if (tipo == TipoTds::Texto) mensaje.Octetos(kIntercalacion);
}

void EscribirValor(MensajeTds& mensaje, TipoTds tipo, const Valor& valor) {
    if (tipo == TipoTds::Texto) {
        if (EsNulo(valor)) return mensaje.Numero(0xFFFF, 2);
        const std::string pagina = EnPagina1252(std::get<std::string>(valor));
        mensaje.Numero(pagina.size(), 2);
        return mensaje.Octetos(pagina);
    }
    if (EsNulo(valor)) return mensaje.Numero(0, 1);
    mensaje.Numero(static_cast<std::uint64_t>(FormaDe(tipo).octetos), 1);
    mensaje.Numero(Bits(tipo, valor), FormaDe(tipo).octetos);
}

ParametroTds LeerParametro(LecturaTds& lectura) {
    lectura.Texto(lectura.Numero(1));
    ParametroTds parametro;
    parametro.sale = lectura.Numero(1) == 1;
    const auto marca = lectura.Numero(1);
    lectura.Octetos(marca == 0x6A ? 3 : 1);
    const std::size_t octetos = lectura.Numero(1);
    if (marca != 0x26 && marca != 0x68 && marca != 0x6A)
        throw std::runtime_error("parámetro de tipo " + std::to_string(marca));
    if (octetos == 0) return parametro;
    if (marca == 0x6A)
        parametro.valor = LeerDecimal(lectura, octetos);
    else if (marca == 0x68)
        parametro.valor = lectura.Numero(octetos) != 0;
    else if (octetos == 2)
        parametro.valor = static_cast<std::int16_t>(lectura.Numero(octetos));
    else
        parametro.valor = static_cast<std::int32_t>(lectura.Numero(octetos));
    return parametro;
}

void EscribirDecimal(MensajeTds& mensaje, const Valor& valor) {
    mensaje.Octetos({"\x6A\x11\x13\x04", 4});
    if (EsNulo(valor)) return mensaje.Numero(0, 1);
    const std::int64_t diezmilesimas = ACurrency(valor).Diezmilesimas();
    mensaje.Numero(9, 1);
    mensaje.Numero(diezmilesimas < 0 ? 0 : 1, 1);
    mensaje.Numero(static_cast<std::uint64_t>(diezmilesimas < 0 ? -diezmilesimas : diezmilesimas), 8);
}

}  // namespace kv::prueba
