#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#include "application/Rechazo.h"
#include "base/RuntimeError.h"
#include "db/BibliotecaComun.h"
#include "db/BibliotecaConsola.h"
#include "host/Lectura.h"
#include "host/cli/CodigosSalida.h"
#include "host/cli/MalEscrita.h"
#include "host/cli/Opcion.h"
#include "host/cli/Ordenes.h"

namespace {

constexpr const char* kPie =
    "Fechas: dd/mm/aaaa o aaaa-mm-dd. Números: con punto o coma decimal.\n"
    "Códigos de salida: 0 hecho; 1 respuesta negativa (no existe, sin precio, rechazado, hay hallazgos);\n"
    "2 orden mal escrita; 3 fallo de la base de datos o de un fichero.";

// One line, whatever a driver puts into its texts.
int Fracaso(int codigo, std::string texto) {
    std::replace_if(
        texto.begin(), texto.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    std::cerr << "kvdatosart: " << texto << '\n';
    return codigo;
}

// {hasta} is "--hasta" here.
std::string ConOpciones(std::string texto) {
    for (auto abre = texto.find('{'); abre != std::string::npos; abre = texto.find('{')) {
        const auto cierra = texto.find('}', abre);
        texto.replace(abre, cierra - abre + 1, kv::host::NombreOpcion(texto.substr(abre + 1, cierra - abre - 1)));
    }
    return texto;
}

int Rechazada(const kv::aplicacion::Rechazo& rechazo) {
    const std::string texto = ConOpciones(rechazo.what());
    if (rechazo.clase == kv::aplicacion::Rechazo::Clase::Negativa) return Fracaso(kv::host::kNegativo, texto);
    return Fracaso(kv::host::kUso,
                   rechazo.campo.empty() ? texto : kv::host::NombreOpcion(rechazo.campo) + ": " + texto);
}

void Castellanizar(CLI::App& programa) {
    const auto formato = std::make_shared<CLI::Formatter>();
    formato->label("Usage", "Uso");
    formato->label("OPTIONS", "OPCIONES");
    formato->label("POSITIONALS", "ARGUMENTOS");
    formato->label("SUBCOMMAND", "ORDEN");
    formato->label("SUBCOMMANDS", "ÓRDENES");
    formato->label("REQUIRED", "(obligatorio)");
    formato->label("TEXT", "");
    formato->column_width(34);
    programa.formatter(formato);
    programa.set_help_flag("-h,--help,--ayuda", "Muestra esta ayuda y termina");
}

// CLI11 heads its groups in English unless each option and command says otherwise.
void Encabezar(CLI::App& orden) {
    for (CLI::Option* opcion : orden.get_options()) opcion->group("Opciones");
    for (CLI::App* hija : orden.get_subcommands(nullptr)) {
        hija->group("Órdenes");
        Encabezar(*hija);
    }
}

}  // namespace

int main(int argc, char** argv) {
    kv::CambiarBiblioteca(std::make_shared<kv::BibliotecaConsola>());
    // Statements and answers for programs carry a point on every host; who writes for people knows their separator.
    kv::FijarSeparadorDecimal('.');
    CLI::App programa("KVDatosArt: precio, descuentos, existencias y coste de un artículo para una línea de venta.",
                      "kvdatosart");
    Castellanizar(programa);
    programa.footer(kPie);
    programa.require_subcommand(1);
    kv::host::AnadirCrearDemo(programa);
    kv::host::AnadirDevPvp(programa);
    kv::host::AnadirCargar(programa);
    kv::host::AnadirCliente(programa);
    kv::host::AnadirPrecios(programa);
    kv::host::AnadirDescuentos(programa);
    kv::host::AnadirAcuerdos(programa);
    kv::host::AnadirStock(programa);
    kv::host::AnadirVentas(programa);
    kv::host::AnadirRevisar(programa);
    kv::host::AnadirActualizar(programa);
    kv::host::AnadirListados(programa);
    Encabezar(programa);
    try {
        kv::host::ExigirUtf8(argc, argv);
        programa.parse(argc, argv);
        return kv::host::kHecho;
    } catch (const CLI::CallForHelp& ayuda) {
        return programa.exit(ayuda, std::cout, std::cerr);
    } catch (const CLI::ParseError& error) {
        return Fracaso(kv::host::kUso, kv::host::EnCastellano(error, programa));
    } catch (const kv::aplicacion::Rechazo& rechazo) {
        return Rechazada(rechazo);
    } catch (const kv::RuntimeError& error) {
        return Fracaso(kv::host::kBase,
                       error.origen + ": error " + std::to_string(error.numero) + ": " + error.descripcion);
    } catch (const std::exception& error) {
        return Fracaso(kv::host::kBase, ConOpciones(error.what()));
    }
}
