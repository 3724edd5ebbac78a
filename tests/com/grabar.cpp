// Records the traffic and the results of loads on the demonstration database: grabar SALIDA

#include <fstream>
#include <iostream>

#include "component/clsDatosArt.h"
#include "db/BibliotecaComun.h"
#include "host/EmpresaTabla.h"
#include "tests/com/ConexionGrabadora.h"
#include "tests/comun/BaseDemo.h"

namespace kv::prueba {
namespace {

void EscribirPropiedades(std::ostream& salida, const clsDatosArt& a) {
#define KV_PROPIEDAD(nombre, tipo) salida << "V\t" #nombre "\t" << Codificar(Valor(a.nombre)) << '\n';
#include "component/com/Propiedades.inc"
#undef KV_PROPIEDAD
}

void EscribirEmpresa(std::ostream& salida, const kv::cEmpresa& e) {
    const auto dato = [&](const char* nombre, const Valor& valor) {
        salida << "E\t" << nombre << '\t' << Codificar(valor) << '\n';
    };
    dato("CodEmpresa", e.CodEmpresa());
    dato("CodEmpresaArticulos", e.CodEmpresaArticulos());
    dato("CodEmpresaClientes", e.CodEmpresaClientes());
    dato("CodEmpresaExtra", e.CodEmpresaExtra());
    dato("TarifaEmpresa", e.TarifaEmpresa());
    dato("VenderSinStock", e.VenderSinStock());
    dato("CosteUltimaCompra", e.CosteUltimaCompra());
    dato("DecPrecios", e.DecPrecios());
    dato("DecImportes", e.DecImportes());
    dato("DecCostes", e.DecCostes());
    dato("Parametro1", e.Parametro(1));
    dato("Parametro2", e.Parametro(2));
    for (std::int16_t i = 0; i < 3; ++i) dato(("CaptionFamilia" + std::to_string(i)).c_str(), e.CaptionFamilia(i));
}

struct Caso {
    int articulo, cliente, tarifa, unidades, cualidadX;
    bool forzar;
};

void GrabarPrecio(std::ostream& salida, clsDatosArt& a, const Caso& c, Fecha dia) {
    try {
        const Currency precio = a.DevPvp(static_cast<std::int16_t>(c.tarifa), dia, c.forzar);
        salida << "D\t" << precio.Diezmilesimas() << '\n';
    } catch (const RuntimeError& error) {
        salida << "X\t" << error.numero << '\n';
    }
}

void GrabarPadre(std::ostream& salida, clsDatosArt& a) {
    salida << "H\n";
    if (const auto padre = a.padre()) salida << "H\t" << padre->Codigo << '\t' << Codificar(padre->Pvp) << '\n';
}

void Grabar(std::ostream& salida, clsDatosArt& a, const Caso& c, Fecha dia) {
    salida << "C\t" << c.articulo << '\t' << c.cliente << '\t' << static_cast<long>(dia.AOle()) << '\t' << c.tarifa
           << '\t' << c.unidades << '\t' << c.cualidadX << '\t' << c.forzar << '\n';
    a.CualidadX = static_cast<std::uint8_t>(c.cualidadX);
    const std::int16_t estado =
        a.Cargar(c.articulo, c.cliente, dia, static_cast<std::int16_t>(c.tarifa), 1, 2, Currency::DeEntero(c.unidades));
    salida << "R\t" << estado << '\n';
    EscribirPropiedades(salida, a);
    GrabarPrecio(salida, a, c, dia);
    GrabarPadre(salida, a);
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) try {
    using namespace kv;
    if (argc != 2) return std::cerr << "uso: grabar SALIDA\n", 2;
    const Fecha hoy = Biblioteca().Hoy();
    const prueba::BaseDePrueba base(prueba::BaseDePrueba::Datos::Demostracion, hoy);
    const std::shared_ptr<Connection> real = base.Abrir();
    const auto empresa = std::make_shared<host::EmpresaTabla>(*real, std::int16_t{1});
    std::ofstream salida(argv[1]);
    prueba::EscribirEmpresa(salida, *empresa);
    for (int articulo = 99; articulo < 160; ++articulo)
        for (int cliente = 1; cliente <= 12; ++cliente) {
            clsDatosArt a;
            a.Conexion(std::make_shared<prueba::ConexionGrabadora>(real, salida));
            a.cEmpresa(empresa);
            const int vuelta = articulo + cliente;
            prueba::Grabar(salida, a, {articulo, cliente, vuelta % 4 - 1, vuelta % 15, vuelta % 3, articulo % 2 == 0},
                           hoy + vuelta % 40);
        }
    return salida.flush() ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
