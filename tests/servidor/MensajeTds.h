#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "db/odbc/TextoAncho.h"

namespace kv::prueba {

/// What a message of the protocol is put together from: whole numbers with their lowest byte first, texts in UTF-16.
class MensajeTds {
  public:
    void Numero(std::uint64_t valor, int octetos) {
        for (int i = 0; i < octetos; ++i) bytes_.push_back(static_cast<char>(valor >> (8 * i) & 0xFFU));
    }
    void Octetos(std::string_view bytes) { bytes_ += bytes; }
    /// The text behind the number of its units, which takes that many bytes.
    void Texto(std::string_view texto, int octetosDelLargo) {
        TextoAncho ancho;
        AAncho(texto, ancho);
        Numero(ancho.size(), octetosDelLargo);
        for (const SQLWCHAR unidad : ancho) Numero(unidad, 2);
    }
    /// A part that says its own size.
    void Parte(unsigned marca, const MensajeTds& contenido) {
        Numero(marca, 1);
        Numero(contenido.bytes_.size(), 2);
        Octetos(contenido.bytes_);
    }
    const std::string& Bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// Reads one; std::runtime_error past its end.
class LecturaTds {
  public:
    explicit LecturaTds(std::string_view bytes) : quedan_(bytes) {}

    std::string_view Octetos(std::size_t cuantos) {
        if (cuantos > quedan_.size()) throw std::runtime_error("el mensaje acaba antes de tiempo");
        const std::string_view leidos = quedan_.substr(0, cuantos);
        quedan_.remove_prefix(cuantos);
        return leidos;
    }
    std::uint64_t Numero(std::size_t octetos) {
        std::uint64_t valor = 0;
        int bits = 0;
        for (const char c : Octetos(octetos)) {
            valor |= static_cast<std::uint64_t>(static_cast<unsigned char>(c)) << bits;
            bits += 8;
        }
        return valor;
    }
    std::string Texto(std::size_t unidades) {
        TextoAncho ancho;
        for (std::size_t i = 0; i < unidades; ++i) ancho.push_back(static_cast<SQLWCHAR>(Numero(2)));
        std::string texto;
        DeAncho(ancho.data(), ancho.size(), texto);
        return texto;
    }
    std::size_t Quedan() const { return quedan_.size(); }

  private:
    std::string_view quedan_;
};

}  // namespace kv::prueba
