#include <gtest/gtest.h>

#include <set>

#include "component/clsDatosArt.h"
#include "customers/clsCliente.h"
#include "db/ConexionTrazada.h"
#include "db/sqlite/Traduccion.h"
#include "host/EmpresaTabla.h"
#include "rules/clsCliente_Articulo.h"
#include "rules/clsCliente_DtosFamilias.h"
#include "rules/clsCliente_Grp_Dtos.h"
#include "rules/clsClientes_Cadenas_ConvArt.h"
#include "stock/clsAlmacen_Articulo.h"
#include "tests/comun/BaseDemo.h"
#include "tests/comun/EmpresaFija.h"
#include "tests/schema/FilasSqlite.h"

namespace kv::prueba {
namespace {

const Fecha kHoy = Fecha::DeAmd(2027, 2, 10);

// Lets every class send its statements to the demonstration data and keeps their texts.
class Emisor {
  public:
    explicit Emisor(const BaseDePrueba& base)
        : conexion_(std::make_shared<ConexionTrazada>(base.Abrir(),
                                                      [this](const OperacionTrazada& operacion) {
                                                          if (operacion.clase == "Open" || operacion.clase == "Execute")
                                                              textos_.emplace(operacion.texto);
                                                      })),
          empresa_(std::make_shared<host::EmpresaTabla>(*base.Abrir(), std::int16_t{1})) {}

    const std::set<std::string>& Textos() const { return textos_; }

    template <class Clase>
    Clase Nuevo() {
        Clase objeto;
        objeto.Conexion(conexion_);
        objeto.cEmpresa(empresa_);
        return objeto;
    }

    void Cargas() {
        clsDatosArt articulo;
        articulo.Conexion(conexion_);
        articulo.cEmpresa(empresa_);
        for (const int cualidad : {0, 42})
            for (const int dia : {0, 30}) {
                articulo.CualidadX = articulo.CualidadY = static_cast<std::uint8_t>(cualidad);
                articulo.Cargar(103, 11, kHoy + dia, 1, 1, 2);
            }
    }

    void Clientes() {
        auto cliente = Nuevo<clsCliente>();
        cliente.Codigo = 5;
        cliente.Cargar();
        cliente.Cargar_Telefonos();
        for (const bool porNombre : {false, true}) {
            cliente.FichaClienteModoDesp = porNombre;
            clsCliente otro;
            cliente.Cargar_Primero(&otro);
            cliente.Cargar_Ultimo(&otro);
            cliente.Cargar_Anterior(&otro);
            cliente.Cargar_Siguiente(&otro);
        }
        cliente.Act_FUVenta(kHoy);
        cliente.Dev_Codigo_Nuevo(10);
        cliente.Verif_Notas();
        cliente.Dev_SaldoAlbaranes();
        cliente.Existe();
        cliente.Dev_SaldoPuntos();
        cliente.Modificar();
        cliente.Codigo = 900;
        cliente.Insertar();
        cliente.Eliminar(false);
    }

    void Precios() {
        auto precios = Nuevo<clsCliente_Articulo>();
        precios.Cod_Empresa = precios.Cod_EmpresaExtra = precios.Cod_Almacen = 1;
        precios.Cod_Cliente = 3;
        precios.Cod_Articulo = 106;
        precios.Dev_Precio(kHoy);
        for (const bool porArticulo : {false, true}) {
            const Valor codigo = std::int32_t{porArticulo ? 106 : 3};
            precios.Key(codigo);
            std::unique_ptr<Recordset> rs;
            precios.Cargar(rs, porArticulo, codigo, nullptr);
            for (const auto mover : {&clsCliente_Articulo::Cargar_Siguiente, &clsCliente_Articulo::Cargar_Anterior,
                                     &clsCliente_Articulo::Cargar_Primero, &clsCliente_Articulo::Cargar_Ultimo}) {
                rs.reset();
                (precios.*mover)(rs);
            }
            precios.Modificar(porArticulo ? precios.Cod_Cliente : precios.Cod_Articulo);
        }
        precios.Acumular(kHoy, Currency(), Currency(), Currency());
        precios.Acumular_C(kHoy, Currency(), Currency(), Currency(), 42, 1);
    }

    template <class Descuentos>
    void Descuento() {
        auto dtos = Nuevo<Descuentos>();
        dtos.NumNiveles = 3;
        dtos.Familia_1 = 6;
        for (const int nivel : {1, 4}) {
            dtos.Nivel = static_cast<std::uint8_t>(nivel);
            dtos.Cod_Articulo = nivel == 4 ? 112 : 0;
            dtos.Modificar();
            if constexpr (requires { dtos.Dev_Descuento(Currency()); })
                dtos.Dev_Descuento(Currency());
            else
                dtos.Dev_Descuento();
            dtos.Eliminar();
        }
        dtos.Cargar_Articulos(6, 1, 2);
        dtos.Cargar_Todos();
    }

