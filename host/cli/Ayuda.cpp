#include "kvdatosart/host/cli/Ayuda.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/host/EscribirTexto.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/OpcionesSalida.h"

namespace kv::host {
namespace {

// Through a pipe help is read as on a terminal that does not say how wide it is.
constexpr std::size_t kAnchoAyuda = 80;
constexpr const char* kGrupoPropio = "Opciones";

/// Names and what they are, under a heading.
struct Apartado {
    std::string titulo;
    std::vector<std::pair<std::string, std::string>> lineas;
};

std::size_t AnchoAyuda() {
    const std::size_t ancho = PresentacionDeSalida().ancho;
    return ancho == 0 ? kAnchoAyuda : ancho;
}

std::string NombreCompleto(const CLI::App& orden) {
    const std::string nombre = orden.get_name();
    return orden.get_parent() == nullptr ? nombre : NombreCompleto(*orden.get_parent()) + ' ' + nombre;
}

std::vector<const CLI::App*> Ordenes(const CLI::App& orden) {
    return orden.get_subcommands([](const CLI::App*) { return true; });
}

bool ConValor(const CLI::Option& opcion) {
    return opcion.get_items_expected_max() > 0;
}

// "-h, --help" or "--articulo N".
std::string Nombres(const CLI::Option& opcion) {
    std::string texto;
    for (const std::string& corto : opcion.get_snames()) texto += (texto.empty() ? "-" : ", -") + corto;
    for (const std::string& largo : opcion.get_lnames()) texto += (texto.empty() ? "--" : ", --") + largo;
    if (texto.empty()) return opcion.get_type_name();
    return ConValor(opcion) ? texto + ' ' + opcion.get_type_name() : texto;
}

/// The options of a command by groups, in the order in which they were added; those of its own come first.
std::vector<Apartado> Opciones(const CLI::App& orden) {
    std::vector<Apartado> apartados = {{kGrupoPropio, {}}, {kGrupoComun, {}}};
    for (const CLI::Option* opcion : orden.get_options()) {
        Apartado& suyo = apartados[opcion->get_group() == kGrupoComun || opcion == orden.get_help_ptr() ? 1 : 0];
        suyo.lineas.emplace_back(Nombres(*opcion),
                                 opcion->get_description() + (opcion->get_required() ? " (obligatorio)" : ""));
    }
    std::erase_if(apartados, [](const Apartado& apartado) { return apartado.lineas.empty(); });
    return apartados;
}

Apartado Hijas(const CLI::App& orden) {
    Apartado apartado{"Órdenes", {}};
    for (const CLI::App* hija : Ordenes(orden)) apartado.lineas.emplace_back(hija->get_name(), hija->get_description());
    return apartado;
}

std::string Uso(const CLI::App& orden) {
    std::string uso = NombreCompleto(orden);
    if (!Ordenes(orden).empty())
        return uso + (orden.get_require_subcommand_min() > 0 ? " ORDEN" : " [ORDEN]") + " [OPCIONES]";
    for (const CLI::Option* opcion : orden.get_options())
        if (opcion->get_positional()) uso += " [" + opcion->get_type_name() + "]";
    return uso + " [OPCIONES]";
}

/// Help on the screen.
class Pantalla {
  public:
    explicit Pantalla(std::size_t ancho) : presentacion_{ancho, false} {}

    void Parrafo(const std::string& texto) {
        Escribir([&](Documento& d) { d.Decir(texto); });
    }
    void Lista(const Apartado& apartado) {
        if (apartado.lineas.empty()) return;
        texto_ += '\n' + apartado.titulo + ":\n";
        std::vector<std::string> nombres;
        for (const auto& linea : apartado.lineas) nombres.push_back("  " + linea.first);
        Escribir([&](Documento& d) {
            for (std::size_t i = 0; i < nombres.size(); ++i) d.Dato("", nombres[i], apartado.lineas[i].second);
        });
    }
    void Hueco() { texto_ += '\n'; }
    std::string Texto() && { return std::move(texto_); }

  private:
    template <class Contenido>
    void Escribir(Contenido contenido) {
        Documento documento;
        contenido(documento);
        texto_ += ATexto(documento, presentacion_);
    }

