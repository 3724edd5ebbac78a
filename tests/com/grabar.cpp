// Records the traffic and the results of loads on the demonstration database: grabar SALIDA

#include <fstream>
#include <iostream>

#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/tests/com/Grabacion.h"
#include "kvdatosart/tests/comun/BaseDemo.h"

namespace kv::prueba {
namespace {

/// Passes everything on to a real connection and writes down the queries with their first row and the procedures.
class ConexionGrabadora : public ConexionTrazada {
  public:
    ConexionGrabadora(std::shared_ptr<Connection> real, std::ostream& salida)
        : ConexionTrazada(real,
                          [this](const auto& o) {
                              if (o.clase == "Open") Grabar(o.texto);
                          }),
          real_(real),
          salida_(salida) {}
    std::unique_ptr<Command> CrearCommand() override { return std::make_unique<Orden>(*this); }

  private:
    void Grabar(std::string_view sql) {
        std::unique_ptr<Recordset> rs;
        AbrirLectura(rs, *real_, sql);
        salida_ << "O\t" << sql << (rs->Eof() ? "" : "\nF");
        for (std::int32_t i = 0; !rs->Eof() && i < rs->NumeroCampos(); ++i) {
            const std::string nombre(rs->NombreCampo(i));
            salida_ << '\t' << nombre << '\t' << Codificar(rs->Fields(nombre).Value());
        }
        salida_ << '\n';
    }

    struct Orden : Command {
        explicit Orden(ConexionGrabadora& c) : real_(c.real_->CrearCommand()), salida_(c.salida_) {}
        void Execute(kv::CommandType opciones) override {
            real_->CommandText = CommandText;
            real_->CommandType = CommandType;
            real_->CommandTimeout = CommandTimeout;
            real_->Parameters = Parameters;
            real_->Execute(opciones);
            salida_ << "P\t" << CommandText << '\n';
            for (auto dado = Parameters.begin(); const Parameter& p : real_->Parameters)
                salida_ << "p\t" << p.Name << '\t' << static_cast<int>(p.Type) << '\t' << static_cast<int>(p.Direction)
                        << '\t' << p.Size << '\t' << Codificar((dado++)->Value) << '\t' << Codificar(p.Value) << '\n';
            Parameters = real_->Parameters;
        }
        const std::unique_ptr<Command> real_;
        std::ostream& salida_;
    };

    std::shared_ptr<Connection> real_;
    std::ostream& salida_;
};

/// A load, the price asked for after it and the parent.
void Grabar(std::ostream& salida, clsDatosArt& a, int articulo, int cliente, Fecha hoy) {
    const int vuelta = articulo + cliente;
    const Fecha dia = hoy + vuelta / 4 % 2 * (vuelta % 40);
    const auto tarifa = static_cast<std::int16_t>(vuelta % 4 - 1);
    const bool forzar = articulo % 2 == 0;
    a.CualidadX = static_cast<std::uint8_t>(vuelta % 3);
    salida << "C\t" << articulo << '\t' << cliente << '\t' << static_cast<long>(dia.AOle()) << '\t' << tarifa << '\t'
           << vuelta % 15 << '\t' << vuelta % 3 << '\t' << forzar << '\n';
    const std::int16_t estado = a.Cargar(articulo, cliente, dia, tarifa, 1, 2, Currency::DeEntero(vuelta % 15));
    salida << "D\tEstado\t" << Codificar(estado) << '\n';
#define KV_PROPIEDAD(nombre, tipo) salida << "R\t" #nombre "\t" << Codificar(Valor(a.nombre)) << '\n';
#include "kvdatosart/component/com/Propiedades.inc"
#undef KV_PROPIEDAD
    salida << "T\n";
    try {
        const Currency precio = a.DevPvp(tarifa, dia, forzar);
        salida << "D\tPrecio\t" << Codificar(precio) << '\n';
    } catch (const RuntimeError& error) {
        salida << "D\tPrecio\terror " << error.numero << '\n';
    }
    salida << "T\n";
    if (const auto padre = a.padre())
        salida << "D\tPadre\t" << Codificar(padre->Codigo) << ' ' << Codificar(padre->Pvp) << '\n';
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) try {
    using namespace kv::prueba;
    using namespace kv;
    if (argc != 2) return std::cerr << "uso: grabar SALIDA\n", 2;
    const Fecha hoy = Biblioteca().Hoy();
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, hoy);
    const std::shared_ptr<Connection> real = base.Abrir();
    const auto empresa = EmpresaTabla::Leer(*real, std::int16_t{1});
    std::ofstream salida(argv[1]);
    for (int articulo = 99; articulo < 160; ++articulo)
        for (int cliente = 1; cliente <= 12; ++cliente) {
            clsDatosArt a;
            a.Conexion(std::make_shared<ConexionGrabadora>(real, salida));
            a.cEmpresa(empresa);
            Grabar(salida, a, articulo, cliente, hoy);
        }
    return salida.flush() ? 0 : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
