#include "kvdatosart/host/cli/OrdenesEnsayadas.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/host/Salida.h"
#include "kvdatosart/host/cli/MalEscrita.h"
#include "kvdatosart/host/cli/Ordenes.h"

namespace kv::host {
namespace {

// None when quotes do not end.
std::optional<std::vector<std::string>> EnPalabras(const std::string& linea) {
    std::vector<std::string> palabras;
    bool dentro = false;
    char comilla = 0;
    for (const char c : linea) {
        const bool separa = comilla == 0 && (c == ' ' || c == '\t' || c == '\r');
        if (!separa && !dentro) palabras.emplace_back();
        dentro = !separa;
        if (separa) continue;
        if (comilla == 0 && (c == '"' || c == '\''))
            comilla = c;
        else if (c == comilla)
            comilla = 0;
        else
            palabras.back() += c;
    }
    if (comilla != 0) return {};
    return palabras;
}

bool Nombra(const std::vector<std::string>& palabras, const std::string& opcion) {
    return std::any_of(palabras.begin(), palabras.end(), [&](const std::string& palabra) {
        return palabra == opcion || palabra.starts_with(opcion + "=");
    });
}

void Interpretar(const std::vector<std::string>& palabras) {
    CLI::App programa("", "kvdatosart");
    programa.set_help_flag();
    programa.allow_windows_style_options(false);
    programa.require_subcommand(1);
    AnadirLasQueEscriben(programa);
    try {
        // It takes them from the last to the first.
        programa.parse(std::vector<std::string>(palabras.rbegin(), palabras.rend()));
    } catch (const CLI::ParseError& error) {
        aplicacion::RechazarImposible("", EnCastellano(error, programa));
    }
}

}  // namespace

std::vector<std::string> PalabrasAlReves(int argc, const char* const* argv) {
    std::vector<std::string> palabras(argv + std::min(argc, 1), argv + argc);
    const auto guiones = std::find(palabras.begin(), palabras.end(), "--");
    if (guiones != palabras.end() && palabras.front() == "ensayar") palabras.insert(guiones, "--");
    std::reverse(palabras.begin(), palabras.end());
    return palabras;
}

std::vector<OrdenEnsayada> LeerOrdenes(const std::string& fichero) {
    std::ifstream flujo(RutaDe(fichero), std::ios::binary);
    if (!flujo) throw std::runtime_error("«" + fichero + "» no se puede leer");
    std::vector<OrdenEnsayada> ordenes;
    std::string linea;
    for (int numero = 1; std::getline(flujo, linea); ++numero) {
        if (numero == 1 && linea.starts_with("\xEF\xBB\xBF")) linea.erase(0, 3);
        const std::string donde = fichero + ", línea " + std::to_string(numero) + ": ";
        auto palabras = EnPalabras(linea);
        if (!palabras) aplicacion::RechazarImposible("ordenDe", donde + "faltan unas comillas");
        if (!palabras->empty() && palabras->front() == "kvdatosart") palabras->erase(palabras->begin());
        if (!palabras->empty() && !palabras->front().starts_with('#')) ordenes.push_back({std::move(*palabras), donde});
    }
    if (flujo.bad()) throw std::runtime_error("«" + fichero + "» no se puede leer");
    if (ordenes.empty()) aplicacion::RechazarImposible("ordenDe", "«" + fichero + "» no tiene ninguna orden");
    return ordenes;
}

void EjecutarEn(const aplicacion::OrigenBase& base, std::int16_t empresa, Fecha hoy, const OrdenEnsayada& orden) {
    using aplicacion::Rechazo;
    std::vector<std::string> palabras = orden.palabras;
    for (const char* opcion : {"--base", "--odbc", "--hoy"})
        if (Nombra(palabras, opcion))
            throw Rechazo(Rechazo::Clase::Imposible, "",
                          orden.donde + opcion + " es de ensayar, y no de lo que ensaya");
    palabras.insert(palabras.end(), {"--base", base.fichero, "--hoy", hoy.AIso().Cadena()});
    if (!Nombra(palabras, "--empresa")) palabras.insert(palabras.end(), {"--empresa", std::to_string(empresa)});
    const SinSalida callada;
    try {
        Interpretar(palabras);
    } catch (const Rechazo& rechazo) {
        const bool conCampo = rechazo.clase == Rechazo::Clase::Imposible && !rechazo.campo.empty();
        throw Rechazo(rechazo.clase, "", orden.donde + (conCampo ? "{" + rechazo.campo + "}: " : "") + rechazo.what());
    }
}

}  // namespace kv::host
