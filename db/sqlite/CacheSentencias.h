#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kvdatosart/db/sqlite/Plantilla.h"
#include "kvdatosart/db/sqlite/Sentencia.h"
#include "kvdatosart/db/sqlite/TipoColumna.h"

struct sqlite3;

namespace kv {

/// The prepared statements of one connection, found by their text. A text is first compared with the templates that
/// followed the previous statement the last times, then looked up by the hash of its template; only an unknown one is
/// translated and prepared. Holds at most `maximo` templates: the one that rested longest goes first.
class CacheSentencias {
  public:
    CacheSentencias(sqlite3* base, std::size_t maximo) : base_(base), maximo_(maximo), catalogo_(base) {}

    /// A statement that is not in use, bound to the literals of `texto` and marked as in use: the caller lets it go.
    /// Raises a database error for a text that cannot be prepared or that holds a second statement.
    Sentencia& Tomar(std::string_view texto);

    /// How many texts had to be prepared so far.
    std::uint64_t Preparaciones() const { return preparaciones_; }

  private:
    struct Entrada {
        std::uint64_t huella = 0;
        Plantilla plantilla;
        std::string traducida;
        std::vector<TipoColumna> destinos;
        // More than one only while a statement of the same template is in use.
        std::vector<std::unique_ptr<Sentencia>> sentencias;
        // The templates that last followed this one, the latest first.
        std::array<Entrada*, 4> siguientes{};
    };
    using Lista = std::list<Entrada>;

    Entrada* Predicha(std::string_view texto);
    Entrada& Hallar(std::string_view texto);
    Entrada& Nueva(std::string_view texto, std::uint64_t huella);
    void Recordar(Entrada& entrada);
    void Recortar();
    void Olvidar(Lista::iterator entrada);
    Sentencia& Libre(Entrada& entrada, std::string_view texto);

    sqlite3* base_;
    std::size_t maximo_;
    CatalogoColumnas catalogo_;
    // The most recently looked up first.
    Lista entradas_;
    std::unordered_multimap<std::uint64_t, Lista::iterator> porHuella_;
    std::vector<Literal> literales_;
    Entrada* anterior_ = nullptr;
    std::uint64_t preparaciones_ = 0;
};

}  // namespace kv
