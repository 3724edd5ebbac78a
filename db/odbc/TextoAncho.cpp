#include "kvdatosart/db/odbc/TextoAncho.h"

#include <cstdint>
#include <cstring>

#include "kvdatosart/base/RuntimeError.h"

namespace kv {
namespace {

constexpr std::uint32_t kSustituto = 0xFFFD;

bool EsAlta(std::uint32_t unidad) {
    return unidad >= 0xD800 && unidad < 0xDC00;
}
bool EsBaja(std::uint32_t unidad) {
    return unidad >= 0xDC00 && unidad < 0xE000;
}

// The character that starts at `pos`, which moves past it.
std::uint32_t LeerCaracter(std::string_view utf8, std::size_t& pos) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(static_cast<unsigned char>(utf8[i])); };
    const std::uint32_t primero = byte(pos);
    std::size_t largo = 0;
    std::uint32_t minimo = 0;
    if (primero >= 0xC2 && primero < 0xE0) largo = 2, minimo = 0x80;
    if (primero >= 0xE0 && primero < 0xF0) largo = 3, minimo = 0x800;
    if (primero >= 0xF0 && primero < 0xF5) largo = 4, minimo = 0x10000;
    bool valido = largo != 0 && pos + largo <= utf8.size();
    std::uint32_t caracter = valido ? primero & (0x7FU >> largo) : 0;
    for (std::size_t i = 1; valido && i < largo; ++i) {
        valido = (byte(pos + i) & 0xC0U) == 0x80U;
        caracter = caracter << 6U | (byte(pos + i) & 0x3FU);
    }
    if (!valido || caracter < minimo || caracter > 0x10FFFF || EsAlta(caracter) || EsBaja(caracter))
        LanzarError(kErrTipo, "el texto no es UTF-8 a partir del byte " + std::to_string(pos));
    pos += largo;
    return caracter;
}

void AgregarUtf8(std::string& utf8, std::uint32_t caracter) {
    const auto agregar = [&](std::uint32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    if (caracter < 0x80) {
        agregar(caracter);
        return;
    }
    if (caracter < 0x800) {
        agregar(0xC0U | caracter >> 6U);
    } else {
        if (caracter < 0x10000) {
            agregar(0xE0U | caracter >> 12U);
        } else {
            agregar(0xF0U | caracter >> 18U);
            agregar(0x80U | (caracter >> 12U & 0x3FU));
        }
        agregar(0x80U | (caracter >> 6U & 0x3FU));
    }
    agregar(0x80U | (caracter & 0x3FU));
}

// Most of what travels is ASCII and changes its width by pieces of this many characters.
constexpr std::size_t kPieza = 8;

bool EsPiezaAscii(const char* utf8) {
    std::uint64_t bytes = 0;
    std::memcpy(&bytes, utf8, kPieza);
    return (bytes & 0x8080808080808080U) == 0;
}
bool EsPiezaAscii(const SQLWCHAR* ancho) {
    SQLWCHAR juntas = 0;
    for (std::size_t i = 0; i < kPieza; ++i) juntas |= ancho[i];
    return juntas < 0x80;
}

}  // namespace

void AAncho(std::string_view utf8, TextoAncho& ancho) {
    // No character takes more units than bytes.
    ancho.resize(utf8.size());
    std::size_t unidades = 0;
    for (std::size_t pos = 0; pos < utf8.size();) {
        if (pos + kPieza <= utf8.size() && EsPiezaAscii(utf8.data() + pos)) {
            for (std::size_t i = 0; i < kPieza; ++i) ancho[unidades + i] = static_cast<unsigned char>(utf8[pos + i]);
            pos += kPieza;
            unidades += kPieza;
            continue;
        }
        const auto byte = static_cast<unsigned char>(utf8[pos]);
        if (byte < 0x80) {
            ancho[unidades++] = byte;
            ++pos;
            continue;
        }
        const std::uint32_t caracter = LeerCaracter(utf8, pos);
        if (caracter < 0x10000) {
            ancho[unidades++] = static_cast<SQLWCHAR>(caracter);
        } else {
            ancho[unidades++] = static_cast<SQLWCHAR>(0xD800U + ((caracter - 0x10000U) >> 10U));
            ancho[unidades++] = static_cast<SQLWCHAR>(0xDC00U + (caracter & 0x3FFU));
        }
    }
    ancho.resize(unidades);
}

void DeAncho(const SQLWCHAR* ancho, std::size_t unidades, std::string& utf8) {
    utf8.resize(unidades);
    std::size_t pos = 0;
    for (; pos + kPieza <= unidades && EsPiezaAscii(ancho + pos); pos += kPieza)
        for (std::size_t i = 0; i < kPieza; ++i) utf8[pos + i] = static_cast<char>(ancho[pos + i]);
    for (; pos < unidades && ancho[pos] < 0x80; ++pos) utf8[pos] = static_cast<char>(ancho[pos]);
    utf8.resize(pos);
    while (pos < unidades) {
        std::uint32_t caracter = ancho[pos++];
        if (EsAlta(caracter) && pos < unidades && EsBaja(ancho[pos]))
            caracter = 0x10000U + ((caracter - 0xD800U) << 10U) + (ancho[pos++] - 0xDC00U);
        else if (EsAlta(caracter) || EsBaja(caracter))
            caracter = kSustituto;
        AgregarUtf8(utf8, caracter);
    }
}

}  // namespace kv
