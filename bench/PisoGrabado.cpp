#include "kvdatosart/bench/PisoGrabado.h"

#include <sqlite3.h>

#include <charconv>
#include <stdexcept>

#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/db/sqlite/Traduccion.h"

namespace kv::bench {
namespace {

Valor ValorDe(const Literal& literal) {
    if (literal.cadena) {
        const std::string_view texto = literal.texto.substr(1, literal.texto.size() - 2);
        return texto.empty() ? std::string("1900-01-01") : Fecha::DeTexto(texto).AIso().Cadena();
    }
    const char* fin = literal.texto.data() + literal.texto.size();
    std::int64_t entero = 0;
    if (std::from_chars(literal.texto.data(), fin, entero).ptr == fin) return entero;
    double real = 0;
    std::from_chars(literal.texto.data(), fin, real);
    return real;
}

void Enlazar(sqlite3_stmt* s, int indice, const Valor& valor) {
    if (const std::string* texto = std::get_if<std::string>(&valor))
        sqlite3_bind_text(s, indice, texto->data(), static_cast<int>(texto->size()), SQLITE_STATIC);
    else if (std::holds_alternative<Currency>(valor))
        sqlite3_bind_double(s, indice, std::get<Currency>(valor).ADouble());
    else if (const double* real = std::get_if<double>(&valor))
        sqlite3_bind_double(s, indice, *real);
    else
        sqlite3_bind_int64(s, indice, std::get<std::int64_t>(valor));
}

// Whole numbers as such, whatever their width; a Boolean as 1 or 0.
Valor ParaEnlazar(const Valor& valor) {
    if (std::holds_alternative<Currency>(valor)) return valor;
    if (const bool* logico = std::get_if<bool>(&valor)) return std::int64_t{*logico ? 1 : 0};
    return std::int64_t{ALong(valor)};
}

void Leer(sqlite3_stmt* s, int i, const Valor& como, std::int64_t& suma, std::string& texto) {
    if (std::holds_alternative<Currency>(como)) {
        suma += Currency::DeDouble(sqlite3_column_double(s, i)).Diezmilesimas();
    } else if (std::holds_alternative<double>(como)) {
        suma += static_cast<std::int64_t>(sqlite3_column_double(s, i));
    } else if (std::holds_alternative<std::string>(como) || std::holds_alternative<Fecha>(como)) {
        const std::string_view leido(reinterpret_cast<const char*>(sqlite3_column_text(s, i)),
                                     static_cast<std::size_t>(sqlite3_column_bytes(s, i)));
        if (std::holds_alternative<Fecha>(como))
            suma += Fecha::DeTexto(leido).Dia();
        else
            texto.assign(leido);
    } else if (!EsNulo(como)) {
        suma += sqlite3_column_int64(s, i);
    } else {
        suma += sqlite3_column_type(s, i);
    }
}

}  // namespace

PisoGrabado::PisoGrabado(const std::string& ruta) {
    if (sqlite3_open_v2(ruta.c_str(), &base_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
        throw std::runtime_error("no se abre " + ruta);
    sqlite3_exec(base_, "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;", nullptr, nullptr, nullptr);
}

PisoGrabado::~PisoGrabado() {
    for (const auto& [sql, sentencia] : sentencias_) sqlite3_finalize(sentencia);
    sqlite3_close(base_);
}

sqlite3_stmt* PisoGrabado::Sentencia(const std::string& sql) {
    sqlite3_stmt*& sentencia = sentencias_[sql];
    if (sentencia == nullptr &&
        sqlite3_prepare_v3(base_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &sentencia, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(base_));
    return sentencia;
}

void PisoGrabado::Ejecutar(const std::string& sql) {
    sqlite3_stmt* sentencia = Sentencia(sql);
    if (sqlite3_step(sentencia) != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(base_));
    sqlite3_reset(sentencia);
}

std::vector<PisoGrabado::Paso> PisoGrabado::Preparar(const CargaGrabada& carga) {
    std::vector<Paso> pasos;
    for (const OperacionGrabada& operacion : carga) {
        Paso paso{};
        if (operacion.procedimiento) {
            sqlite3_stmt* cuerpo =
                Sentencia("SELECT Cuerpo FROM Procedimientos WHERE Nombre = '" + operacion.texto + "'");
            if (sqlite3_step(cuerpo) != SQLITE_ROW) throw std::runtime_error("falta " + operacion.texto);
            paso.sentencia = Sentencia(reinterpret_cast<const char*>(sqlite3_column_text(cuerpo, 0)));
            sqlite3_reset(cuerpo);
            for (const Parameter& parametro : operacion.parametros) {
                const int indice = sqlite3_bind_parameter_index(paso.sentencia, std::string(parametro.Name).c_str());
                if (indice != 0) paso.enlaces.emplace_back(indice, ParaEnlazar(parametro.Value));
            }
            paso.columnas.emplace_back(0, Valor(0.0));
        } else {
            std::vector<Literal> literales;
            BuscarLiterales(operacion.texto, literales);
            paso.sentencia = Sentencia(Traducir(operacion.texto, literales).texto);
            for (std::size_t i = 0; i < literales.size(); ++i)
                paso.enlaces.emplace_back(static_cast<int>(i) + 1, ValorDe(literales[i]));
            for (const auto& [nombre, valor] : operacion.leidos)
                for (int i = 0; i < sqlite3_column_count(paso.sentencia); ++i)
                    if (MismoNombre(sqlite3_column_name(paso.sentencia, i), nombre)) {
                        paso.columnas.emplace_back(i, valor);
                        break;
                    }
        }
        pasos.push_back(std::move(paso));
    }
    return pasos;
}

void PisoGrabado::Recorrer(const std::vector<Paso>& carga, std::int64_t& suma, std::string& texto) {
    for (const Paso& paso : carga) {
        for (const auto& [indice, valor] : paso.enlaces) Enlazar(paso.sentencia, indice, valor);
        const int resultado = sqlite3_step(paso.sentencia);
        if (resultado == SQLITE_ROW)
            for (const auto& [columna, como] : paso.columnas) Leer(paso.sentencia, columna, como, suma, texto);
        else if (resultado != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(base_));
        else
            suma += sqlite3_changes(base_);
        sqlite3_reset(paso.sentencia);
    }
}

}  // namespace kv::bench
