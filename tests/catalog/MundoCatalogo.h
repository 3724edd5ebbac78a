#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kvdatosart/catalog/Lista.h"
#include "kvdatosart/tests/comun/BaseDemo.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {

inline const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

/// The demonstration's first company, as its own row describes it.
inline std::shared_ptr<EmpresaFija> EmpresaDemo() {
    const auto empresa = std::make_shared<EmpresaFija>();
    empresa->codEmpresaArticulos = empresa->codEmpresaClientes = empresa->codEmpresaExtra = 1;
    empresa->tarifaEmpresa = 1;
    return empresa;
}

/// A demonstration database and its connections on one state.
struct MundoCatalogo {
    BaseDePrueba base{BaseDePrueba::Datos::Demostracion, kHoy};
    std::shared_ptr<ConexionSqlite> escritura = base.AbrirSinDisco();

    std::vector<Puesto> Puestos(std::size_t cuantos) const {
        std::vector<Puesto> puestos;
        for (auto& conexion : ConexionSqlite::AbrirMismoEstado(base.Ruta(), kIdentidadEsquema, cuantos))
            puestos.push_back({std::move(conexion), EmpresaDemo()});
        return puestos;
    }
};

inline Pregunta Terminos(std::int32_t articulo = 0, std::int32_t cliente = 0) {
    Pregunta pregunta;
    pregunta.articulo = articulo;
    pregunta.cliente = cliente;
    pregunta.fecha = kHoy;
    pregunta.tarifa = 1;
    return pregunta;
}

/// A tasación in one line: what a list shows of it.
inline std::string Texto(const Tasacion& t) {
    if (!t.fallo.empty()) return "fallo: " + t.fallo;
    std::string texto = std::to_string(t.estado) + " " + t.descripcion + " ";
    for (const Currency valor : {t.pvp, t.descuento, t.neto, t.uxb, t.existencias})
        texto += valor.ATexto('.').Cadena() + " ";
    return texto + t.convenio + " (" + t.motivo.Texto() + ")" + (t.bloqueado ? " bloqueado" : "");
}

/// Keeps the lines as texts.
class DestinoTextos : public DestinoLista {
  public:
    std::vector<std::string> lineas;
    std::uint64_t hechas = 0, total = 0;

    void Linea(const LineaLista& linea) override {
        std::string texto = std::to_string(linea.articulo) + "/" + std::to_string(linea.cliente);
        for (const Tasacion& tasacion : linea.tasaciones) texto += " | " + Texto(tasacion);
        lineas.push_back(std::move(texto));
    }
    void Progreso(std::uint64_t hechas_, std::uint64_t total_) override {
        hechas = hechas_;
        total = total_;
    }
};

}  // namespace kv::prueba
