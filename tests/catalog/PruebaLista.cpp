#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <thread>

#include "kvdatosart/db/ConexionTrazada.h"
#include "kvdatosart/tests/catalog/MundoCatalogo.h"
#include "kvdatosart/tests/comun/Errores.h"
#include "kvdatosart/tests/servidor/Azar.h"

namespace kv::prueba {
namespace {

PeticionLista Peticion(std::vector<std::int32_t> articulos, std::vector<std::int32_t> clientes) {
    PeticionLista peticion;
    peticion.articulos.codigos = std::move(articulos);
    peticion.clientes.codigos = std::move(clientes);
    peticion.terminos = Terminos();
    peticion.hoy = kHoy;
    return peticion;
}

/// Changes prices, discounts and stock all the time.
class Escritor {
  public:
    explicit Escritor(const MundoCatalogo& mundo)
        : hilo_([this, conexion = mundo.base.AbrirSinDisco()] {
              for (int i = 1; !fin_; ++i) {
                  conexion->BeginTrans();
                  conexion->Ejecutar("UPDATE Articulos_Tarifas SET Pvp = Pvp + 0.01");
                  conexion->Ejecutar("UPDATE Clientes_Grp_Descuentos_Fam SET Descuento =" + std::to_string(i % 30));
                  conexion->Ejecutar("UPDATE Almacen_Articulos SET Stock_Actual =" + std::to_string(i));
                  conexion->CommitTrans();
                  std::this_thread::sleep_for(std::chrono::milliseconds(2));
              }
          }) {}
    ~Escritor() {
        fin_ = true;
        hilo_.join();
    }

  private:
    std::atomic<bool> fin_ = false;
    std::thread hilo_;
};

PeticionLista PeticionAlAzar(Azar& azar) {
    PeticionLista peticion = Peticion({}, {});
    if (azar.Una(2))
        for (int i = 0; i < 40; ++i) peticion.articulos.codigos.push_back(azar.Entre(101, 125));
    for (int i = azar.Entre(1, 12); i > 0; --i) peticion.clientes.codigos.push_back(azar.Entre(1, 60));
    peticion.orden = static_cast<OrdenLista>(azar.Entre(0, 2));
    peticion.terminos.fecha = azar.Dia(-40, 80);
    peticion.terminos.tarifa = azar.De<std::int16_t>({1, 2, 3, 9});
    peticion.terminos.almacen = azar.Entre<std::int16_t>(1, 2);
    peticion.terminos.decimales = azar.Entre<std::int16_t>(0, 4);
    peticion.unidades = {Currency::DeEntero(1), azar.Importe(0, 30, 1)};
    peticion.todos = true;
    peticion.hoy = azar.Dia(-3, 3);
    return peticion;
}

// What a host gets that loads the line by itself.
std::string Sola(const Puesto& puesto, Pregunta pregunta) {
    clsDatosArt a;
    a.Conexion(puesto.conexion);
    a.cEmpresa(puesto.empresa);
    const int estado = a.Cargar(pregunta.articulo, pregunta.cliente, pregunta.fecha, pregunta.tarifa, pregunta.almacen,
                                pregunta.decimales, pregunta.unidades);
    return std::to_string(estado) + " " + a.Descripcion + " " + Currency::DeDouble(a.Pvp).ATexto('.').Cadena() + " " +
           Currency::DeDouble(static_cast<double>(a.PDescuento)).ATexto('.').Cadena() + " " + a.Convenio;
}

std::string DeLista(const Tasacion& t) {
    return std::to_string(t.estado) + " " + t.descripcion + " " + t.pvp.ATexto('.').Cadena() + " " +
           t.descuento.ATexto('.').Cadena() + " " + t.convenio;
}

/// Compares every line with a load of its own, on a connection on the same state.
class Comprobador : public DestinoTextos {
  public:
    Comprobador(Puesto puesto, const PeticionLista& peticion) : puesto_(std::move(puesto)), peticion_(peticion) {}
    void Linea(const LineaLista& linea) override {
        DestinoTextos::Linea(linea);
        const HoyFijado hoy(peticion_.hoy);
        Pregunta pregunta = peticion_.terminos;
        pregunta.articulo = linea.articulo;
        pregunta.cliente = linea.cliente;
        for (std::size_t i = 0; i < peticion_.unidades.size(); ++i) {
            pregunta.unidades = peticion_.unidades[i];
            ASSERT_EQ(Sola(puesto_, pregunta), DeLista(linea.tasaciones[i])) << lineas.back();
        }
    }

