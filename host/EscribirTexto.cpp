#include "kvdatosart/host/EscribirTexto.h"

#include <algorithm>
#include <cmath>

#include "kvdatosart/application/Frase.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/Rejilla.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;
using aplicacion::ColumnaTabla;

class Escritor {
  public:
    Escritor(std::string& salida, const Presentacion& presentacion, char separador)
        : salida_(salida), presentacion_(presentacion), separador_(separador), rejilla_(salida, presentacion) {}

    void operator()(const Linea& linea) {
        Separar(false);
        const std::string texto = Mostrable(linea.texto);
        rejilla_.Fila({{texto, presentacion_.ancho, false}}, "", false);
    }

    void operator()(const Ficha& ficha) {
        Separar(false);
        rejilla_.Hoja(ficha.columnas, ficha.valores, separador_, "", false);
    }

    void operator()(const Cuadro& listado) {
        if (listado.para == Cuadro::Para::Programas) return;
        if (listado.tabla.filas.empty() && listado.titulo.empty()) return;
        Separar(true);
        if (listado.tabla.filas.empty()) {
            salida_ += listado.titulo + ": -\n";
            return;
        }
        if (!listado.titulo.empty()) salida_ += listado.titulo + '\n';
        const std::size_t margen = listado.destacada ? 2 : 0;
        std::vector<ColumnaRejilla> columnas = EnColumnas(listado.tabla.columnas, listado.tabla.filas, separador_);
        if (presentacion_.ancho == 0 || Encajar(columnas, presentacion_.ancho - margen))
            EnTabla(columnas, listado);
        else
            EnHojas(listado);
    }

  private:
    // An empty line before a listing and after it.
    void Separar(bool listado) {
        if (!salida_.empty() && (listado || trasListado_)) salida_ += '\n';
        trasListado_ = listado;
    }

    static std::string Margen(const Cuadro& listado, std::size_t fila) {
        if (!listado.destacada) return "";
        return fila == *listado.destacada ? "> " : "  ";
    }

    void EnTabla(const std::vector<ColumnaRejilla>& columnas, const Cuadro& listado) {
        rejilla_.Cabecera(columnas, listado.destacada ? "  " : "");
        for (std::size_t i = 0; i < listado.tabla.filas.size(); ++i)
            rejilla_.Fila(columnas, i, Margen(listado, i), listado.destacada == i);
    }

    void EnHojas(const Cuadro& listado) {
        for (std::size_t i = 0; i < listado.tabla.filas.size(); ++i) {
            if (i > 0) salida_ += '\n';
            rejilla_.Hoja(listado.tabla.columnas, listado.tabla.filas[i], separador_, Margen(listado, i),
                          listado.destacada == i);
        }
    }

    std::string& salida_;
    const Presentacion& presentacion_;
    char separador_;
    Rejilla rejilla_;
    bool trasListado_ = false;
};

bool EsInfinito(const Valor& valor) {
    const double* const numero = std::get_if<double>(&valor);
    return numero != nullptr && !std::isfinite(*numero);
}

std::string Numero(const Valor& valor, ClaseDato clase, char separador) {
    if (clase == ClaseDato::Importe) try {
            return aplicacion::ImporteParaGente(ACurrency(valor), separador);
        } catch (const RuntimeError&) {
            // Beyond money's range it shows as it is.
        }
    std::string texto = AString(valor, '.');
    std::replace(texto.begin(), texto.end(), '.', separador);
    return texto;
}

}  // namespace

std::string ValorATexto(const Valor& valor, ClaseDato clase, char separador) {
    if (EsNulo(valor) || EsInfinito(valor)) return "-";
    if (const Fecha* dia = std::get_if<Fecha>(&valor)) return EsNingunDia(*dia) ? "-" : dia->ATexto().Cadena();
    if (const std::string* texto = std::get_if<std::string>(&valor)) return texto->empty() ? "-" : Mostrable(*texto);
    if (clase == ClaseDato::Logico || std::holds_alternative<bool>(valor)) return ABoolean(valor) ? "sí" : "no";
    return Numero(valor, clase, separador);
}

std::string ATexto(const Documento& documento, const Presentacion& presentacion) {
    std::string texto;
    Escritor escritor(texto, presentacion, documento.Separador());
    for (const Documento::Bloque& bloque : documento.Bloques()) std::visit(escritor, bloque);
    return texto;
}

}  // namespace kv::host
