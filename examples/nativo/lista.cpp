// A price list of every article for one customer, as CSV, with its progress on the terminal: lista FICHERO CLIENTE
#include "kvdatosart/catalog/Lista.h"

#include <cstdlib>
#include <iostream>

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Esquema.h"

namespace {

/// Writes each line as it comes.
class Escritor : public kv::DestinoLista {
  public:
    void Linea(const kv::LineaLista& linea) override {
        const kv::Tasacion& tasacion = linea.tasaciones.front();
        std::cout << linea.articulo << ";\"" << tasacion.descripcion << "\";" << tasacion.neto.ATexto('.').Cadena()
                  << '\n';
    }
    void Progreso(std::uint64_t hechas, std::uint64_t total) override {
        std::cerr << '\r' << hechas << " de " << total << " líneas" << std::flush;
    }
};

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) return std::cerr << "Uso: lista FICHERO CLIENTE\n", 2;
    // Three workers, each with a connection of its own, on one state of the database.
    std::vector<kv::Puesto> puestos;
    for (const auto& conexion : kv::ConexionSqlite::AbrirMismoEstado(argv[1], kv::kIdentidadEsquema, 3))
        puestos.push_back({conexion, kv::EmpresaTabla::Leer(*conexion, 1)});
    kv::PeticionLista peticion;
    peticion.hoy = kv::Hoy();
    peticion.clientes.codigos = {std::atoi(argv[2])};
    peticion.terminos.fecha = peticion.hoy;
    peticion.terminos.tarifa = 1;
    Escritor escritor;
    const kv::RecuentoLista recuento = HacerLista(puestos, peticion, escritor);
    std::cerr << '\n' << recuento.sinPrecio << " sin precio, " << recuento.conFallo << " con fallo\n";
    return recuento.conFallo == 0 ? 0 : 1;
} catch (const kv::RuntimeError& error) {
    return std::cerr << error.what() << '\n', 3;
}