  private:
    Puesto puesto_;
    const PeticionLista& peticion_;
};

TEST(Lista, CadaLineaEsComoUnaCargaSola_ConLosTrabajadoresQueSean_MientrasOtroEscribe) {
    const MundoCatalogo mundo;
    const std::uint64_t semilla = SemillaDePrueba();
    SCOPED_TRACE("KV_SEMILLA=" + std::to_string(semilla));
    Azar azar(semilla, kHoy);
    const Escritor escritor(mundo);
    const BibliotecaDePrueba biblioteca(kHoy + 1);
    std::size_t lineas = 0;
    while (lineas < 10000) {
        const PeticionLista peticion = PeticionAlAzar(azar);
        auto puestos = mundo.Puestos(6);
        Comprobador una(puestos.back(), peticion);
        HacerLista({puestos[0]}, peticion, una);
        lineas += una.lineas.size() * peticion.unidades.size();
        for (const std::size_t trabajadores : {2U, 5U}) {
            DestinoTextos varias;
            HacerLista({puestos.begin(), puestos.begin() + static_cast<std::ptrdiff_t>(trabajadores) + 1}, peticion,
                       varias);
            ASSERT_EQ(una.lineas, varias.lineas) << trabajadores;
        }
    }
}

TEST(Lista, OrdenYSeleccion) {
    const MundoCatalogo mundo;
    mundo.escritura->Ejecutar("UPDATE Clientes SET Grupo_Dto =9 WHERE Codigo IN (3, 58)");
    const auto puestos = mundo.Puestos(1);
    const auto claves = [&](const PeticionLista& peticion) {
        DestinoTextos destino;
        HacerLista(puestos, peticion, destino);
        EXPECT_EQ(destino.hechas, destino.total);
        std::string texto;
        for (const std::string& linea : destino.lineas) texto += linea.substr(0, linea.find(" |")) + " ";
        return texto;
    };
    PeticionLista p = Peticion({112, 101, 112, 113, 5555}, {12, 11});
    p.todos = true;
    EXPECT_EQ("101/11 101/12 112/11 112/12 113/11 113/12 ", claves(p));
    p.orden = OrdenLista::Cliente;
    EXPECT_EQ("101/11 112/11 113/11 101/12 112/12 113/12 ", claves(p));
    mundo.escritura->Ejecutar("UPDATE Articulos SET Familia_1 =1, Familia_2 =1, Familia_3 =2 WHERE Codigo =101");
    mundo.escritura->Ejecutar("UPDATE Articulos SET Familia_1 =1, Familia_2 =1, Familia_3 =1 WHERE Codigo =113");
    mundo.escritura->Ejecutar("UPDATE Articulos SET Familia_1 =0 WHERE Codigo =112");
    const auto deAhora = mundo.Puestos(1);
    p.orden = OrdenLista::Familia;
    DestinoTextos porFamilia;
    HacerLista(deAhora, p, porFamilia);
    EXPECT_EQ("112/11 113/12 101/12", porFamilia.lineas.at(0).substr(0, 6) + " " +
                                          porFamilia.lineas.at(3).substr(0, 6) + " " +
                                          porFamilia.lineas.at(5).substr(0, 6));
    p = Peticion({}, {1});
    p.articulos.busca = [](std::int32_t codigo, const std::string& descripcion) {
        return codigo > 101 && descripcion.starts_with("Detergente industrial");
    };
    EXPECT_EQ("113/1 ", claves(p));
    p = Peticion({101}, {});
    p.clientes.grupo = 9;
    EXPECT_EQ("101/3 101/58 ", claves(p));
    p.clientes = {{}, {}, NivelesCadena{1, 1, 1}};
    EXPECT_EQ("101/11 101/12 101/19 ", claves(p));
    p = Peticion({}, {1});
    p.articulos.familias = {{6, 2, 0}, {1, 0, 0}};
    DestinoTextos familias;
    HacerLista(puestos, p, familias);
    EXPECT_EQ(ALong(LeerValor(*puestos[0].conexion,
                              "SELECT COUNT(*) AS N FROM Articulos WHERE Cod_Empresa =1 AND (Familia_1 =1 OR"
                              " (Familia_1 =6 AND Familia_2 =2))")),
              static_cast<int>(familias.total));
}

TEST(Lista, LasPartesSonLaListaEntera_CadaLineaUnaVez) {
    const MundoCatalogo mundo;
    const auto puestos = mundo.Puestos(1);
    PeticionLista p = Peticion({}, {1, 5, 11, 49});
    DestinoTextos entera, partida;
    HacerLista(puestos, p, entera);
    p.partes = 3;
    for (p.parte = 1; p.parte <= p.partes; ++p.parte) {
        const std::size_t antes = partida.lineas.size();
        HacerLista(puestos, p, partida);
        EXPECT_LT(200U, partida.lineas.size() - antes);
    }
    std::sort(entera.lineas.begin(), entera.lineas.end());
    std::sort(partida.lineas.begin(), partida.lineas.end());
    EXPECT_EQ(entera.lineas, partida.lineas);
}

TEST(Lista, FiltrosYLineasQueFallan_SeCuentan) {
    const MundoCatalogo mundo;
    auto& e = *mundo.escritura;
    e.Ejecutar("UPDATE Articulos SET Bloqueado =1 WHERE Codigo =102");
    e.Ejecutar("UPDATE Articulos SET MotivoBaja =7 WHERE Codigo =103");
    e.Ejecutar("DELETE FROM Articulos_Tarifas WHERE Cod_Articulo =104");
    e.Ejecutar("UPDATE Articulos_Tarifas SET Pvp =9300000000000 WHERE Cod_Articulo =105");
    e.Ejecutar(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo, Cod_Nivel1, Cod_Nivel2, Cod_Nivel3,"
        " Cod_Nivel4, Cod_Nivel5, Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10, FechaEntrada,"
        " TDto1, ImporteDto1, CantidadDto1) VALUES (1, 106, 2, 2, 0, 0, 0, 0, 0, 0, 0, 0, '01/01/2020', 2, 5, -5)");
    const auto puestos = mundo.Puestos(3);
    const auto recuento = [&](const PeticionLista& peticion) {
        DestinoTextos destino;
        const RecuentoLista r = HacerLista(puestos, peticion, destino);
        EXPECT_EQ(r.lineas, destino.lineas.size());
        std::string texto;
        for (const std::uint64_t n :
             {r.lineas, r.sinPrecio, r.conFallo, r.noComprados, r.bloqueados, r.omitidosSinPrecio})
            texto += std::to_string(n) + " ";
        return texto;
    };
    PeticionLista p = Peticion({101, 102, 103, 104, 105, 106}, {17});
    EXPECT_EQ("4 1 2 0 2 0 ", recuento(p));
    p.omitirSinPrecio = true;
    EXPECT_EQ("3 0 2 0 2 1 ", recuento(p));
    p.todos = true;
    EXPECT_EQ("5 0 2 0 0 1 ", recuento(p));
    p.clientes.codigos = {3, 17};
    p.soloComprados = true;
    EXPECT_EQ("1 0 0 11 0 0 ", recuento(p));
    DestinoTextos destino;
    HacerLista(puestos, Peticion({105, 106}, {17}), destino);
    EXPECT_TRUE(destino.lineas.at(0).starts_with("105/17 | fallo: Desbordamiento")) << destino.lineas[0];
    EXPECT_TRUE(destino.lineas.at(1).starts_with("106/17 | fallo: División por cero")) << destino.lineas[1];
}

TEST(Lista, UnaConexionQueFalla_AcabaLaListaConSuError) {
    const MundoCatalogo mundo;
    for (const std::size_t cuantos : {1U, 3U}) {
        auto puestos = mundo.Puestos(cuantos);
        std::atomic<int> sentencias = 0;
        puestos.back().conexion =
            std::make_shared<ConexionTrazada>(puestos.back().conexion, [&](const OperacionTrazada&) {
                if (++sentencias > 900) throw RuntimeError(3113, "Proveedor", "conexión perdida");
            });
        DestinoTextos destino;
        EsperarError(3113, "Proveedor", [&] { HacerLista(puestos, Peticion({}, {1, 2, 3}), destino); });
        for (const std::string& linea : destino.lineas) EXPECT_EQ(std::string::npos, linea.find("fallo"));
    }
}

TEST(Lista, QuienLaRecibe_PuedeAcabarla) {
    class Lleno : public DestinoTextos {
      public:
        void Linea(const LineaLista& linea) override {
            DestinoTextos::Linea(linea);
            if (lineas.size() == 300) throw RuntimeError(28, "Disco", "lleno");
        }
    };
    const MundoCatalogo mundo;
    for (const std::size_t cuantos : {1U, 3U}) {
        Lleno destino;
        EsperarError(28, "Disco", [&] { HacerLista(mundo.Puestos(cuantos), Peticion({}, {1, 2, 3}), destino); });
        EXPECT_EQ(300U, destino.lineas.size());
    }
}

// Run under the thread sanitizer too.
TEST(Lista, HoyEsElDeLaLista_MientrasOtrosPreguntanElSuyo) {
    const MundoCatalogo mundo;
    mundo.escritura->Ejecutar("UPDATE Empresas SET TarifasxFechas =1");
    mundo.escritura->Ejecutar(
        "INSERT INTO Tarifas_Modificacion (Cod_Empresa, Cod_Articulo, Cod_Tarifa, Codigo, Fecha_Entrada, Pvp,"
        " Actualizado) VALUES (1, 101, 1, 900, '01/01/2020', 12.34, 1)");
    const BibliotecaDePrueba biblioteca(kHoy + 30);
    std::atomic<bool> fin = false;
    std::set<std::string> solas;
    std::thread otro([&] {
        const Puesto puesto = mundo.Puestos(1)[0];
        while (!fin) solas.insert(Tasar(puesto, Terminos(101, 1)).pvp.ATexto('.').Cadena());
    });
    // The day of the line is the list's tomorrow, and in the past for everybody else.
    PeticionLista p = Peticion({101}, {});
    p.terminos.fecha = kHoy + 1;
    p.hoy = kHoy;
    std::set<std::string> deLista;
    class Precios : public DestinoLista {
      public:
        explicit Precios(std::set<std::string>& precios) : precios_(precios) {}
        void Linea(const LineaLista& linea) override {
            if (!linea.tasaciones[0].motivo.EsCoste() && linea.tasaciones[0].motivo.tarifa == 1)
                precios_.insert(linea.tasaciones[0].pvp.ATexto('.').Cadena());
        }
        void Progreso(std::uint64_t, std::uint64_t) override {}

      private:
        std::set<std::string>& precios_;
    } destino(deLista);
    for (int vez = 0; vez < 10; ++vez) HacerLista(mundo.Puestos(4), p, destino);
    fin = true;
    otro.join();
    EXPECT_EQ(std::set<std::string>{"12.34"}, deLista);
    EXPECT_EQ(std::set<std::string>{"89.95"}, solas);
}

}  // namespace
}  // namespace kv::prueba
