#include <algorithm>
#include <cmath>

#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/EscalaDibujo.h"
#include "kvdatosart/host/EscribirTexto.h"
#include "kvdatosart/host/Historia.h"

namespace kv::host {
namespace {

using aplicacion::RespuestaHistoria;
using C = aplicacion::ClaseDato;

constexpr int kAncho = 960;
constexpr int kIzquierda = 90, kDerecha = 930;
constexpr int kAlto = 260;
constexpr int kLinea = 20;
// Letters that fit into a line of the heading and into the reason of a row.
constexpr std::size_t kLetrasTitulo = 100, kLetrasMotivo = 54;
constexpr const char* kOscuro = "#1d4f91";
constexpr const char* kTexto = "#222222";

struct ColumnaDibujo {
    const char* rotulo;
    int x;
    bool derecha;
};
constexpr ColumnaDibujo kColumnas[] = {{"Tramo", 24, false},       {"Desde", 84, false},  {"Hasta", 174, false},
                                       {"Precio", 330, true},      {"Dto. %", 400, true}, {"Neto", 484, true},
                                       {"Qué lo pone", 510, false}};

std::string Escapado(const std::string& texto) {
    std::string xml;
    for (const char c : Mostrable(texto)) {
        if (c == '&')
            xml += "&amp;";
        else if (c == '<')
            xml += "&lt;";
        else if (c == '>')
            xml += "&gt;";
        else if (c == '"')
            xml += "&quot;";
        else
            xml += c;
    }
    return xml;
}

std::string Atributo(const std::string& nombre, const std::string& valor) {
    return ' ' + nombre + "=\"" + Escapado(valor) + '"';
}
std::string Atributo(const std::string& nombre, int valor) {
    return Atributo(nombre, std::to_string(valor));
}

std::string Rotulo(int x, int y, const std::string& texto, const std::string& atributos = "") {
    return "<text" + Atributo("x", x) + Atributo("y", y) + atributos + '>' + Escapado(texto) + "</text>\n";
}

std::string Raya(int x1, int y1, int x2, int y2, const std::string& atributos) {
    return "<path" +
           Atributo("d", "M" + std::to_string(x1) + ' ' + std::to_string(y1) + 'L' + std::to_string(x2) + ' ' +
                             std::to_string(y2)) +
           atributos + "/>\n";
}

std::string Caja(int x, int y, int ancho, int alto, const std::string& atributos) {
    return "<rect" + Atributo("x", x) + Atributo("y", y) + Atributo("width", ancho) + Atributo("height", alto) +
           atributos + "/>\n";
}

/// The picture while it is drawn, from the top down.
class Dibujo {
  public:
    Dibujo(const RespuestaHistoria& historia, char separador)
        : historia_(historia), separador_(separador), dias_(EscalaDias(historia)), precios_(EscalaPrecios(historia)) {}

    std::string Svg() {
        Titulo();
        Grafica();
        Tabla();
        const std::string tamano = std::to_string(kAncho) + ' ' + std::to_string(y_);
        return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + tamano + '"' + Atributo("width", kAncho) +
               Atributo("height", y_) +
               " lang=\"es\" role=\"graphics-document document\" aria-labelledby=\"titulo frase\""
               " font-family=\"Helvetica, Arial, sans-serif\" font-size=\"13\">\n<title id=\"titulo\">" +
               Escapado(TextoTitulo()) + "</title>\n<desc id=\"frase\">" + Escapado(FraseDe(historia_, separador_)) +
               "</desc>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n" + cuerpo_ + "</svg>\n";
    }

  private:
    int X(double dia) const { return dias_.En(dia, kIzquierda, kDerecha); }
    int Y(const TramoHistoria& tramo) const { return YDe(tramo.tasacion.neto.ADouble()); }
    int YDe(double precio) const { return precios_.En(precio, y_ + kAlto, y_); }
    // An endless stretch goes on to the edge.
    int Fin(const TramoHistoria& tramo) const { return SinFin(tramo) ? kDerecha : X(tramo.hasta.AOle() + 1); }
    static bool ConPrecio(const TramoHistoria& tramo) {
        return tramo.tasacion.fallo.empty() && !tramo.tasacion.SinPrecio();
    }

