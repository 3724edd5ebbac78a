#include <CLI/CLI.hpp>
#include <iostream>

#include "base/RuntimeError.h"
#include "host/Fallo.h"
#include "host/Ordenes.h"

namespace {

constexpr const char* kPie =
    "Fechas: dd/mm/aaaa o aaaa-mm-dd. Números: con punto o coma decimal.\n"
    "Códigos de salida: 0 hecho; 1 respuesta negativa (no existe, sin precio, rechazado, hay hallazgos);\n"
    "2 orden mal escrita; 3 fallo de la base de datos o de un fichero.";

std::string EnCastellano(const CLI::ParseError& error) {
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return std::string("argumento desconocido: ") + error.what();
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr)
        return std::string("falta un argumento obligatorio: ") + error.what();
    return std::string("orden mal escrita: ") + error.what();
}

int Fracaso(int codigo, const std::string& texto) {
    std::cerr << "kvdatosart: " << texto << '\n';
    return codigo;
}

void Castellanizar(CLI::App& programa) {
    const auto formato = std::make_shared<CLI::Formatter>();
    formato->label("Usage", "Uso");
    formato->label("OPTIONS", "OPCIONES");
    formato->label("Options", "Opciones");
    formato->label("Positionals", "Argumentos");
    formato->label("SUBCOMMAND", "ORDEN");
    formato->label("SUBCOMMANDS", "ÓRDENES");
    formato->label("Subcommands", "Órdenes");
    formato->label("REQUIRED", "(obligatorio)");
    formato->label("TEXT", "");
    formato->column_width(34);
    programa.formatter(formato);
    programa.set_help_flag("-h,--help,--ayuda", "Muestra esta ayuda y termina");
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App programa("KVDatosArt: precio, descuentos, existencias y coste de un artículo para una línea de venta.",
                      "kvdatosart");
    Castellanizar(programa);
    programa.footer(kPie);
    programa.require_subcommand(1);
    kv::host::AnadirCrearDemo(programa);
    kv::host::AnadirDevPvp(programa);
    kv::host::AnadirCargar(programa);
    try {
        programa.parse(argc, argv);
        return kv::host::kHecho;
    } catch (const CLI::CallForHelp& ayuda) {
        return programa.exit(ayuda, std::cout, std::cerr);
    } catch (const CLI::ParseError& error) {
        return Fracaso(kv::host::kUso, EnCastellano(error));
    } catch (const kv::host::Fallo& fallo) {
        return Fracaso(fallo.codigo, fallo.what());
    } catch (const kv::RuntimeError& error) {
        return Fracaso(kv::host::kBase,
                       error.origen + ": error " + std::to_string(error.numero) + ": " + error.descripcion);
    } catch (const std::exception& error) {
        return Fracaso(kv::host::kBase, error.what());
    }
}
