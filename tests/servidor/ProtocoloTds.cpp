#include <algorithm>
#include <bit>
#include <cstdlib>
#include <stdexcept>

#include "kvdatosart/db/odbc/TextoAncho.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/schema/Lotes.h"
#include "kvdatosart/tests/servidor/ServidorTds.h"

namespace kv::prueba {
namespace {

struct Forma {
    const char* nombre;
    unsigned marca;
    int octetos;
    std::string_view detalle = {};
};

constexpr TipoTds kLogico = 1;
constexpr TipoTds kDinero = 8;
constexpr TipoTds kTexto = 10;
constexpr Forma kFormas[] = {{"", 0xA7, 8000, kIntercalacion},
                             {"bit", 0x68, 1},
                             {"tinyint", 0x26, 1},
                             {"smallint", 0x26, 2},
                             {"int", 0x26, 4},
                             {"bigint", 0x26, 8},
                             {"", 0x6D, 8},
                             {"float", 0x6D, 8},
                             {"money", 0x6E, 8},
                             {"datetime", 0x6F, 8},
                             {"varchar", 0xA7, 8000, kIntercalacion},
                             {"", 0x6A, 9, "\x13\x04"}};

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

std::uint64_t Bits(const Forma& forma, const Valor& valor) {
    switch (forma.marca) {
        case 0x68:
            return ABoolean(valor) ? 1 : 0;
        case 0x6D:
            return std::bit_cast<std::uint64_t>(ADouble(valor));
        case 0x6E:
            // Its upper half travels first.
            return std::rotl(static_cast<std::uint64_t>(ACurrency(valor).Diezmilesimas()), 32);
        case 0x6F:
            return static_cast<std::uint32_t>(static_cast<std::int32_t>(ADate(valor).AOle()) - kEpoca);
        default:
            return static_cast<std::uint64_t>(forma.octetos == 8 ? std::get<std::int64_t>(valor) : ALong(valor));
    }
}

}  // namespace

MensajeTds& MensajeTds::Numero(std::uint64_t valor, int octetos) {
    for (int i = 0; i < octetos; ++i) bytes_.push_back(static_cast<char>(valor >> (8 * i) & 0xFFU));
    return *this;
}

MensajeTds& MensajeTds::Octetos(std::string_view bytes) {
    bytes_ += bytes;
    return *this;
}

MensajeTds& MensajeTds::Texto(std::string_view texto, int octetosDelLargo) {
    TextoAncho ancho;
    AAncho(texto, ancho);
    Numero(ancho.size(), octetosDelLargo);
    for (const SQLWCHAR unidad : ancho) Numero(unidad, 2);
    return *this;
}

MensajeTds& MensajeTds::Parte(unsigned marca, const MensajeTds& contenido) {
    return Numero(marca, 1).Numero(contenido.bytes_.size(), 2).Octetos(contenido.bytes_);
}

std::string_view LecturaTds::Octetos(std::size_t cuantos) {
    if (cuantos > quedan_.size()) throw std::runtime_error("el mensaje acaba antes de tiempo");
    const std::string_view leidos = quedan_.substr(0, cuantos);
    quedan_.remove_prefix(cuantos);
    return leidos;
}

std::uint64_t LecturaTds::Numero(std::size_t octetos) {
    std::uint64_t valor = 0;
    const std::string_view leidos = Octetos(octetos);
    for (auto c = leidos.rbegin(); c != leidos.rend(); ++c) valor = valor << 8U | static_cast<unsigned char>(*c);
    return valor;
}

std::string LecturaTds::Texto(std::size_t unidades) {
    TextoAncho ancho;
    std::string texto;
    while (unidades-- > 0) ancho.push_back(static_cast<SQLWCHAR>(Numero(2)));
    DeAncho(ancho.data(), ancho.size(), texto);
    return texto;
}

std::vector<Token> TokensDe(std::string_view texto) {
    std::vector<Token> tokens;
    LectorTokens lector(texto);
    for (Token token = lector.Siguiente(); token.tipo != Token::Tipo::Fin; token = lector.Siguiente())
        tokens.push_back(token);
    return tokens;
}

std::map<std::string, ObjetoTds> ObjetosDelEsquema() {
    std::map<std::string, ObjetoTds> objetos;
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) {
        const std::vector<Token> tokens = TokensDe(lote);
        auto token = std::find_if(tokens.begin(), tokens.end(), [](const Token& uno) {
            return uno.EsPalabra("TABLE") || uno.EsPalabra("PROCEDURE");
        });
        if (token == tokens.end()) continue;
        ObjetoTds& objeto = objetos[std::string((++token)->texto)];
        for (; tokens.end() - token > 2 && !token->EsPalabra("AS"); ++token) {
            for (TipoTds tipo = 0; tipo < kDecimal; ++tipo)
                if (token[1].texto == kFormas[tipo].nombre)
                    objeto.columnas.push_back({std::string(token->texto), tipo, token[2].EsPalabra("OUTPUT")});
            if (!token->EsPalabra("CLUSTERED")) continue;
            for (++token; !token->Es(')'); ++token)
                if (token->tipo == Token::Tipo::Nombre) objeto.clave.emplace_back(token->texto);
        }
    }
    return objetos;
}

