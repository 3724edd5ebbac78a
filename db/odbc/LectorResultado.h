#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Valor.h"
#include "db/odbc/Asidero.h"
#include "db/odbc/TextoAncho.h"

namespace kv {

/// How the values of a column are asked for and what they become.
enum class LecturaOdbc : std::uint8_t {
    Logico,
    Octeto,
    Corto,
    Largo,
    Grande,
    Simple,
    Doble,
    Dinero,
    Dia,
    DiaYHora,
    Texto
};

struct ColumnaOdbc {
    std::string nombre;
    /// HuellaNombre of the name.
    std::uint32_t huella = 0;
    LecturaOdbc lectura = LecturaOdbc::Texto;
};

/// The rows of a query, all of them, one after another. What is read over it keeps its room.
struct Resultado {
    std::vector<ColumnaOdbc> columnas;
    /// At least filas x columnas values.
    std::vector<Valor> valores;
    std::size_t filas = 0;
};

/// A number that names have in common when they differ at most in the case of ASCII letters.
inline std::uint32_t HuellaNombre(std::string_view nombre) {
    std::uint32_t huella = 0;
    for (const char c : nombre) huella = huella * 31U + (static_cast<unsigned char>(c) | 0x20U);
    return huella;
}

/// Reads the results of statements, with one room for the values of all of them.
class LectorResultado {
  public:
    /// Reads the first result of an executed statement that has columns, to its last row; without one the result has
    /// neither columns nor rows. True when the statement may hold more results. A column of a type that is not known
    /// is error 13; a value that does not fit its type is that conversion's error with the column's name.
    bool Leer(const Asidero& sentencia, std::string_view texto, Resultado& resultado);

  private:
    void Describir(SQLSMALLINT cuantas, Resultado& resultado);
    void LeerFila(Resultado& resultado);
    void LeerValor(SQLUSMALLINT posicion, LecturaOdbc lectura, Valor& valor);
    template <class Nativo, class Poner>
    void LeerFijo(SQLUSMALLINT posicion, SQLSMALLINT tipoC, Valor& valor, Poner&& poner);
    void LeerDinero(SQLUSMALLINT posicion, Valor& valor);
    void LeerTexto(SQLUSMALLINT posicion, Valor& valor);
    void Comprobar(SQLRETURN resultado) const;

    const Asidero* sentencia_ = nullptr;
    std::string_view texto_;
    TextoAncho hueco_ = TextoAncho(2048);
};

}  // namespace kv
