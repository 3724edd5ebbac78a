#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/odbc/Asidero.h"
#include "kvdatosart/db/odbc/CeldaOdbc.h"
#include "kvdatosart/db/odbc/ColumnaOdbc.h"
#include "kvdatosart/db/odbc/FormasConocidas.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv {

/// The rows of a query, all of them, one after another. What is read over it keeps its room.
struct Resultado {
    /// Never null once it was read.
    std::shared_ptr<const ColumnasOdbc> columnas;
    /// At least filas x columnas values.
    std::vector<Valor> valores;
    std::size_t filas = 0;
};

/// Reads the results of the statements of one handle, with one room for the values of all of them.
class LectorResultado {
  public:
    /// Reads the first result of an executed statement that has columns, to its last row; without one the result has
    /// neither columns nor rows. True when the statement may hold more results. A column of a type that is not known
    /// is error 13; a value that does not fit its type is that conversion's error with the column's name.
    bool Leer(const Asidero& sentencia, std::string_view texto, Resultado& resultado);
    /// To be called when tables may have changed: every statement is described anew.
    void OlvidarFormas() { formas_.Olvidar(); }

  private:
    std::shared_ptr<const ColumnasOdbc> Columnas(SQLSMALLINT cuantas);
    ColumnaOdbc Describir(SQLUSMALLINT posicion);
    /// The first `sueltas` rows column by column, unless the columns are bound already.
    void LeerFilas(Resultado& resultado, std::size_t sueltas);
    void Enlazar(const std::shared_ptr<const ColumnasOdbc>& columnas);
    void Desenlazar();
    void LeerFila(Resultado& resultado);
    void LeerValor(std::size_t indice, const ColumnaOdbc& columna, Valor& valor);
    void LeerTexto(SQLUSMALLINT posicion, Valor& valor);
    void Comprobar(SQLRETURN resultado) const;

    const Asidero* sentencia_ = nullptr;
    std::string_view texto_;
    FormasConocidas formas_;
    CeldaOdbc celda_;
    // The columns of the last result and, when they are bound, a cell for each.
    std::shared_ptr<const ColumnasOdbc> leidas_;
    std::vector<CeldaOdbc> enlazadas_;
    TextoAncho hueco_ = TextoAncho(2048);
};

}  // namespace kv
