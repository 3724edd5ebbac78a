#include "kvdatosart/bench/Lectores.h"

#include <sqlite3.h>

#include <charconv>
#include <stdexcept>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Columnas.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/db/sqlite/Plantilla.h"
#include "kvdatosart/db/sqlite/Traduccion.h"
#include "kvdatosart/schema/Esquema.h"

namespace kv::bench {
namespace {

class Adaptador : public Lector {
  public:
    explicit Adaptador(const std::string& ruta)
        : conexion_(ConexionSqlite::Abrir(ruta, kIdentidadEsquema, ConexionSqlite::Modo::LecturaEscritura)) {}

    void Recorrer(const CargaPreparada& carga, Destino& destino) override {
        std::unique_ptr<Recordset> rs;
        for (std::size_t i = 0; i < kConsultas; ++i) {
            AbrirLectura(rs, *conexion_, carga.textos[i]);
            if (!rs->Eof()) Leer(*rs, Consultas()[i], destino);
            rs->Close();
        }
    }

  private:
    static void Leer(Recordset& rs, const Consulta& consulta, Destino& destino) {
        std::size_t texto = 0;
        for (const ColumnaLeida& columna : consulta.columnas) {
            const Valor& valor = rs.Fields(columna.nombre).Value();
            switch (columna.lectura) {
                // A true Boolean is -1 here and 1 there.
                case Lectura::Entero:
                    destino.suma += std::abs(ALong(valor));
                    break;
                case Lectura::Dinero:
                    destino.suma += ACurrency(valor).Diezmilesimas();
                    break;
                case Lectura::Real:
                    destino.suma += static_cast<std::int64_t>(ADouble(valor));
                    break;
                case Lectura::Texto:
                    Asignar(destino.textos[texto++], valor);
                    break;
                case Lectura::Dia:
                    if (!EsNulo(valor)) destino.suma += ADate(valor).Dia();
                    break;
            }
        }
    }

