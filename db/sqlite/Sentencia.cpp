#include "kvdatosart/db/sqlite/Sentencia.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <limits>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/sqlite/ErrorSqlite.h"

namespace kv {
namespace {

constexpr std::string_view kFechaCero = "1900-01-01";

// The text between the quotes, with doubled quotes made single.
void QuitarComillas(std::string_view literal, std::string& texto) {
    texto.assign(literal.substr(1, literal.size() - 2));
    for (std::size_t pos = texto.find("''"); pos != std::string::npos; pos = texto.find("''", pos + 1))
        texto.erase(pos, 1);
}

std::string_view TextoDe(sqlite3_value* valor) {
    const auto* texto = reinterpret_cast<const char*>(sqlite3_value_text(valor));
    return {texto, static_cast<std::size_t>(sqlite3_value_bytes(valor))};
}

// A column's value nearly always has the type that it had in the former row. What else there is stays apart, so that
// reading a field, which a load does by the hundred, saves no registers for it.
template <class T>
[[gnu::noinline]] void Cambiar(Valor& valor, T nuevo) {
    valor = nuevo;
}

[[gnu::noinline]] void Copiar(Valor& valor, std::string_view texto) {
    if (std::string* cadena = std::get_if<std::string>(&valor))
        cadena->assign(texto);
    else
        valor.emplace<std::string>(texto);
}

template <class T>
void Poner(Valor& valor, T nuevo) {
    if (T* igual = std::get_if<T>(&valor))
        *igual = nuevo;
    else
        Cambiar(valor, nuevo);
}

[[gnu::noinline]] void PonerSegunTexto(Valor& valor, TipoColumna tipo, sqlite3_value* leido) {
    std::string* cadena = std::get_if<std::string>(&valor);
    if (tipo == TipoColumna::Fecha)
        Poner(valor, Fecha::DeTexto(TextoDe(leido)));
    else if (cadena != nullptr && sqlite3_value_bytes(leido) == 0)  // As most texts of a customer are.
        cadena->clear();
    else
        Copiar(valor, TextoDe(leido));
}

template <class T>
void PonerEntero(Valor& valor, std::int64_t entero) {
    if (entero < std::numeric_limits<T>::min() || entero > std::numeric_limits<T>::max())
        Poner(valor, entero);
    else
        Poner(valor, static_cast<T>(entero));
}

void PonerSegunEntero(Valor& valor, TipoColumna tipo, std::int64_t entero) {
    switch (tipo) {
        case TipoColumna::Bit:
            Poner(valor, entero != 0);
            break;
        case TipoColumna::Byte:
            PonerEntero<std::uint8_t>(valor, entero);
            break;
        case TipoColumna::Integer:
            PonerEntero<std::int16_t>(valor, entero);
            break;
        case TipoColumna::Money:
            Poner(valor, Currency::DeEntero(entero));
            break;
        case TipoColumna::Single:
            Poner(valor, static_cast<float>(entero));
            break;
        case TipoColumna::Double:
            Poner(valor, static_cast<double>(entero));
            break;
        case TipoColumna::Grande:
            Poner(valor, entero);
            break;
        default:
            PonerEntero<std::int32_t>(valor, entero);
            break;
    }
}

void PonerSegunReal(Valor& valor, TipoColumna tipo, double real) {
    if (tipo == TipoColumna::Money)
        Poner(valor, Currency::DeDouble(real));
    else if (tipo == TipoColumna::Single)
        Poner(valor, static_cast<float>(real));
    else
        Poner(valor, real);
}

}  // namespace

void Sentencia::Finalizar::operator()(sqlite3_stmt* sentencia) const {
    sqlite3_finalize(sentencia);
}

Sentencia::Sentencia(sqlite3* base, const std::string& texto, std::string original)
    : base_(base), original_(std::move(original)) {
    sqlite3_stmt* nueva = nullptr;
    const char* resto = nullptr;
    const int resultado = sqlite3_prepare_v3(base, texto.c_str(), static_cast<int>(texto.size()) + 1,
                                             SQLITE_PREPARE_PERSISTENT, &nueva, &resto);
    sentencia_.reset(nueva);
    Comprobar(resultado);
    if (nueva == nullptr) throw RuntimeError(SQLITE_ERROR, "SQLite", "La sentencia está vacía: «" + original_ + "»");
    for (int i = 0; i < sqlite3_column_count(nueva); ++i) {
        const char* declarado = sqlite3_column_decltype(nueva, i);
        columnas_.push_back({sqlite3_column_name(nueva, i), i,
                             declarado == nullptr ? TipoColumna::SinDeclarar : LeerTipoColumna(declarado), Nulo{}});
    }
    enlazados_.resize(static_cast<std::size_t>(sqlite3_bind_parameter_count(nueva)));
    siguiente_ = orden_.begin();
}

void Sentencia::Comprobar(int resultado) const {
    if (resultado != SQLITE_OK) LanzarErrorSqlite(base_, original_);
}

void Sentencia::Soltar() {
    sqlite3_reset(sentencia_.get());
    siguiente_ = orden_.begin();
    enlace_ = 0;
    enUso_ = false;
}

void Sentencia::Enlazar(const std::vector<Literal>& literales, const std::vector<TipoColumna>& destinos) {
    std::size_t cual = 0;
    for (const Literal& literal : literales) {
        if (!Identicos(enlazados_[cual].literal, literal.texto)) EnlazarLiteral(cual, literal, destinos[cual]);
        ++cual;
    }
}

void Sentencia::EnlazarLiteral(std::size_t cual, const Literal& literal, TipoColumna destino) {
    // Forgotten first: a literal that cannot be bound must not count as bound.
    enlazados_[cual].literal.clear();
    const int indice = static_cast<int>(cual) + 1;
    if (literal.cadena)
        EnlazarCadena(indice, literal.texto, destino);
    else
        EnlazarNumero(indice, literal.texto, destino);
    enlazados_[cual].literal.assign(literal.texto);
}

void Sentencia::EnlazarCadena(int indice, std::string_view literal, TipoColumna destino) {
    Enlazado& texto = enlazados_[static_cast<std::size_t>(indice) - 1];
    QuitarComillas(literal, texto.cadena);
    std::string_view enlazado = texto.cadena;
    if (destino == TipoColumna::Fecha) {
        // As the production database reads them: an empty text is its zero date.
        if (enlazado.find_first_not_of(' ') == std::string_view::npos) {
            enlazado = kFechaCero;
        } else {
            const TextoNumero iso = Fecha::DeTexto(enlazado).AIso();
            std::copy_n(std::string_view(iso).data(), texto.fecha.size(), texto.fecha.data());
            enlazado = {texto.fecha.data(), texto.fecha.size()};
        }
    }
    Comprobar(
        sqlite3_bind_text(sentencia_.get(), indice, enlazado.data(), static_cast<int>(enlazado.size()), SQLITE_STATIC));
}

void Sentencia::EnlazarNumero(int indice, std::string_view literal, TipoColumna destino) {
    const char* inicio = literal.data() + (literal.front() == '+' ? 1 : 0);
    const char* fin = literal.data() + literal.size();
    std::int64_t entero = 0;
    const auto leido = std::from_chars(inicio, fin, entero);
    if (leido.ec == std::errc() && leido.ptr == fin) {
        // A true Boolean is -1 in the text and 1 in the table.
        if (destino == TipoColumna::Bit) entero = entero != 0 ? 1 : 0;
        Comprobar(sqlite3_bind_int64(sentencia_.get(), indice, entero));
        return;
    }
    double real = 0;
    std::from_chars(inicio, fin, real);
    Comprobar(sqlite3_bind_double(sentencia_.get(), indice, real));
}

// SQLite compares the names one by one; the same procedure is called with the same parameters in the same order.
Sentencia::Nombrado& Sentencia::BuscarNombrado(std::string_view nombre) {
    const std::size_t esta = enlace_++;
    if (esta < nombrados_.size() && Identicos(nombrados_[esta].nombre, nombre)) return nombrados_[esta];
    return AprenderNombrado(esta, nombre);
}

Sentencia::Nombrado& Sentencia::AprenderNombrado(std::size_t cual, std::string_view nombre) {
    nombrados_.resize(cual);
    std::string propio(nombre);
    const int indice = sqlite3_bind_parameter_index(sentencia_.get(), propio.c_str());
    nombrados_.push_back({std::move(propio), indice, std::nullopt});
    return nombrados_.back();
}

void Sentencia::EnlazarNombrado(std::string_view nombre, const Valor& valor) {
    Nombrado& nombrado = BuscarNombrado(nombre);
    if (nombrado.indice == 0 || nombrado.valor == valor) return;
    // Forgotten first: a value that cannot be bound must not count as bound.
    nombrado.valor.reset();
    EnlazarValor(nombrado.indice, valor);
    nombrado.valor = valor;
}

void Sentencia::EnlazarValor(int indice, const Valor& valor) {
    sqlite3_stmt* s = sentencia_.get();
    if (EsNulo(valor)) {
        Comprobar(sqlite3_bind_null(s, indice));
    } else if (const bool* logico = std::get_if<bool>(&valor)) {
        Comprobar(sqlite3_bind_int(s, indice, *logico ? 1 : 0));
    } else if (std::holds_alternative<std::string>(valor) || std::holds_alternative<Fecha>(valor)) {
        const Fecha* fecha = std::get_if<Fecha>(&valor);
        const std::string texto = fecha != nullptr ? fecha->AIso().Cadena() : std::get<std::string>(valor);
        Comprobar(sqlite3_bind_text(s, indice, texto.data(), static_cast<int>(texto.size()), SQLITE_TRANSIENT));
    } else {
        const double numero = ADouble(valor);
        const bool entero = numero == static_cast<double>(static_cast<std::int64_t>(numero));
        Comprobar(entero ? sqlite3_bind_int64(s, indice, static_cast<std::int64_t>(numero))
                         : sqlite3_bind_double(s, indice, numero));
    }
}

bool Sentencia::Avanzar(std::string_view texto) {
    siguiente_ = orden_.begin();
    const int resultado = sqlite3_step(sentencia_.get());
    if (resultado == SQLITE_ROW) return true;
    if (resultado != SQLITE_DONE) LanzarErrorSqlite(base_, texto);
    return false;
}

const std::string& Sentencia::NombreColumna(std::int32_t posicion) const {
    if (posicion < 0 || posicion >= NumeroColumnas())
        LanzarError(kErrElementoNoEncontrado, "columna " + std::to_string(posicion));
    return columnas_[static_cast<std::size_t>(posicion)].nombre;
}

const Valor& Sentencia::Valorar(Columna& columna) {
    // One call into the statement for each field; what follows looks at the value alone.
    sqlite3_value* leido = sqlite3_column_value(sentencia_.get(), columna.posicion);
    switch (sqlite3_value_type(leido)) {
        case SQLITE_NULL:
            Poner(columna.valor, Nulo{});
            break;
        case SQLITE_INTEGER:
            PonerSegunEntero(columna.valor, columna.tipo, sqlite3_value_int64(leido));
            break;
        case SQLITE_FLOAT:
            PonerSegunReal(columna.valor, columna.tipo, sqlite3_value_double(leido));
            break;
        default:
            PonerSegunTexto(columna.valor, columna.tipo, leido);
    }
    return columna.valor;
}

const Valor& Sentencia::Leer(std::string_view nombre) {
    const bool otro = siguiente_ == orden_.end() || siguiente_->nombre.size() != nombre.size() ||
                      !MismosOctetos(siguiente_->nombre, nombre);
    return Valorar(otro ? Aprender(nombre) : *siguiente_++->columna);
}

Sentencia::Columna& Sentencia::Aprender(std::string_view nombre) {
    Columna& columna = Buscar(nombre);
    orden_.erase(siguiente_, orden_.end());
    orden_.push_back({std::string(nombre), &columna});
    siguiente_ = orden_.end();
    return columna;
}

const Valor& Sentencia::Leer(std::size_t columna) {
    return Valorar(columnas_[columna]);
}

Sentencia::Columna& Sentencia::Buscar(std::string_view nombre) {
    const auto hallada = std::find_if(columnas_.begin(), columnas_.end(),
                                      [&](const Columna& c) { return MismoNombre(c.nombre, nombre); });
    if (hallada == columnas_.end())
        LanzarError(kErrElementoNoEncontrado, "columna " + std::string(nombre) + " en: " + original_);
    return *hallada;
}

bool Sentencia::SoloLee() const {
    return sqlite3_stmt_readonly(sentencia_.get()) != 0;
}

}  // namespace kv
