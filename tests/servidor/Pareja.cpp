#include "tests/servidor/Pareja.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "host/EmpresaTabla.h"
#include "schema/Esquema.h"
#include "schema/Lotes.h"

namespace kv::prueba {
namespace {

std::string Texto(const Valor& valor) {
    if (EsNulo(valor)) return "NULL";
    const std::string texto = AString(valor, '.');
    return std::holds_alternative<std::string>(valor) ? "«" + texto + "»" : texto;
}

bool EsCorto(const Valor& valor) {
    return std::holds_alternative<std::uint8_t>(valor) || std::holds_alternative<std::int16_t>(valor);
}

bool Iguales(const Valor& a, const Valor& b) {
    if (a == b) return true;
    if (EsCorto(a) && EsCorto(b)) return ALong(a) == ALong(b);
    if (a.index() != b.index()) return false;
    if (!std::holds_alternative<double>(a) && !std::holds_alternative<float>(a)) return false;
    constexpr double kVecindad = 1e-13;
    const double x = ADouble(a);
    const double y = ADouble(b);
    return std::fabs(x - y) <= kVecindad * std::max({1.0, std::fabs(x), std::fabs(y)});
}

// With the type when the texts alone would look the same.
std::string Contraste(const Valor& a, const Valor& b) {
    if (Texto(a) != Texto(b)) return Texto(a) + " <> " + Texto(b);
    return Texto(a) + " de tipos " + std::to_string(a.index()) + " y " + std::to_string(b.index());
}

Valor SinAnchura(const Valor& valor) {
    const bool entero = std::holds_alternative<std::uint8_t>(valor) || std::holds_alternative<std::int16_t>(valor) ||
                        std::holds_alternative<std::int64_t>(valor);
    return entero ? Valor(ALong(valor)) : valor;
}

using Fila = std::map<std::string, Valor>;

Fila LeerFila(Recordset& rs) {
    Fila fila;
    for (std::int32_t i = 0; i < rs.NumeroCampos(); ++i) {
        const std::string columna(rs.NombreCampo(i));
        fila[columna] = rs.Fields(columna).Value();
    }
    return fila;
}

std::map<std::string, Fila> LeerTabla(Connection& conexion, const TablaEsquema& tabla) {
    std::map<std::string, Fila> filas;
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, conexion, "SELECT * FROM " + tabla.nombre);
    for (; !rs->Eof(); rs->MoveNext()) {
        Fila fila = LeerFila(*rs);
        std::string clave;
        for (const std::string& columna : tabla.clave)
            clave += (clave.empty() ? "" : ", ") + AString(fila.at(columna), '.');
        filas.emplace(clave, std::move(fila));
    }
    return filas;
}

}  // namespace

void Respuestas::Filas(Recordset& rs) {
    std::multimap<std::string, Fila> filas;
    for (; !rs.Eof(); rs.MoveNext()) {
        const Fila fila = LeerFila(rs);
        std::string clave;
        for (const auto& [columna, valor] : fila) clave += Texto(valor) + '|';
        filas.emplace(clave, fila);
    }
    int orden = 0;
    for (const auto& [clave, fila] : filas) {
        for (const auto& [columna, valor] : fila)
            (*this)("fila " + std::to_string(orden) + " " + columna, SinAnchura(valor));
        ++orden;
    }
}

void Respuestas::Fallo(const RuntimeError& error) {
    constexpr std::int32_t kPropios[] = {kErrLlamadaInvalida,
                                         kErrDesbordamiento,
                                         kErrSubindice,
                                         kErrDivisionPorCero,
                                         kErrTipo,
                                         kErrObjetoNoEstablecido,
                                         kErrNulo};
    const bool propio = std::find(std::begin(kPropios), std::end(kPropios), error.numero) != std::end(kPropios);
    (*this)("error", propio ? std::to_string(error.numero) : std::string("de la base de datos"));
    if (error.origen.find("::") != std::string::npos) (*this)("origen", error.origen);
}