    std::shared_ptr<ConexionSqlite> conexion_;
};

// What both hand-written readers share: an open file with the adapter's pragmas, and the reading of a row.
class Nativo : public Lector {
  public:
    explicit Nativo(const std::string& ruta) {
        if (sqlite3_open_v2(ruta.c_str(), &base_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
            throw std::runtime_error("no se abre " + ruta);
        sqlite3_exec(base_, "PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;", nullptr, nullptr, nullptr);
        sqlite3_busy_timeout(base_, 10000);
    }

  protected:
    struct Preparada {
        sqlite3_stmt* sentencia = nullptr;
        std::vector<int> posiciones;
    };

    Preparada Preparar(const std::string& sql, const Consulta& consulta) const {
        Preparada preparada;
        if (sqlite3_prepare_v3(base_, sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &preparada.sentencia, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(base_));
        for (const ColumnaLeida& columna : consulta.columnas)
            for (int i = 0; i < sqlite3_column_count(preparada.sentencia); ++i)
                if (columna.nombre == sqlite3_column_name(preparada.sentencia, i)) {
                    preparada.posiciones.push_back(i);
                    break;
                }
        return preparada;
    }

    static std::string_view Texto(sqlite3_stmt* s, int i) {
        return {reinterpret_cast<const char*>(sqlite3_column_text(s, i)),
                static_cast<std::size_t>(sqlite3_column_bytes(s, i))};
    }

    static void Leer(const Preparada& preparada, const Consulta& consulta, Destino& destino) {
        sqlite3_stmt* s = preparada.sentencia;
        std::size_t texto = 0;
        for (std::size_t c = 0; c < consulta.columnas.size(); ++c) {
            const int i = preparada.posiciones[c];
            switch (consulta.columnas[c].lectura) {
                case Lectura::Entero:
                    destino.suma += std::abs(sqlite3_column_int(s, i));
                    break;
                case Lectura::Dinero:
                    destino.suma += Currency::DeDouble(sqlite3_column_double(s, i)).Diezmilesimas();
                    break;
                case Lectura::Real:
                    destino.suma += static_cast<std::int64_t>(sqlite3_column_double(s, i));
                    break;
                case Lectura::Texto:
                    destino.textos[texto++].assign(Texto(s, i));
                    break;
                case Lectura::Dia:
                    if (sqlite3_column_type(s, i) != SQLITE_NULL) destino.suma += Fecha::DeTexto(Texto(s, i)).Dia();
                    break;
            }
        }
    }

    sqlite3* base_ = nullptr;
};

class Piso : public Nativo {
  public:
    explicit Piso(const std::string& ruta) : Nativo(ruta) {
        const CargaPreparada modelo = PrepararCarga(1, 1);
        for (std::size_t i = 0; i < kConsultas; ++i)
            preparadas_.push_back(Preparar(modelo.conHuecos[i], Consultas()[i]));
    }
    ~Piso() override {
        for (const Preparada& preparada : preparadas_) sqlite3_finalize(preparada.sentencia);
        sqlite3_close(base_);
    }
    Piso(const Piso&) = delete;
    Piso& operator=(const Piso&) = delete;

    void Recorrer(const CargaPreparada& carga, Destino& destino) override {
        for (std::size_t i = 0; i < kConsultas; ++i) {
            const std::vector<Enlace>& enlaces = carga.enlaces[i];
            const Preparada& preparada = preparadas_[i];
            for (std::size_t p = 0; p < enlaces.size(); ++p) {
                if (enlaces[p].texto.empty())
                    sqlite3_bind_int(preparada.sentencia, static_cast<int>(p) + 1, enlaces[p].entero);
                else
                    sqlite3_bind_text(preparada.sentencia, static_cast<int>(p) + 1, enlaces[p].texto.data(),
                                      static_cast<int>(enlaces[p].texto.size()), SQLITE_STATIC);
            }
            if (sqlite3_step(preparada.sentencia) == SQLITE_ROW) Leer(preparada, Consultas()[i], destino);
            sqlite3_reset(preparada.sentencia);
        }
    }

  private:
    std::vector<Preparada> preparadas_;
};

class PreparaCadaVez : public Nativo {
  public:
    using Nativo::Nativo;
    ~PreparaCadaVez() override { sqlite3_close(base_); }
    PreparaCadaVez(const PreparaCadaVez&) = delete;
    PreparaCadaVez& operator=(const PreparaCadaVez&) = delete;

    void Recorrer(const CargaPreparada& carga, Destino& destino) override {
        for (std::size_t i = 0; i < kConsultas; ++i) {
            const Preparada preparada = Preparar(carga.conValores[i], Consultas()[i]);
            if (sqlite3_step(preparada.sentencia) == SQLITE_ROW) Leer(preparada, Consultas()[i], destino);
            sqlite3_finalize(preparada.sentencia);
        }
    }
};

Enlace Enlazado(const Literal& literal) {
    Enlace enlace;
    if (literal.cadena)
        enlace.texto = Fecha::DeTexto(literal.texto.substr(1, literal.texto.size() - 2)).AIso().Cadena();
    else
        std::from_chars(literal.texto.data(), literal.texto.data() + literal.texto.size(), enlace.entero);
    return enlace;
}

}  // namespace

CargaPreparada PrepararCarga(int articulo, int cliente) {
    CargaPreparada carga;
    std::vector<Literal> literales;
    for (const Consulta& consulta : Consultas()) {
        carga.textos.push_back(consulta.texto(articulo, cliente));
        BuscarLiterales(carga.textos.back(), literales);
        carga.conHuecos.push_back(Traducir(carga.textos.back(), literales).texto);
        std::vector<Enlace> enlaces;
        for (const Literal& literal : literales) enlaces.push_back(Enlazado(literal));
        std::string conValores;
        std::size_t siguiente = 0;
        for (const char c : carga.conHuecos.back()) {
            if (c != '?') {
                conValores += c;
                continue;
            }
            const Enlace& enlace = enlaces[siguiente++];
            conValores += enlace.texto.empty() ? std::to_string(enlace.entero) : "'" + enlace.texto + "'";
        }
        carga.conValores.push_back(std::move(conValores));
        carga.enlaces.push_back(std::move(enlaces));
    }
    return carga;
}

std::unique_ptr<Lector> LectorAdaptador(const std::string& ruta) {
    return std::make_unique<Adaptador>(ruta);
}
std::unique_ptr<Lector> LectorPiso(const std::string& ruta) {
    return std::make_unique<Piso>(ruta);
}
std::unique_ptr<Lector> LectorPreparaCadaVez(const std::string& ruta) {
    return std::make_unique<PreparaCadaVez>(ruta);
}

}  // namespace kv::bench
