#include "kvdatosart/host/EscribirJson.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "kvdatosart/base/RuntimeError.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;

std::string Cita(std::string_view texto) {
    return nlohmann::json(texto).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string Numero(double valor) {
    return std::isfinite(valor) ? AString(valor, '.') : "null";
}

struct Visita {
    std::string operator()(Nulo) const { return "null"; }
    std::string operator()(bool v) const { return v ? "true" : "false"; }
    std::string operator()(double v) const { return Numero(v); }
    // A Single shows the seven digits that it holds, not those of the double that it becomes.
    std::string operator()(float v) const { return std::isfinite(v) ? AString(v, '.') : "null"; }
    std::string operator()(Fecha v) const { return EsNingunDia(v) ? "null" : Cita(v.AIso().Cadena()); }
    std::string operator()(const std::string& v) const { return Cita(v); }
    template <class T>
    std::string operator()(const T& v) const {
        return AString(v, '.');
    }
};

void Miembros(std::string& json, std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores,
              const std::string& sangria) {
    const char* separador = "";
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        json += separador + sangria + '"';
        json += columnas[i].clave;
        json += "\": " + ValorAJson(valores[i], columnas[i].clase);
        separador = ",";
    }
}

struct Escritor {
    std::string& json;

    void operator()(const Linea&) const {}
    void operator()(const Ficha& ficha) const {
        json += ',';
        Miembros(json, ficha.columnas, ficha.valores, "\n  ");
    }
    void operator()(const Cuadro& listado) const {
        if (listado.para == Cuadro::Para::Gente) return;
        const aplicacion::Tabla& tabla = listado.tabla;
        json += ",\n  " + Cita(tabla.clave) + ": [";
        const char* separador = "\n    {";
        for (const aplicacion::FilaTabla& fila : tabla.filas) {
            json += separador;
            Miembros(json, tabla.columnas, fila, "\n      ");
            json += "\n    }";
            separador = ",\n    {";
        }
        json += tabla.filas.empty() ? "]" : "\n  ]";
    }
};

std::string Cabecera() {
    return "{\n  \"formato\": " + std::to_string(kFormatoJson);
}

}  // namespace

std::string ValorAJson(const Valor& valor, ClaseDato clase) {
    if (EsNulo(valor)) return "null";
    try {
        if (clase == ClaseDato::Logico) return ABoolean(valor) ? "true" : "false";
        // A cost that the component hands over as a Double is money too.
        if (clase == ClaseDato::Importe && !std::holds_alternative<std::string>(valor))
            return ACurrency(valor).ATexto('.').Cadena();
    } catch (const RuntimeError&) {
        // A value of another kind, or out of range, shows as it is.
    }
    return std::visit(Visita{}, valor);
}

std::string AJson(const Documento& documento) {
    std::string json = Cabecera();
    for (const Documento::Bloque& bloque : documento.Bloques()) std::visit(Escritor{json}, bloque);
    return json + "\n}\n";
}

std::string LineaJson(std::span<const aplicacion::ColumnaTabla> columnas, std::span<const Valor> valores) {
    std::string json;
    Miembros(json, columnas, valores, "");
    return '{' + json + "}\n";
}

std::string ErrorAJson(int codigo, std::string_view mensaje, std::string_view campo) {
    return Cabecera() + ",\n  \"error\": {\n    \"codigo\": " + std::to_string(codigo) +
           ",\n    \"mensaje\": " + Cita(mensaje) + (campo.empty() ? "" : ",\n    \"campo\": " + Cita(campo)) +
           "\n  }\n}\n";
}

}  // namespace kv::host
