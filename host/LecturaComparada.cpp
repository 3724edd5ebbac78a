#include "kvdatosart/host/LecturaComparada.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Ruta.h"

namespace kv::host {

LectorListaJson::LectorListaJson(const std::string& ruta) : ruta_(ruta), fichero_(RutaDe(ruta), std::ios::binary) {
    std::error_code error;
    if (!fichero_.is_open() || std::filesystem::is_directory(RutaDe(ruta), error))
        throw std::runtime_error("no se puede leer «" + ruta + "»");
}

void LectorListaJson::Fallar(const std::string& motivo) const {
    throw std::runtime_error(ruta_ + ", línea " + std::to_string(linea_) + ": " + motivo);
}

bool LectorListaJson::Siguiente(ClaveComparada& clave, PrecioComparado& precio) {
    if (!std::getline(fichero_, texto_)) {
        if (fichero_.bad()) throw std::runtime_error("no se puede leer «" + ruta_ + "»");
        return false;
    }
    ++linea_;
    const nlohmann::json json = nlohmann::json::parse(texto_, nullptr, false);
    if (!json.is_object()) Fallar("no es una línea de lista en JSON");
    const auto miembro = [&](const char* nombre) -> const nlohmann::json& {
        const auto hallado = json.find(nombre);
        if (hallado == json.end()) Fallar(std::string("le falta «") + nombre + "»; se espera una lista de --json");
        return *hallado;
    };
    const auto importe = [&](const char* nombre) { return Currency::DeDouble(miembro(nombre).get<double>()); };
    try {
        clave = {miembro("articulo").get<std::int32_t>(), miembro("cliente").get<std::int32_t>(), importe("unidades")};
        precio = {};
        precio.descripcion = json.value("descripcion", "");
        precio.conPrecio = !miembro("neto").is_null();
        const auto motivo = miembro("motivo").get<std::string>();
        if (precio.conPrecio) {
            precio.pvp = importe("precio");
            precio.descuento = importe("descuento");
            precio.neto = importe("neto");
            precio.motivo = motivo;
        } else {
            precio.situacion = motivo.starts_with("error: ") ? motivo : "sin precio";
        }
    } catch (const nlohmann::json::exception&) {
        Fallar("tiene un dato de otra clase; se espera una lista de --json");
    } catch (const RuntimeError&) {
        Fallar("tiene un importe que no cabe");
    }
    return true;
}

}  // namespace kv::host
