// The price of a sales line today: linea FICHERO ARTICULO CLIENTE
#include <cstdlib>
#include <iostream>

#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Esquema.h"

int main(int argc, char** argv) try {
    if (argc != 4) return std::cerr << "Uso: linea FICHERO ARTICULO CLIENTE\n", 2;
    const auto conexion = kv::ConexionSqlite::Abrir(argv[1], kv::kIdentidadEsquema);
    kv::clsDatosArt articulo;
    articulo.Conexion(conexion);
    articulo.cEmpresa(kv::EmpresaTabla::Leer(*conexion, 1));
    const auto estado = articulo.Cargar(std::atoi(argv[2]), std::atoi(argv[3]), kv::Hoy(), 1, 1, 2);
    if (estado == kv::kArticuloNoExiste) return std::cerr << "No existe el artículo " << argv[2] << '\n', 1;
    std::cout << articulo.Descripcion << ": " << articulo.Pvp << " menos " << articulo.PDescuento << " %\n";
} catch (const kv::RuntimeError& error) {
    return std::cerr << error.what() << '\n', 3;
}
