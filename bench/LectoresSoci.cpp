#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include "kvdatosart/bench/Lectores.h"

namespace kv::bench {
namespace {

// SOCI types a column by how it was declared or, where it does not know the type, by its first value.
double Numero(const soci::row& fila, const ColumnaLeida& columna) {
    switch (fila.get_properties(columna.nombre).get_data_type()) {
        case soci::dt_double:
            return fila.get<double>(columna.nombre);
        case soci::dt_integer:
            return fila.get<int>(columna.nombre);
        case soci::dt_long_long:
            return static_cast<double>(fila.get<long long>(columna.nombre));
        case soci::dt_string:
            return Currency::DeTexto(fila.get<std::string>(columna.nombre)).ADouble();
        default:
            throw std::runtime_error("tipo inesperado en " + columna.nombre);
    }
}

// By name and into the same targets as every other reader.
void LeerFila(const soci::row& fila, const Consulta& consulta, Destino& destino) {
    std::size_t texto = 0;
    for (const ColumnaLeida& columna : consulta.columnas) {
        if (fila.get_indicator(columna.nombre) == soci::i_null) continue;
        ++destino.leidos;
        switch (columna.lectura) {
            case Lectura::Entero:
                destino.suma += static_cast<std::int64_t>(Numero(fila, columna));
                break;
            case Lectura::Dinero:
                destino.suma += Currency::DeDouble(Numero(fila, columna)).Diezmilesimas();
                break;
            case Lectura::Real:
                destino.suma += static_cast<std::int64_t>(Numero(fila, columna));
                break;
            case Lectura::Texto:
                destino.textos[texto++] = fila.get<std::string>(columna.nombre);
                break;
            case Lectura::Dia:
                destino.suma += fila.get_properties(columna.nombre).get_data_type() == soci::dt_date
                                    ? fila.get<std::tm>(columna.nombre).tm_mday
                                    : Fecha::DeTexto(fila.get<std::string>(columna.nombre)).Dia();
                break;
        }
    }
}

class SociLiteral : public Lector {
  public:
    explicit SociLiteral(const std::string& ruta) : sesion_(soci::sqlite3, ruta) {}

    void Recorrer(const CargaPreparada& carga, Destino& destino) override {
        for (std::size_t i = 0; i < kConsultas; ++i) {
            soci::row fila;
            soci::statement sentencia = (sesion_.prepare << carga.conValores[i], soci::into(fila));
            if (sentencia.execute(true)) LeerFila(fila, Consultas()[i], destino);
        }
    }

  private:
    soci::session sesion_;
};

class SociPreparado : public Lector {
  public:
    explicit SociPreparado(const std::string& ruta) : sesion_(soci::sqlite3, ruta) {
        const CargaPreparada modelo = PrepararCarga(1, 1);
        for (std::size_t i = 0; i < kConsultas; ++i) {
            auto preparada = std::make_unique<Preparada>(sesion_);
            preparada->valores = modelo.enlaces[i];
            std::string texto;
            std::size_t siguiente = 0;
            for (const char c : modelo.conHuecos[i])
                texto += c == '?' ? ":p" + std::to_string(siguiente++) : std::string(1, c);
            preparada->sentencia.exchange(soci::into(preparada->fila));
            for (Enlace& valor : preparada->valores) {
                if (valor.texto.empty())
                    preparada->sentencia.exchange(soci::use(valor.entero));
                else
                    preparada->sentencia.exchange(soci::use(valor.texto));
            }
            preparada->sentencia.alloc();
            preparada->sentencia.prepare(texto);
            preparada->sentencia.define_and_bind();
            preparadas_.push_back(std::move(preparada));
        }
    }

    void Recorrer(const CargaPreparada& carga, Destino& destino) override {
        for (std::size_t i = 0; i < kConsultas; ++i) {
            Preparada& preparada = *preparadas_[i];
            for (std::size_t p = 0; p < preparada.valores.size(); ++p) {
                preparada.valores[p].entero = carga.enlaces[i][p].entero;
                preparada.valores[p].texto = carga.enlaces[i][p].texto;
            }
            preparada.sentencia.execute();
            if (preparada.sentencia.fetch()) LeerFila(preparada.fila, Consultas()[i], destino);
        }
    }

  private:
    struct Preparada {
        explicit Preparada(soci::session& sesion) : sentencia(sesion) {}
        soci::row fila;
        std::vector<Enlace> valores;
        soci::statement sentencia;
    };

    soci::session sesion_;
    std::vector<std::unique_ptr<Preparada>> preparadas_;
};

}  // namespace

std::unique_ptr<Lector> LectorSociLiteral(const std::string& ruta) {
    return std::make_unique<SociLiteral>(ruta);
}
std::unique_ptr<Lector> LectorSociPreparado(const std::string& ruta) {
    return std::make_unique<SociPreparado>(ruta);
}

}  // namespace kv::bench
