#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kv::bench {

/// The kind of a column, in every row that is measured.
enum class TipoOdbc { Corto, Largo, Doble, Dinero, Dia, Texto };

struct ColumnaMedida {
    std::string nombre;
    TipoOdbc tipo;
};

/// One way to run a statement and read its rows into a sum, so that both ways can be compared.
class LectorOdbc {
  public:
    virtual ~LectorOdbc() = default;
    /// Runs statement number `i` of those it was made with and reads its rows; the records affected when it has none.
    virtual double Recorrer(std::size_t i) = 0;
};

/// Through the adapter.
std::unique_ptr<LectorOdbc> LectorAdaptador(const std::string& cadena, const std::vector<std::string>& textos,
                                            const std::vector<ColumnaMedida>& columnas);
/// The bare API: one statement handle, its columns described by hand and bound once, texts in UTF-16 beforehand.
std::unique_ptr<LectorOdbc> LectorDesnudo(const std::string& cadena, const std::vector<std::string>& textos,
                                          const std::vector<ColumnaMedida>& columnas);

}  // namespace kv::bench