    void Acuerdos() {
        auto acuerdo = Nuevo<clsClientes_Cadenas_ConvArt>();
        acuerdo.Cod_Articulo = 113;
        acuerdo.Cod_Nivel1 = 1;
        acuerdo.Dev_Neto(kHoy);
        acuerdo.Dev_CadenaConvenio_Nivel(kHoy);
        acuerdo.Cargar();
        acuerdo.Modificar();
        acuerdo.Eliminar();
    }

    void Almacen() {
        auto almacen = Nuevo<clsAlmacen_Articulo>();
        almacen.Almacen = 1;
        almacen.Articulo = 103;
        double compra = 0;
        double medio = 0;
        double stock = 0;
        for (const std::int16_t operacion : std::initializer_list<std::int16_t>{3, 5}) {
            almacen.Act_Stock(1, 103, 1, 0, 30, operacion, kHoy, compra, medio, stock, true);
            almacen.Act_Stock_Cualidades(1, 103, 42, 1, 1, 0, 30, operacion, kHoy, compra, medio, stock, true);
        }
        almacen.Act_PendRecibir(Currency());
        almacen.Act_PendServir_Cualidades(42, 1, Currency());
        almacen.Act_Stock_Ubicaciones(1, 101, "P1", "E04", "", "", "", Currency());
        almacen.Act_Bloqueo();
        almacen.Act_Costo_DF(1, 103, Currency(), 30);
        almacen.Dev_CostoDF(1, 103, 42, 1);
        almacen.Cargar();
    }

  private:
    std::set<std::string> textos_;
    std::shared_ptr<Connection> conexion_;
    std::shared_ptr<cEmpresa> empresa_;
};

// Each step of the plan must seek by more than the company, unless the lowest or highest code is taken from it.
void EsperarBusqueda(const BaseDePrueba& base, const std::string& texto, const std::string& traducido) {
    const bool extremo = texto.find("MIN(") != std::string::npos || texto.find("MAX(") != std::string::npos;
    const bool lista = texto.find("IsNull(des.") != std::string::npos;
    for (const auto& fila : LeerFilas(base.Ruta(), "EXPLAIN QUERY PLAN " + traducido)) {
        const std::string& paso = fila[3];
        const bool recorre = paso.starts_with("SCAN ") && paso != "SCAN CONSTANT ROW";
        const bool soloEmpresa = paso.ends_with("(Cod_Empresa=?)") && !extremo;
        const bool ordena = paso.starts_with("USE TEMP B-TREE") && !lista;
        EXPECT_FALSE(recorre || soloEmpresa || ordena) << paso << "\nen |" << texto << '|';
    }
}

TEST(Busquedas, CadaSentenciaDelComponente_LlegaPorUnaClave) {
    const BaseDePrueba base(BaseDePrueba::Datos::Demostracion, kHoy);
    const BibliotecaDePrueba biblioteca(kHoy);
    Emisor emisor(base);
    emisor.Cargas();
    emisor.Clientes();
    emisor.Precios();
    emisor.Descuento<clsCliente_DtosFamilias>();
    emisor.Descuento<clsCliente_Grp_Dtos>();
    emisor.Acuerdos();
    emisor.Almacen();
    EXPECT_GT(emisor.Textos().size(), 120U);
    for (const std::string& texto : emisor.Textos()) EsperarBusqueda(base, texto, Traducir(texto, {}).texto);
}

// The ranges of one family or article are put in order, and they are few. `Grupo` is the customer's one row.
TEST(Busquedas, LosProcedimientos_LleganPorUnaClave) {
    const BaseDePrueba base(BaseDePrueba::Datos::Ninguno, kHoy);
    const auto procedimientos = LeerFilas(base.Ruta(), "SELECT Cuerpo FROM Procedimientos");
    ASSERT_EQ(2U, procedimientos.size());
    for (const auto& procedimiento : procedimientos)
        for (const auto& fila : LeerFilas(base.Ruta(), "EXPLAIN QUERY PLAN " + procedimiento[0])) {
            EXPECT_FALSE(fila[3].starts_with("SCAN ") && fila[3] != "SCAN CONSTANT ROW" && fila[3] != "SCAN Grupo")
                << fila[3];
            EXPECT_FALSE(fila[3].ends_with("(Cod_Empresa=?)")) << fila[3];
        }
}

}  // namespace
}  // namespace kv::prueba
