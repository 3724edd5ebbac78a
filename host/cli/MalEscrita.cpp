#include "kvdatosart/host/cli/MalEscrita.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace kv::host {
namespace {

// What follows an equals sign may be the password of a connection string that was not quoted.
std::string SinClave(const std::string& texto) {
    return texto.substr(0, texto.find('='));
}

// Letters to add, take away, change or swap with the next one.
std::size_t Distancia(const std::string& a, const std::string& b) {
    std::vector<std::size_t> anteanterior, anterior(b.size() + 1), fila(b.size() + 1);
    std::iota(anterior.begin(), anterior.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        fila[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            fila[j] = std::min({fila[j - 1] + 1, anterior[j] + 1, anterior[j - 1] + (a[i - 1] == b[j - 1] ? 0U : 1U)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                fila[j] = std::min(fila[j], anteanterior[j - 2] + 1);
        }
        anteanterior = anterior;
        anterior = fila;
    }
    return anterior.back();
}

// " (¿quiso decir --articulo?)", or nothing when none is near: a third of its letters at most.
std::string QuisoDecir(const std::string& escrito, const std::vector<std::string>& nombres) {
    std::string cercano;
    std::size_t menor = escrito.size() / 3 + 1;
    for (const std::string& nombre : nombres) {
        const std::size_t distancia = Distancia(escrito, nombre);
        if (distancia >= menor) continue;
        menor = distancia;
        cercano = nombre;
    }
    return cercano.empty() ? "" : " (¿quiso decir " + cercano + "?)";
}

const CLI::App& OrdenDada(const CLI::App& programa) {
    const CLI::App* orden = &programa;
    while (!orden->get_subcommands().empty()) orden = orden->get_subcommands().back();
    return *orden;
}

std::vector<std::string> Opciones(const CLI::App& orden) {
    std::vector<std::string> nombres;
    for (const CLI::Option* opcion : orden.get_options())
        for (const std::string& nombre : opcion->get_lnames()) nombres.push_back("--" + nombre);
    return nombres;
}

std::vector<std::string> Ordenes(const CLI::App& familia) {
    std::vector<std::string> nombres;
    for (const CLI::App* orden : familia.get_subcommands(nullptr)) nombres.push_back(orden->get_name());
    return nombres;
}

// The program's own command is missing or misspelt, or that of the family of commands that was named.
std::string SinOrden(const CLI::App& programa) {
    const CLI::App& familia = OrdenDada(programa);
    const std::vector<std::string> sobrantes = familia.remaining();
    const std::vector<std::string> ordenes = Ordenes(familia);
    std::string texto = "falta la orden";
    if (!sobrantes.empty() && sobrantes[0].starts_with('-'))
        texto += " antes de «" + SinClave(sobrantes[0]) + "»";
    else if (!sobrantes.empty())
        texto = "orden desconocida: «" + SinClave(sobrantes[0]) + "»" + QuisoDecir(sobrantes[0], ordenes);
    std::string separador = "; las de " + familia.get_name() + ": ";
    for (const std::string& orden : ordenes) {
        texto += separador + orden;
        separador = ", ";
    }
    return texto + " (--help las cuenta)";
}

std::string Desconocido(const std::string& sobrante, const CLI::App& orden) {
    const std::string escrito = SinClave(sobrante);
    return "argumento desconocido: " + escrito + QuisoDecir(escrito, Opciones(orden));
}

// An option that is missing may be there under a name that it does not have.
std::string Falta(const std::string& opcion, const CLI::App& orden) {
    for (const std::string& sobrante : orden.remaining())
        if (sobrante.starts_with("--")) return Desconocido(sobrante, orden);
    return "falta " + opcion;
}

}  // namespace

std::string EnCastellano(const CLI::ParseError& error, const CLI::App& programa) {
    const std::string texto = error.what();
    const CLI::App& orden = OrdenDada(programa);
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        if (texto.find("subcommand") != std::string::npos) return SinOrden(programa);
        return Falta(texto.substr(0, texto.find(" is required")), orden);
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::vector<std::string> sobrantes = programa.remaining(true);
        return Desconocido(sobrantes.empty() ? texto : sobrantes[0], orden);
    }
    if (texto.find("At Most") != std::string::npos) return "repetido " + texto.substr(0, texto.find(':'));
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr)
        return "falta el valor de " + texto.substr(0, texto.find(':'));
    return "orden mal escrita: " + texto;
}

}  // namespace kv::host
