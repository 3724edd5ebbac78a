#include "kvdatosart/host/LecturaLista.h"

#include <array>
#include <charconv>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <string_view>

#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/Lectura.h"

namespace kv::host {
namespace {

constexpr std::int32_t kMayorCodigo = std::numeric_limits<std::int32_t>::max();

std::string LeerTodo(const std::string& ruta) {
    const auto fallar = [&] { throw std::runtime_error("no se puede leer «" + ruta + "»"); };
    std::ifstream fichero(RutaDe(ruta), std::ios::binary);
    if (!fichero.is_open()) fallar();
    std::string texto;
    try {
        texto.assign(std::istreambuf_iterator<char>(fichero), {});
    } catch (const std::ios_base::failure&) {
        // A folder opens, and cannot be read.
        fallar();
    }
    if (texto.starts_with("\xEF\xBB\xBF")) texto.erase(0, 3);
    return texto;
}

// Takes the first line, without its end, away from the text.
std::string_view TomarLinea(std::string_view& texto) {
    const std::size_t fin = texto.find_first_of("\r\n");
    const std::string_view linea = texto.substr(0, fin);
    const bool doble = fin != std::string_view::npos && texto.substr(fin, 2) == "\r\n";
    texto.remove_prefix(fin == std::string_view::npos ? texto.size() : fin + (doble ? 2 : 1));
    return linea;
}

std::string_view SinBordes(std::string_view texto, std::string_view bordes) {
    const std::size_t desde = texto.find_first_not_of(bordes);
    if (desde == std::string_view::npos) return {};
    return texto.substr(desde, texto.find_last_not_of(bordes) - desde + 1);
}

std::string_view PrimeraCelda(std::string_view linea) {
    return SinBordes(SinBordes(linea.substr(0, linea.find_first_of(";,\t")), " "), "\"");
}

bool EsCodigo(std::string_view celda, std::int32_t& codigo) {
    const auto leido = std::from_chars(celda.data(), celda.data() + celda.size(), codigo);
    return leido.ec == std::errc() && leido.ptr == celda.data() + celda.size() && codigo > 0;
}

// A letter of Windows-1252 that is no UTF-8 is a letter of Latin-1, or a sign that no code has.
std::string Legible(std::string_view celda) {
    const std::string mostrable = Mostrable(celda);
    if (mostrable.find("\xEF\xBF\xBD") == std::string::npos) return mostrable;
    std::string utf8;
    for (const char c : celda) {
        const auto octeto = static_cast<unsigned char>(c);
        if (octeto < 0x80) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (octeto >> 6));
            utf8 += static_cast<char>(0x80 | (octeto & 0x3F));
        }
    }
    return Mostrable(utf8);
}

}  // namespace

aplicacion::CodigosPedidos LeerCodigos(const std::string& campo, const std::vector<std::string>& textos) {
    aplicacion::CodigosPedidos pedidos;
    for (const std::string& texto : textos) pedidos.codigos.push_back(LeerEntero(campo, texto, 1, kMayorCodigo));
    return pedidos;
}

aplicacion::CodigosPedidos LeerFicheroCodigos(const std::string& campo, const std::string& ruta) {
    const std::string todo = LeerTodo(ruta);
    std::string_view texto = todo;
    aplicacion::CodigosPedidos pedidos;
    pedidos.fichero = ruta;
    for (std::uint32_t linea = 1; !texto.empty(); ++linea) {
        const std::string_view celda = PrimeraCelda(TomarLinea(texto));
        std::int32_t codigo = 0;
        if (EsCodigo(celda, codigo)) {
            pedidos.codigos.push_back(codigo);
            pedidos.lineas.push_back(linea);
            continue;
        }
        const bool cabecera = linea == 1 && celda.find_first_of("0123456789") == std::string_view::npos;
        if (!celda.empty() && !cabecera)
            aplicacion::RechazarImposible(
                "", ruta + ", línea " + std::to_string(linea) + ": «" + Legible(celda) + "» no es un código");
    }
    if (pedidos.codigos.empty()) aplicacion::RechazarImposible(campo, "«" + ruta + "» no tiene códigos");
    return pedidos;
}

OrdenLista LeerOrdenLista(const std::string& campo, const std::string& texto) {
    constexpr std::array<std::string_view, 3> kNombres = {"articulo", "cliente", "familia"};
    for (std::size_t i = 0; i < kNombres.size(); ++i)
        if (texto == kNombres[i]) return static_cast<OrdenLista>(i);
    aplicacion::RechazarImposible(campo, "«" + texto + "» no vale; se espera articulo, cliente o familia");
}

void LeerParte(const std::string& campo, const std::string& texto, aplicacion::PeticionListaPrecios& peticion) {
    const std::size_t barra = texto.find('/');
    if (barra == std::string::npos)
        aplicacion::RechazarImposible(campo, "«" + texto + "» no vale; se espera la parte y cuántas son: 2/8");
    constexpr std::int32_t kPartes = 1000000;
    peticion.parte = static_cast<std::uint32_t>(LeerEntero(campo, texto.substr(0, barra), 1, kPartes));
    peticion.partes = static_cast<std::uint32_t>(LeerEntero(campo, texto.substr(barra + 1), 1, kPartes));
}

}  // namespace kv::host
