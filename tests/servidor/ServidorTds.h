#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/db/Tokens.h"

namespace kv::prueba {

/// What a message of the protocol is put together from: whole numbers with their lowest byte first, texts in UTF-16.
class MensajeTds {
  public:
    MensajeTds& Numero(std::uint64_t valor, int octetos);
    MensajeTds& Octetos(std::string_view bytes);
    /// The text behind the number of its units, which takes that many bytes.
    MensajeTds& Texto(std::string_view texto, int octetosDelLargo);
    /// A part that says its own size.
    MensajeTds& Parte(unsigned marca, const MensajeTds& contenido);
    const std::string& Bytes() const { return bytes_; }

  private:
    std::string bytes_;
};

/// Reads one; std::runtime_error past its end.
class LecturaTds {
  public:
    explicit LecturaTds(std::string_view bytes) : quedan_(bytes) {}

    std::string_view Octetos(std::size_t cuantos);
    std::uint64_t Numero(std::size_t octetos);
    std::string Texto(std::size_t unidades);
    std::size_t Quedan() const { return quedan_.size(); }

  private:
    std::string_view quedan_;
};

/// A type as it travels: the place of the alternative of Valor that holds its values, or kDecimal. NULL is a text; a
/// text is a varchar in the code page of western Europe.
using TipoTds = std::size_t;
/// decimal(19,4), as which the component sends and asks for amounts.
inline constexpr TipoTds kDecimal = std::variant_size_v<Valor>;

/// Code page, language and comparison of the texts.
inline constexpr std::string_view kIntercalacion{"\x0A\x0C\xD0\x00\x00", 5};

/// A column of a table, or a parameter of a procedure.
struct ColumnaTds {
    std::string nombre;
    TipoTds tipo;
    bool sale;
};

/// A table, with the columns of its key, or a procedure.
struct ObjetoTds {
    std::vector<ColumnaTds> columnas;
    std::vector<std::string> clave;
};

/// The tables and the procedures of the production script.
std::map<std::string, ObjetoTds> ObjetosDelEsquema();
/// The pieces of a statement or of a batch, which must outlive them.
std::vector<Token> TokensDe(std::string_view texto);

void EscribirTipo(MensajeTds& mensaje, TipoTds tipo);
void EscribirValor(MensajeTds& mensaje, TipoTds tipo, const Valor& valor);
/// A parameter of a call; std::runtime_error for one that goes the other way or is of another type than declared.
Valor LeerParametro(LecturaTds& lectura, const ColumnaTds& declarado);

/// A server on a port of this machine that speaks TDS 7.4, with an embedded database without rows behind it: it proves
/// driver and adapter over the wire where no T-SQL server is at hand. One client at a time. A request that the
/// component has no reason to send ends the conversation; Queja says why.
class ServidorTds {
  public:
    /// How it reads dates: as SET DATEFORMAT says; as month/day/year whatever that says, until the database below it is
    /// told; or always so, where the days allow it.
    enum class Fechas { Obedece, PorDebajo, SiempreMesDia };

    explicit ServidorTds(std::shared_ptr<Connection> base, Fechas fechas = Fechas::Obedece);
    ~ServidorTds();
    ServidorTds(const ServidorTds&) = delete;
    ServidorTds& operator=(const ServidorTds&) = delete;

    /// What connects a driver of this name with it.
    std::string Cadena(const std::string& controlador) const;
    /// What went against the protocol; empty when nothing did. To be read once the client has left.
    const std::string& Queja() const { return queja_; }

  private:
    using Filas = std::vector<std::vector<Valor>>;

    void Atender();
    MensajeTds Contestar(unsigned clase, std::string_view peticion);
    MensajeTds Ejecutar(const std::string& texto);
    MensajeTds ProbarFechas(const std::string& texto);
    TipoTds TipoDeColumna(const std::string& texto, const std::string& columna, std::size_t posicion,
                          const Filas& filas) const;
    MensajeTds Tabla(const std::string& texto, const std::vector<std::string>& columnas, const Filas& filas) const;
    MensajeTds Llamar(LecturaTds& lectura);
    MensajeTds CambiarTransaccion(LecturaTds& lectura);
    /// The transaction that begins, or ends with the number of a request, after what the driver is told already.
    MensajeTds Empezar(MensajeTds mensaje);
    MensajeTds Terminar(unsigned peticion);

    std::shared_ptr<Connection> base_;
    const std::map<std::string, ObjetoTds> objetos_ = ObjetosDelEsquema();
    Fechas fechas_;
    bool enTransaccion_ = false;
    std::string queja_;
    int puerto_ = 0;
    int escucha_ = -1;
    std::thread hilo_;
};

}  // namespace kv::prueba