    std::string TextoTitulo() const {
        return "Precio de " + std::to_string(historia_.articulo) + " " + historia_.descripcion + " para " +
               std::to_string(historia_.cliente) + " " + historia_.nombre;
    }

    void Titulo() {
        y_ = 14;
        for (const std::string& linea : EnLineas(Mostrable(TextoTitulo()), kLetrasTitulo))
            cuerpo_ += Rotulo(24, y_ += kLinea, linea,
                              R"( font-size="17" font-weight="bold" fill="#111111" aria-hidden="true")");
        for (const std::string& linea : EnLineas(FraseDe(historia_, separador_), kLetrasTitulo + 20))
            cuerpo_ += Rotulo(24, y_ += kLinea, linea, Atributo("fill", kTexto) + " aria-hidden=\"true\"");
        y_ += 40;
    }

    void Grafica() {
        cuerpo_ += "<g role=\"img\"" +
                   Atributo("aria-label", "Gráfica de escalones: " + FraseDe(historia_, separador_)) + ">\n";
        Ejes();
        Hoy();
        for (std::size_t i = 0; i < historia_.tramos.size(); ++i) {
            if (i > 0) Escalon(historia_.tramos[i - 1], historia_.tramos[i]);
            Tramo(historia_.tramos[i]);
        }
        for (std::size_t i = 0; i < historia_.tramos.size(); ++i) Etiqueta(historia_.tramos[i], i + 1);
        cuerpo_ += "</g>\n";
        y_ += kAlto + 44;
        if (precios_.desde > 0)
            cuerpo_ += Rotulo(24, y_, "El eje de precios no empieza en 0.", R"( font-size="12" fill="#555555")");
        if (historia_.tramos.front().pasado) {
            cuerpo_ += Raya(500, y_ - 4, 550, y_ - 4, Trazo(true));
            cuerpo_ +=
                Rotulo(558, y_, "días pasados: " + std::string(kNoLoCobrado), R"( font-size="12" fill="#555555")");
        }
        y_ += 16;
    }

    void Ejes() {
        for (const double marca : precios_.marcas) {
            const int y = YDe(marca);
            cuerpo_ += Raya(kIzquierda, y, kDerecha, y, " stroke=\"#dddddd\"");
            cuerpo_ += Rotulo(kIzquierda - 8, y + 4, ValorATexto(Currency::DeDouble(marca), C::Importe, separador_),
                              R"( font-size="12" text-anchor="end" fill="#444444")");
        }
        const int abajo = y_ + kAlto;
        for (const MarcaDia& marca : MarcasDias(dias_)) {
            const int x = X(marca.dia);
            cuerpo_ += Raya(x, abajo, x, abajo + 5, " stroke=\"#444444\"");
            cuerpo_ += Rotulo(x, abajo + 19, marca.rotulo, R"( font-size="12" text-anchor="middle" fill="#444444")");
        }
        cuerpo_ += Raya(kIzquierda, abajo, kDerecha, abajo, " stroke=\"#444444\"");
    }

    void Hoy() {
        const double hoy = historia_.hoy.AOle();
        if (hoy < dias_.desde || hoy > dias_.hasta) return;
        cuerpo_ += Raya(X(hoy), y_ - 14, X(hoy), y_ + kAlto, R"( stroke="#777777" stroke-dasharray="1 3")");
        const char* const ancla = X(hoy) > kDerecha - 60 ? "end" : "start";
        cuerpo_ += Rotulo(X(hoy), y_ - 18, "hoy, " + std::string(historia_.hoy.ATexto().Cadena()),
                          Atributo("text-anchor", ancla) + R"( font-size="12" fill="#444444")");
    }

    static std::string Trazo(bool pasado) {
        return Atributo("stroke", kOscuro) + " stroke-width=\"3\"" + (pasado ? " stroke-dasharray=\"9 5\"" : "");
    }

    void Escalon(const TramoHistoria& antes, const TramoHistoria& despues) {
        if (!ConPrecio(antes) || !ConPrecio(despues)) return;
        const int x = X(despues.desde.AOle());
        cuerpo_ += Raya(x, Y(antes), x, Y(despues), Atributo("stroke", kOscuro) + " stroke-width=\"1\"");
    }

    void Tramo(const TramoHistoria& tramo) {
        const int x = X(tramo.desde.AOle());
        if (ConPrecio(tramo))
            cuerpo_ += Raya(x, Y(tramo), Fin(tramo), Y(tramo), Trazo(tramo.pasado));
        else
            cuerpo_ += Caja(x, y_, Fin(tramo) - x, kAlto, R"( fill="#000000" fill-opacity="0.06")");
    }

    // Its number in the table and its price, where there is room for them.
    void Etiqueta(const TramoHistoria& tramo, std::size_t numero) {
        const std::string precio = PrecioDe(tramo, separador_);
        const int x = X(tramo.desde.AOle());
        const int ancho = Fin(tramo) - x;
        const int y = ConPrecio(tramo) ? Y(tramo) : y_ + kAlto - 10;
        if (ancho < 22) return;
        cuerpo_ += "<circle" + Atributo("cx", x + 11) + Atributo("cy", y - 14) + Atributo("r", 9) +
                   Atributo("fill", kOscuro) + "/>\n";
        cuerpo_ +=
            Rotulo(x + 11, y - 10, std::to_string(numero), R"( font-size="11" text-anchor="middle" fill="#ffffff")");
        if (ancho >= 26 + 8 * static_cast<int>(Anchura(precio)))
            cuerpo_ += Rotulo(x + 25, y - 9, precio, R"( font-weight="bold" fill="#111111")");
    }

    void Tabla() {
        cuerpo_ += "<g role=\"table\" aria-label=\"Los mismos números\">\n";
        Fila({"Tramo", "Desde", "Hasta", "Precio", "Dto. %", "Neto", "Qué lo pone"}, "columnheader",
             " font-weight=\"bold\"");
        for (std::size_t i = 0; i < historia_.tramos.size(); ++i) {
            const TramoHistoria& tramo = historia_.tramos[i];
            const Tasacion& t = tramo.tasacion;
            const auto numero = [&](Currency valor, C clase) {
                return ConPrecio(tramo) ? ValorATexto(valor, clase, separador_) : std::string("-");
            };
            Fila({std::to_string(i + 1), tramo.desde.ATexto().Cadena(),
                  SinFin(tramo) ? "sin fin" : std::string(tramo.hasta.ATexto().Cadena()), numero(t.pvp, C::Importe),
                  numero(t.descuento, C::Porcentaje), numero(t.neto, C::Importe),
                  MotivoDe(tramo) + (tramo.pasado ? "; " + std::string(kNoLoCobrado) : "")},
                 "cell", tramo.pasado ? " font-style=\"italic\"" : "");
        }
        cuerpo_ += "</g>\n";
        y_ += 16;
    }

    void Fila(const std::vector<std::string>& celdas, const char* papel, const std::string& atributos) {
        cuerpo_ += Raya(24, y_ + 6, kDerecha, y_ + 6, " stroke=\"#bbbbbb\"");
        cuerpo_ += "<g role=\"row\"" + Atributo("fill", kTexto) + atributos + ">\n";
        const std::vector<std::string> motivo = EnLineas(Mostrable(celdas.back()), kLetrasMotivo);
        y_ += kLinea + 2;
        for (std::size_t i = 0; i < celdas.size(); ++i)
            Celda(kColumnas[i], i + 1 < celdas.size() ? std::vector{celdas[i]} : motivo, papel);
        cuerpo_ += "</g>\n";
        y_ += (static_cast<int>(motivo.size()) - 1) * (kLinea - 3);
    }

    void Celda(const ColumnaDibujo& columna, const std::vector<std::string>& lineas, const char* papel) {
        cuerpo_ += "<text" + Atributo("role", papel) + (columna.derecha ? " text-anchor=\"end\"" : "") + '>';
        for (std::size_t i = 0; i < lineas.size(); ++i)
            cuerpo_ += "<tspan" + Atributo("x", columna.x) + Atributo("y", y_ + static_cast<int>(i) * (kLinea - 3)) +
                       '>' + Escapado(lineas[i]) + (i + 1 < lineas.size() ? " " : "") + "</tspan>";
        cuerpo_ += "</text>\n";
    }

    const RespuestaHistoria& historia_;
    char separador_;
    Escala dias_;
    EscalaConMarcas precios_;
    // Where the next thing goes.
    int y_ = 0;
    std::string cuerpo_;
};

}  // namespace

std::string ASvg(const RespuestaHistoria& historia, char separador) {
    return Dibujo(historia, separador).Svg();
}

}  // namespace kv::host
