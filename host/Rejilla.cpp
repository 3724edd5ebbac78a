#include "kvdatosart/host/Rejilla.h"

#include <algorithm>

#include "kvdatosart/host/Anchura.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;
using aplicacion::ColumnaTabla;
using aplicacion::FilaTabla;

constexpr std::size_t kEntreColumnas = 2;
// A column of text is not made narrower than this, or than its own longest text.
constexpr std::size_t kTextoEstrecho = 14;

bool EsCantidad(ClaseDato clase) {
    return clase == ClaseDato::Importe || clase == ClaseDato::Cantidad || clase == ClaseDato::Porcentaje;
}

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

// Puts the decimals of a column one under the other, those of earlier rows included.
void AlinearDecimales(ColumnaRejilla& columna, char separador) {
    const auto decimales = [&](const std::string& celda) {
        return celda.size() - std::min(celda.find(separador), celda.size());
    };
    for (const std::string& celda : columna.celdas) columna.fraccion = std::max(columna.fraccion, decimales(celda));
    for (std::string& celda : columna.celdas) celda += std::string(columna.fraccion - decimales(celda), ' ');
}

ColumnaRejilla Preparar(const ColumnaTabla& origen, std::size_t indice, std::span<const FilaTabla> filas,
                        char separador, std::size_t fraccion) {
    ColumnaRejilla columna;
    columna.rotulo = origen.rotulo;
    columna.derecha = EsCantidad(origen.clase) || origen.clase == ClaseDato::Codigo;
    columna.fraccion = fraccion;
    for (const auto& fila : filas) columna.celdas.push_back(ValorATexto(fila[indice], origen.clase, separador));
    if (EsCantidad(origen.clase)) AlinearDecimales(columna, separador);
    const std::size_t celdas = MasAncha(columna.celdas);
    const std::size_t palabra = PalabraMasAncha(columna.rotulo);
    columna.ancho = std::max(celdas, Anchura(columna.rotulo));
    columna.comodo = std::max(celdas, palabra);
    columna.minimo =
        origen.clase == ClaseDato::Texto ? std::max(std::min(celdas, kTextoEstrecho), palabra) : columna.comodo;
    return columna;
}

}  // namespace

std::vector<ColumnaRejilla> EnColumnas(std::span<const ColumnaTabla> columnas, std::span<const FilaTabla> filas,
                                       char separador) {
    std::vector<ColumnaRejilla> todas;
    for (std::size_t i = 0; i < columnas.size(); ++i) todas.push_back(Preparar(columnas[i], i, filas, separador, 0));
    return todas;
}

std::vector<ColumnaRejilla> ComoEllas(const std::vector<ColumnaRejilla>& modelo, std::span<const ColumnaTabla> columnas,
                                      std::span<const FilaTabla> filas, char separador) {
    std::vector<ColumnaRejilla> todas;
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        todas.push_back(Preparar(columnas[i], i, filas, separador, modelo[i].fraccion));
        todas.back().ancho = modelo[i].ancho;
    }
    return todas;
}

bool Encajar(std::vector<ColumnaRejilla>& columnas, std::size_t ancho) {
    std::size_t total = kEntreColumnas * (columnas.size() - 1);
    for (const ColumnaRejilla& columna : columnas) total += columna.ancho;
    for (const auto hasta : {&ColumnaRejilla::comodo, &ColumnaRejilla::minimo}) {
        for (; total > ancho; --total) {
            ColumnaRejilla* ancha = nullptr;
            for (ColumnaRejilla& columna : columnas)
                if (columna.ancho > columna.*hasta && (ancha == nullptr || columna.ancho > ancha->ancho))
                    ancha = &columna;
            if (ancha == nullptr) break;
            --ancha->ancho;
        }
    }
    return total <= ancho;
}

void Rejilla::Fila(const std::vector<Celda>& celdas, std::string_view margen, bool destacada) {
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
            linea +=
                (j == 0 ? "" : std::string(kEntreColumnas, ' ')) + (celdas[j].derecha ? hueco + trozo : trozo + hueco);
        }
        linea.erase(linea.find_last_not_of(' ') + 1);
        salida_ += destacada && presentacion_.color ? "\033[1;32m" + linea + "\033[0m\n" : linea + '\n';
    }
}

void Rejilla::Fila(const std::vector<ColumnaRejilla>& columnas, std::size_t fila, std::string_view margen,
                   bool destacada) {
    std::vector<Celda> celdas;
    for (const ColumnaRejilla& c : columnas) celdas.push_back({c.celdas[fila], c.ancho, c.derecha});
    Fila(celdas, margen, destacada);
}

void Rejilla::Cabecera(const std::vector<ColumnaRejilla>& columnas, std::string_view margen) {
    std::vector<Celda> celdas;
    for (const ColumnaRejilla& c : columnas) celdas.push_back({c.rotulo, c.ancho, c.derecha});
    Fila(celdas, margen, false);
}

void Rejilla::Hoja(std::span<const ColumnaTabla> columnas, std::span<const Valor> valores, char separador,
                   const std::string& margen, bool destacada) {
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
        const std::string texto = ValorATexto(valores[i], columnas[i].clase, separador);
        Fila({{rotulo, rotulos, false}, {texto, resto, false}}, margen, destacada);
    }
}

}  // namespace kv::host
