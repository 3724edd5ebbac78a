#include "kvdatosart/host/EscribirTexto.h"

#include <algorithm>
#include <cmath>

#include "kvdatosart/application/Frase.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/host/Anchura.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;
using aplicacion::ColumnaTabla;

constexpr std::size_t kEntreColumnas = 2;
// A column of text is not made narrower than this, or than its own longest text.
constexpr std::size_t kTextoEstrecho = 14;

bool EsCantidad(ClaseDato clase) {
    return clase == ClaseDato::Importe || clase == ClaseDato::Cantidad || clase == ClaseDato::Porcentaje;
}

struct Columna {
    std::string rotulo;
    bool derecha = false;
    /// Below this its cells go on to a second line, and not only its heading.
    std::size_t comodo = 0;
    /// Below this it cannot be read.
    std::size_t minimo = 0;
    std::size_t ancho = 0;
    std::vector<std::string> celdas;
};

std::size_t MasAncha(const std::vector<std::string>& textos) {
    std::size_t ancho = 0;
    for (const std::string& texto : textos) ancho = std::max(ancho, Anchura(texto));
    return ancho;
}

std::size_t PalabraMasAncha(std::string_view texto) {
    std::size_t ancho = 0;
    for (bool quedan = true; quedan;) {
        const std::size_t blanco = texto.find(' ');
        ancho = std::max(ancho, Anchura(texto.substr(0, blanco)));
        quedan = blanco != std::string_view::npos;
        if (quedan) texto.remove_prefix(blanco + 1);
    }
    return ancho;
}

// Puts the decimals of a column one under the other.
void AlinearDecimales(std::vector<std::string>& celdas, char separador) {
    std::size_t fraccion = 0;
    const auto decimales = [&](const std::string& celda) {
        return celda.size() - std::min(celda.find(separador), celda.size());
    };
    for (const std::string& celda : celdas) fraccion = std::max(fraccion, decimales(celda));
    for (std::string& celda : celdas) celda += std::string(fraccion - decimales(celda), ' ');
}

Columna Preparar(const Cuadro& listado, std::size_t indice, char separador) {
    const ColumnaTabla& origen = listado.tabla.columnas[indice];
    Columna columna;
    columna.rotulo = origen.rotulo;
    columna.derecha = EsCantidad(origen.clase) || origen.clase == ClaseDato::Codigo;
    for (const auto& fila : listado.tabla.filas)
        columna.celdas.push_back(ValorATexto(fila[indice], origen.clase, separador));
    if (EsCantidad(origen.clase)) AlinearDecimales(columna.celdas, separador);
    const std::size_t celdas = MasAncha(columna.celdas);
    const std::size_t palabra = PalabraMasAncha(columna.rotulo);
    columna.ancho = std::max(celdas, Anchura(columna.rotulo));
    columna.comodo = std::max(celdas, palabra);
    columna.minimo =
        origen.clase == ClaseDato::Texto ? std::max(std::min(celdas, kTextoEstrecho), palabra) : columna.comodo;
    return columna;
}

// Narrows the widest columns, first those with a long heading, until all fit; false when they cannot.
bool Encajar(std::vector<Columna>& columnas, std::size_t ancho) {
    std::size_t total = kEntreColumnas * (columnas.size() - 1);
    for (const Columna& columna : columnas) total += columna.ancho;
    for (const auto hasta : {&Columna::comodo, &Columna::minimo}) {
        for (; total > ancho; --total) {
            Columna* ancha = nullptr;
            for (Columna& columna : columnas)
                if (columna.ancho > columna.*hasta && (ancha == nullptr || columna.ancho > ancha->ancho))
                    ancha = &columna;
            if (ancha == nullptr) break;
            --ancha->ancho;
        }
    }
    return total <= ancho;
}

/// Writes rows of cells, each in its column; what does not fit goes on below.
class Rejilla {
  public:
    Rejilla(std::string& salida, const Presentacion& presentacion) : salida_(salida), presentacion_(presentacion) {}

    struct Celda {
        const std::string& texto;
        std::size_t ancho;
        bool derecha;
    };
    /// `margen` stands before each line; `destacada` gives them colour.
    void Fila(const std::vector<Celda>& celdas, std::string_view margen, bool destacada) {
        std::vector<std::vector<std::string>> lineas;
        std::size_t altura = 0;
        for (const Celda& celda : celdas) {
            lineas.push_back(presentacion_.ancho == 0 ? std::vector{celda.texto} : EnLineas(celda.texto, celda.ancho));
            altura = std::max(altura, lineas.back().size());
        }
        for (std::size_t i = 0; i < altura; ++i) {
            std::string linea(margen);
            for (std::size_t j = 0; j < celdas.size(); ++j) {
                const std::string trozo = i < lineas[j].size() ? lineas[j][i] : "";
                const std::string hueco(celdas[j].ancho - std::min(celdas[j].ancho, Anchura(trozo)), ' ');
                linea += (j == 0 ? "" : std::string(kEntreColumnas, ' ')) +
                         (celdas[j].derecha ? hueco + trozo : trozo + hueco);
            }
            linea.erase(linea.find_last_not_of(' ') + 1);
            salida_ += destacada && presentacion_.color ? "\033[1;32m" + linea + "\033[0m\n" : linea + '\n';
        }
    }

  private:
    std::string& salida_;
    const Presentacion& presentacion_;
};

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
        Hoja(ficha.columnas, ficha.valores, "", false);
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
        std::vector<Columna> columnas;
        for (std::size_t i = 0; i < listado.tabla.columnas.size(); ++i)
            columnas.push_back(Preparar(listado, i, separador_));
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

    void EnTabla(const std::vector<Columna>& columnas, const Cuadro& listado) {
        std::vector<Rejilla::Celda> cabecera;
        for (const Columna& c : columnas) cabecera.push_back({c.rotulo, c.ancho, c.derecha});
        rejilla_.Fila(cabecera, listado.destacada ? "  " : "", false);
        for (std::size_t i = 0; i < listado.tabla.filas.size(); ++i) {
            std::vector<Rejilla::Celda> celdas;
            for (const Columna& c : columnas) celdas.push_back({c.celdas[i], c.ancho, c.derecha});
            rejilla_.Fila(celdas, Margen(listado, i), listado.destacada == i);
        }
    }

    void EnHojas(const Cuadro& listado) {
        for (std::size_t i = 0; i < listado.tabla.filas.size(); ++i) {
            if (i > 0) salida_ += '\n';
            Hoja(listado.tabla.columnas, listado.tabla.filas[i], Margen(listado, i), listado.destacada == i);
        }
    }

    void Hoja(std::span<const ColumnaTabla> columnas, std::span<const Valor> valores, const std::string& margen,
              bool destacada) {
        std::size_t rotulos = 0;
        for (const ColumnaTabla& columna : columnas) rotulos = std::max(rotulos, Anchura(columna.rotulo));
        std::size_t resto = 0;
        if (presentacion_.ancho > 0) {
            const std::size_t ancho = presentacion_.ancho - margen.size() - kEntreColumnas;
            rotulos = std::min(rotulos, ancho / 2);
            resto = ancho - rotulos;
        }
        for (std::size_t i = 0; i < columnas.size(); ++i) {
            const std::string rotulo(columnas[i].rotulo);
            const std::string texto = ValorATexto(valores[i], columnas[i].clase, separador_);
            rejilla_.Fila({{rotulo, rotulos, false}, {texto, resto, false}}, margen, destacada);
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
