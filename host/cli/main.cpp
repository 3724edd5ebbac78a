#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/Lectura.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/Terminal.h"
#include "kvdatosart/host/cli/Ayuda.h"
#include "kvdatosart/host/cli/BibliotecaPrograma.h"
#include "kvdatosart/host/cli/CodigosSalida.h"
#include "kvdatosart/host/cli/MalEscrita.h"
#include "kvdatosart/host/cli/Opcion.h"
#include "kvdatosart/host/cli/Ordenes.h"
#include "kvdatosart/host/cli/OrdenesEnsayadas.h"

namespace {

constexpr const char* kPie =
    "Fechas: dd/mm/aaaa o aaaa-mm-dd. Números: con coma o punto decimal.\n"
    "Sin --base ni --odbc se trabaja con el fichero que diga la variable KV_BASE.\n"
    "Códigos de salida:\n"
    "  0  hecho\n"
    "  1  respuesta negativa: no existe, sin precio, rechazado, hay hallazgos\n"
    "  2  orden mal escrita o imposible\n"
    "  3  fallo de la base de datos, de un fichero o de la salida";

// One line, whatever a driver puts into its texts; for programs, where they look for the answer.
int Fracaso(int codigo, const std::string& texto, bool json) {
    const std::string linea = kv::host::Mostrable(texto);
    try {
        if (json) {
            kv::host::EscribirSalida(kv::host::ErrorAJson(codigo, linea));
            return codigo;
        }
    } catch (const std::exception&) {
        // Whoever cannot be told there is told below.
    }
    std::cerr << "kvdatosart: " << linea << '\n';
    return codigo;
}

int Contar(const std::string& texto) {
    try {
        kv::host::EscribirSalida(texto);
        return kv::host::kHecho;
    } catch (const std::exception& error) {
        return Fracaso(kv::host::kBase, error.what(), false);
    }
}

// {hasta} is "--hasta" here.
std::string ConOpciones(std::string texto) {
    for (auto abre = texto.find('{'); abre != std::string::npos; abre = texto.find('{')) {
        const auto cierra = texto.find('}', abre);
        texto.replace(abre, cierra - abre + 1, kv::host::NombreOpcion(texto.substr(abre + 1, cierra - abre - 1)));
    }
    return texto;
}

int Rechazada(const kv::aplicacion::Rechazo& rechazo, bool json) {
    const std::string texto = ConOpciones(rechazo.what());
    if (rechazo.clase == kv::aplicacion::Rechazo::Clase::Negativa) return Fracaso(kv::host::kNegativo, texto, json);
    return Fracaso(kv::host::kUso, rechazo.campo.empty() ? texto : kv::host::NombreOpcion(rechazo.campo) + ": " + texto,
                   json);
}

// Asked of the words themselves, since a command line that cannot be understood is answered too.
bool QuiereJson(int argc, const char* const* argv) {
    return std::find(argv + 1, argv + argc, std::string_view("--json")) != argv + argc;
}

int Programa(int argc, const char* const* argv) {
    const kv::host::Terminal terminal;
    // Statements and answers for programs carry a point on every host.
    kv::CambiarBiblioteca(std::make_shared<kv::host::BibliotecaPrograma>());
    CLI::App programa("KVDatosArt: precio, descuentos, existencias y coste de un artículo para una línea de venta.",
                      "kvdatosart");
    // A word that begins with '/' is a file everywhere.
    programa.allow_windows_style_options(false);
    programa.set_help_flag("-h,--help,--ayuda", "Muestra esta ayuda y termina");
    programa.set_version_flag("--version", "kvdatosart " KV_VERSION, "Muestra la versión y termina");
    programa.footer(kPie);
    programa.require_subcommand(1);
    kv::host::AnadirCrearDemo(programa);
    kv::host::AnadirDevPvp(programa);
    kv::host::AnadirCargar(programa);
    kv::host::AnadirHistoria(programa);
    kv::host::AnadirLista(programa);
    kv::host::AnadirLasQueEscriben(programa);
    kv::host::AnadirEnsayar(programa);
    kv::host::AnadirRevisar(programa);
    kv::host::AnadirCopia(programa);
    kv::host::AnadirActualizar(programa);
    kv::host::AnadirListados(programa);
    kv::host::AnadirServir(programa);
    kv::host::AnadirAyuda(programa);
    const bool json = argc > 0 && QuiereJson(argc, argv);
    try {
        kv::host::ExigirUtf8(argc, argv);
        programa.parse(kv::host::PalabrasAlReves(argc, argv));
        return kv::host::kHecho;
    } catch (const kv::host::Termina& termina) {
        return termina.codigo;
    } catch (const CLI::CallForHelp&) {
        return Contar(kv::host::AyudaPedida(programa));
    } catch (const CLI::CallForVersion& version) {
        return Contar(std::string(version.what()) + '\n');
    } catch (const CLI::ParseError& error) {
        return Fracaso(kv::host::kUso, kv::host::EnCastellano(error, programa), json);
    } catch (const kv::aplicacion::Rechazo& rechazo) {
        return Rechazada(rechazo, json);
    } catch (const kv::RuntimeError& error) {
        return Fracaso(kv::host::kBase,
                       error.origen + ": error " + std::to_string(error.numero) + ": " + error.descripcion, json);
    } catch (const std::exception& error) {
        return Fracaso(kv::host::kBase, ConOpciones(error.what()), json);
    }
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> textos;
    for (int i = 0; i < argc; ++i) textos.push_back(kv::host::AUtf8(argv[i]));
    std::vector<const char*> palabras;
    for (const std::string& texto : textos) palabras.push_back(texto.c_str());
    return Programa(argc, palabras.data());
}
#else
int main(int argc, char** argv) {
    return Programa(argc, argv);
}
#endif
