#include "kvdatosart/tests/servidor/Pareja.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/Nombres.h"
#include "kvdatosart/tests/servidor/ServidorTds.h"

namespace kv::prueba {
namespace {

// With the kind, since values of two kinds may look alike.
std::string Texto(const Valor& valor) {
    constexpr const char* kClases[] = {"",     "lógico", "entero", "entero", "entero", "entero",
                                       "real", "real",   "dinero", "fecha",  ""};
    if (EsNulo(valor)) return "NULL";
    if (std::holds_alternative<std::string>(valor)) return "«" + std::get<std::string>(valor) + "»";
    return AString(valor, '.') + " " + kClases[valor.index()];
}

bool Iguales(const Valor& a, const Valor& b) {
    const double* x = std::get_if<double>(&a);
    const double* y = std::get_if<double>(&b);
    if (x == nullptr || y == nullptr) return a == b;
    return std::fabs(*x - *y) <= 1e-13 * std::max({1.0, std::fabs(*x), std::fabs(*y)});
}

}  // namespace

void Respuestas::Filas(Recordset& rs) {
    std::map<std::string, std::int32_t> filas;
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string fila;
        for (std::int32_t i = 0; i < rs.NumeroCampos(); ++i)
            fila += Minusculas(rs.NombreCampo(i)) + " " + Texto(rs.Fields(rs.NombreCampo(i)).Value()) + ", ";
        (*this)("filas con " + fila, ++filas[fila]);
    }
}

void Respuestas::Fallo(const RuntimeError& error) {
    static const std::set<std::int32_t> kPropios = {5, 6, 9, 11, 13, 91, 94};
    (*this)("error", kPropios.contains(error.numero) ? std::to_string(error.numero) : "de la base de datos");
    if (error.origen.find("::") != std::string::npos) (*this)("origen", error.origen);
}

Pareja::Pareja(std::shared_ptr<Connection> primera, std::shared_ptr<Connection> segunda)
    : lados_{{{0, std::move(primera)}, {1, std::move(segunda)}}} {
    for (Lado& lado : lados_)
        for (const std::int16_t empresa : {std::int16_t{1}, std::int16_t{2}})
            lado.empresas[empresa] = EmpresaTabla::Leer(*lado.conexion, empresa);
}

void Pareja::Probar(const std::string& nombre, Azar& azar, const Caso& caso) {
    ++casos_;
    std::array<Respuestas, 2> respuestas;
    const std::uint64_t semilla = azar.Semilla();
    std::string rastro;
    for (Lado& lado : lados_) {
        Azar suerte(semilla, azar.hoy);
        try {
            caso(lado, suerte, respuestas[lado.indice]);
        } catch (const RuntimeError& error) {
            respuestas[lado.indice].Fallo(error);
            if (lado.indice == 0) ++rechazos_;
        }
        rastro = suerte.Rastro();
    }
    // Where one side has no answer there is a null pointer.
    std::map<std::string, std::array<const Valor*, 2>> datos;
    for (const Lado& lado : lados_)
        for (const auto& [dato, valor] : respuestas[lado.indice].valores) datos[dato][lado.indice] = &valor;
    const auto texto = [](const Valor* valor) { return valor == nullptr ? "nada" : Texto(*valor); };
    for (const auto& [dato, v] : datos) {
        if (v[0] != nullptr && v[1] != nullptr && Iguales(*v[0], *v[1])) continue;
        if (++numero_ > 40) continue;
        informe_ += "  " + nombre + rastro + ": " + dato + ": " + texto(v[0]) + " <> " + texto(v[1]) +
                    (texto(v[0]) == texto(v[1]) ? " de otra anchura\n" : "\n");
    }
}

void Pareja::CompararTablas(Azar& azar) {
    for (const auto& [tabla, objeto] : ObjetosDelEsquema()) {
        const std::vector<std::string>& clave = objeto.clave;
        if (clave.empty()) continue;
        Probar(tabla, azar, [&](Lado& lado, Azar&, Respuestas& r) {
            std::unique_ptr<Recordset> rs;
            AbrirLectura(rs, *lado.conexion, "SELECT * FROM " + tabla);
            for (; !rs->Eof(); rs->MoveNext()) {
                std::string fila;
                for (const std::string& columna : clave) fila += AString(rs->Fields(columna).Value(), '.') + " ";
                for (std::int32_t i = 0; i < rs->NumeroCampos(); ++i)
                    r(fila + Minusculas(rs->NombreCampo(i)), rs->Fields(rs->NombreCampo(i)).Value());
            }
        });
    }
}

}  // namespace kv::prueba