Pareja::Pareja(std::shared_ptr<Connection> primera, std::shared_ptr<Connection> segunda) {
    lados_[0].conexion = std::move(primera);
    lados_[1].conexion = std::move(segunda);
    lados_[1].indice = 1;
    for (Lado& lado : lados_)
        for (const std::int16_t empresa : {std::int16_t{1}, std::int16_t{2}})
            lado.empresas[empresa] = std::make_shared<host::EmpresaTabla>(*lado.conexion, empresa);
}

void Pareja::Anotar(const std::string& donde, const std::string& que) {
    constexpr std::size_t kMostradas = 40;
    if (++numero_ <= kMostradas) diferencias_.push_back(donde + ": " + que);
}

std::string Pareja::Informe() const {
    std::string texto = std::to_string(numero_) + " diferencias en " + std::to_string(casos_) + " casos\n";
    for (const std::string& diferencia : diferencias_) texto += "  " + diferencia + '\n';
    return texto;
}

void Pareja::Probar(const std::string& nombre, const Caso& caso) {
    ++casos_;
    std::array<Respuestas, 2> respuestas;
    for (Lado& lado : lados_) {
        try {
            caso(lado, respuestas[lado.indice]);
        } catch (const RuntimeError& error) {
            respuestas[lado.indice].Fallo(error);
            if (lado.indice == 0) ++rechazos_;
        }
    }
    const auto& [unas, otras] = respuestas;
    for (const auto& [dato, valor] : unas.Valores()) {
        const auto otro = otras.Valores().find(dato);
        if (otro == otras.Valores().end())
            Anotar(nombre, dato + " solo en la primera: " + Texto(valor));
        else if (!Iguales(valor, otro->second))
            Anotar(nombre, dato + ": " + Contraste(valor, otro->second));
    }
    for (const auto& [dato, valor] : otras.Valores())
        if (!unas.Valores().contains(dato)) Anotar(nombre, dato + " solo en la segunda: " + Texto(valor));
}

void Pareja::CompararTablas() {
    for (const TablaEsquema& tabla : TablasDelEsquema()) {
        ++casos_;
        const auto unas = LeerTabla(*lados_[0].conexion, tabla);
        const auto otras = LeerTabla(*lados_[1].conexion, tabla);
        for (const auto& [clave, fila] : unas) {
            const std::string donde = tabla.nombre + " [" + clave + "]";
            const auto otra = otras.find(clave);
            if (otra == otras.end()) {
                Anotar(donde, "falta en la segunda");
                continue;
            }
            for (const auto& [columna, valor] : fila) {
                const auto hallada = otra->second.find(columna);
                if (hallada == otra->second.end())
                    Anotar(donde, columna + " falta en la segunda");
                else if (!Iguales(valor, hallada->second))
                    Anotar(donde, columna + ": " + Contraste(valor, hallada->second));
            }
        }
        for (const auto& [clave, fila] : otras)
            if (!unas.contains(clave)) Anotar(tabla.nombre + " [" + clave + "]", "falta en la primera");
    }
}

std::vector<TablaEsquema> TablasDelEsquema() {
    constexpr std::string_view kCrear = "CREATE TABLE ";
    constexpr std::string_view kClave = "PRIMARY KEY CLUSTERED";
    std::vector<TablaEsquema> tablas;
    for (const std::string_view lote : LotesDe(EsquemaSqlServer())) {
        const std::size_t nombre = lote.find(kCrear);
        if (nombre == std::string_view::npos) continue;
        const std::size_t inicio = nombre + kCrear.size();
        TablaEsquema& tabla = tablas.emplace_back();
        tabla.nombre = lote.substr(inicio, lote.find(' ', inicio) - inicio);
        const std::size_t abre = lote.find('(', lote.find(kClave)) + 1;
        std::string columnas(lote.substr(abre, lote.find(')', abre) - abre));
        std::replace(columnas.begin(), columnas.end(), ',', ' ');
        std::istringstream lista(columnas);
        for (std::string columna; lista >> columna;) tabla.clave.push_back(columna);
    }
    return tablas;
}

}  // namespace kv::prueba