    Presentacion presentacion_;
    std::string texto_;
};

// What troff would take for its own: escapes, hyphens that must be copied as such, a line that begins with a point.
std::string Troff(const std::string& texto) {
    std::string salida;
    for (const char c : texto) {
        if ((c == '.' || c == '\'') && (salida.empty() || salida.back() == '\n')) salida += "\\&";
        if (c == '\\')
            salida += "\\e";
        else if (c == '-')
            salida += "\\-";
        else
            salida += c;
    }
    return salida;
}

std::string Troff(const Apartado& apartado) {
    std::string salida;
    for (const auto& [nombre, texto] : apartado.lineas)
        salida += ".TP\n.B " + Troff(nombre) + '\n' + Troff(texto) + '\n';
    return salida;
}

std::string EnManual(const CLI::App& orden) {
    std::string pagina = ".SS " + Troff(Uso(orden)) + '\n' + Troff(orden.get_description()) + '\n';
    for (const Apartado& apartado : Opciones(orden))
        if (apartado.titulo == kGrupoPropio) pagina += Troff(apartado);
    for (const CLI::App* hija : Ordenes(orden)) pagina += EnManual(*hija);
    return pagina;
}

// The words that may follow a command, and those that take it to one of its own.
void EnGuion(const CLI::App& orden, std::string& palabras, std::string& caminos, std::string& conValor) {
    const std::string nombre = NombreCompleto(orden);
    palabras += "        '" + nombre + "') palabras='";
    for (const CLI::App* hija : Ordenes(orden)) {
        palabras += hija->get_name() + ' ';
        caminos += (caminos.empty() ? "'" : "|'") + nombre + ' ' + hija->get_name() + "'";
    }
    bool ficheros = false;
    for (const CLI::Option* opcion : orden.get_options()) {
        for (const std::string& largo : opcion->get_lnames()) {
            palabras += "--" + largo + ' ';
            if (ConValor(*opcion) && opcion->get_type_name() != "FICHERO") conValor += "|--" + largo;
        }
        ficheros = ficheros || (opcion->get_positional() && opcion->get_type_name() == "FICHERO");
    }
    palabras += ficheros ? "'; ficheros=si ;;\n" : "' ;;\n";
    for (const CLI::App* hija : Ordenes(orden)) EnGuion(*hija, palabras, caminos, conValor);
}

struct PeticionAyuda {
    std::vector<std::string> orden;
    bool manual = false;
    bool bash = false;
};

void Responder(const CLI::App& programa, const PeticionAyuda& peticion) {
    if (peticion.manual || peticion.bash) {
        EscribirSalida(peticion.manual ? PaginaManual(programa) : GuionBash(programa));
        return;
    }
    const CLI::App* orden = &programa;
    for (const std::string& nombre : peticion.orden) {
        const auto hijas = Ordenes(*orden);
        const auto hija =
            std::find_if(hijas.begin(), hijas.end(), [&](const CLI::App* h) { return h->get_name() == nombre; });
        if (hija == hijas.end())
            aplicacion::RechazarImposible("", "«" + nombre + "» no es una orden de " + orden->get_name());
        orden = *hija;
    }
    EscribirSalida(TextoAyuda(*orden, AnchoAyuda()));
}

}  // namespace

std::string TextoAyuda(const CLI::App& orden, std::size_t ancho) {
    Pantalla pantalla(ancho);
    pantalla.Parrafo("Uso: " + Uso(orden));
    pantalla.Hueco();
    pantalla.Parrafo(orden.get_description());
    pantalla.Lista(Hijas(orden));
    for (const Apartado& apartado : Opciones(orden)) pantalla.Lista(apartado);
    const std::string pie = orden.get_footer();
    for (std::size_t desde = 0; desde < pie.size();) {
        const std::size_t hasta = std::min(pie.find('\n', desde), pie.size());
        if (desde == 0) pantalla.Hueco();
        pantalla.Parrafo(pie.substr(desde, hasta - desde));
        desde = hasta + 1;
    }
    return std::move(pantalla).Texto();
}

std::string PaginaManual(const CLI::App& programa) {
    const std::string nombre = programa.get_name();
    std::string pagina = ".TH KVDATOSART 1 \"\" \"" + programa.version() + "\" \"Manual de usuario\"\n.SH NOMBRE\n" +
                         nombre + " \\- " + Troff(programa.get_description()) + "\n.SH SINOPSIS\n.B " + nombre +
                         "\n.I ORDEN\n[OPCIONES]\n.SH OPCIONES COMUNES\n";
    const auto hijas = Ordenes(programa);
    for (const Apartado& apartado : Opciones(*hijas.front()))
        if (apartado.titulo == kGrupoComun) pagina += Troff(apartado);
    pagina += ".SH ÓRDENES\n";
    for (const CLI::App* hija : hijas) pagina += EnManual(*hija);
    return pagina + ".SH NOTAS\n.nf\n" + Troff(programa.get_footer()) + "\n.fi\n";
}

std::string GuionBash(const CLI::App& programa) {
    std::string palabras;
    std::string caminos;
    std::string conValor = "-h";
    EnGuion(programa, palabras, caminos, conValor);
    return "# bash completion of " + programa.get_name() + R"(
_kvdatosart() {
    local actual=${COMP_WORDS[COMP_CWORD]} orden=kvdatosart palabra palabras='' ficheros=''
    for palabra in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case "$orden $palabra" in
        )" +
           caminos + R"() orden="$orden $palabra" ;;
        esac
    done
    COMPREPLY=()
    case "${COMP_WORDS[COMP_CWORD-1]}" in
        --base) ficheros=si ;;
        )" +
           conValor + R"() return ;;
        *)
        case "$orden" in
)" + palabras +
           R"(        esac ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$palabras" -- "$actual"; [ -z "$ficheros" ] || compgen -f -- "$actual")
}
complete -o filenames -F _kvdatosart kvdatosart
)";
}

std::string AyudaPedida(const CLI::App& programa) {
    const CLI::App* orden = &programa;
    while (!orden->get_subcommands().empty()) orden = orden->get_subcommands().back();
    return TextoAyuda(*orden, AnchoAyuda());
}

void AnadirAyuda(CLI::App& programa) {
    const auto peticion = std::make_shared<PeticionAyuda>();
    CLI::App* ayuda = programa.add_subcommand("ayuda", "Cuenta qué hace una orden y qué opciones tiene");
    ayuda->add_option("orden", peticion->orden, "La orden, por ejemplo: stock mover")->type_name("ORDEN");
    ayuda->add_flag("--man", peticion->manual, "Escribe la página de manual (troff)");
    ayuda->add_flag("--bash", peticion->bash, "Escribe el guion con que bash completa órdenes y opciones");
    ayuda->callback([&programa, peticion] { Responder(programa, *peticion); });
}

}  // namespace kv::host