void EscribirTipo(MensajeTds& mensaje, TipoTds tipo) {
    const Forma& forma = kFormas[tipo];
    mensaje.Numero(forma.marca, 1).Numero(static_cast<std::uint64_t>(forma.octetos), forma.octetos > 255 ? 2 : 1);
    mensaje.Octetos(forma.detalle);
}

void EscribirValor(MensajeTds& mensaje, TipoTds tipo, const Valor& valor) {
    const Forma& forma = kFormas[tipo];
    if (tipo == 0 || tipo == kTexto) {
        if (EsNulo(valor)) return void(mensaje.Numero(0xFFFF, 2));
        const std::string pagina = EnPagina1252(std::get<std::string>(valor));
        mensaje.Numero(pagina.size(), 2).Octetos(pagina);
    } else if (EsNulo(valor)) {
        mensaje.Numero(0, 1);
    } else if (tipo == kDecimal) {
        const std::int64_t diezmilesimas = ACurrency(valor).Diezmilesimas();
        mensaje.Numero(9, 1).Numero(diezmilesimas < 0 ? 0 : 1, 1);
        mensaje.Numero(static_cast<std::uint64_t>(std::abs(diezmilesimas)), 8);
    } else {
        mensaje.Numero(static_cast<std::uint64_t>(forma.octetos), 1).Numero(Bits(forma, valor), forma.octetos);
    }
}

Valor LeerParametro(LecturaTds& lectura, const ColumnaTds& declarado) {
    const bool decimal = declarado.tipo == kDinero;
    const Forma& forma = kFormas[decimal ? kDecimal : declarado.tipo];
    lectura.Texto(lectura.Numero(1));
    const bool sale = lectura.Numero(1) == 1;
    const bool marcado = lectura.Numero(1) == forma.marca;
    lectura.Octetos(1);
    if (sale != declarado.sale || !marcado || lectura.Octetos(forma.detalle.size()) != forma.detalle)
        throw std::runtime_error("dirección o tipo de " + declarado.nombre);
    const std::size_t octetos = lectura.Numero(1);
    if (octetos == 0) return Nulo{};
    const bool negativo = decimal && lectura.Numero(1) == 0;
    const auto numero = static_cast<std::int64_t>(lectura.Numero(decimal ? octetos - 1 : octetos));
    if (decimal) return Currency::DeDiezmilesimas(negativo ? -numero : numero);
    if (declarado.tipo == kLogico) return numero != 0;
    return octetos == 2 ? static_cast<std::int16_t>(numero) : static_cast<std::int32_t>(numero);
}

}  // namespace kv::prueba
