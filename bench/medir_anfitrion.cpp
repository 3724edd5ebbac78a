// What a load costs a host, to compare two builds by turns: processor time, an ordinary heap, one connection, one
// article object, articles in their order.
//   kv_bench_anfitrion --base demo|grande RUTA
//   kv_bench_anfitrion autoconfirmada|lectura|memoria RUTA VECES   (prints the nanoseconds of a load)

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <stdexcept>

#include "kvdatosart/bench/BaseGrande.h"
#include "kvdatosart/bench/EmpresaMedida.h"
#include "kvdatosart/bench/Grabadora.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"

namespace kv::bench {
namespace {

constexpr int kArticulosGrande = 100000;
const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

void CrearBase(const std::string& clase, const std::string& ruta) {
    std::filesystem::remove(ruta);
    if (clase == "grande")
        CrearBaseGrande(ruta, kArticulosGrande);
    else
        ConexionSqlite::Crear(ruta, kIdentidadEsquema, EsquemaSqlite(),
                              [](Connection& conexion) { CargarDemostracion(conexion, kHoy); });
}

std::shared_ptr<Connection> Abrir(const std::string& ruta) {
    return ConexionSqlite::Abrir(ruta, kIdentidadEsquema, ConexionSqlite::Modo::SoloLectura);
}

// The codes of a table of the company's.
std::vector<std::int32_t> Codigos(const std::string& ruta, const std::string& tabla) {
    const auto conexion = Abrir(ruta);
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *conexion, "SELECT COUNT(*) AS Cuantos FROM " + tabla);
    std::vector<std::int32_t> codigos;
    // At once: a large block that is given back would teach the heap to keep what it has.
    codigos.reserve(static_cast<std::size_t>(ALong(rs->Fields("Cuantos").Value())));
    rs->Close();
    AbrirLectura(rs, *conexion, "SELECT Codigo FROM " + tabla + " WHERE Cod_Empresa =1 ORDER BY Codigo");
    for (; !rs->Eof(); rs->MoveNext()) codigos.push_back(ALong(rs->Fields("Codigo").Value()));
    return codigos;
}

class Cargador {
  public:
    Cargador(std::shared_ptr<Connection> conexion, const std::string& ruta)
        : articulos_(Codigos(ruta, "Articulos")), clientes_(Codigos(ruta, "Clientes")) {
        articulo_.Conexion(std::move(conexion));
        articulo_.cEmpresa(std::make_shared<EmpresaMedida>());
    }
    /// The i-th load: every article in turn for a customer, then for the next one.
    void operator()(std::size_t i) {
        articulo_.Cargar(articulos_[i % articulos_.size()], clientes_[i / articulos_.size() % clientes_.size()], kHoy,
                         1, 1, 2, Currency::DeEntero(1));
    }

  private:
    clsDatosArt articulo_;
    const std::vector<std::int32_t> articulos_;
    const std::vector<std::int32_t> clientes_;
};

double Nanosegundos() {
    timespec ahora{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ahora);
    return static_cast<double>(ahora.tv_sec) * 1e9 + static_cast<double>(ahora.tv_nsec);
}

// Until SQLite holds as many pages as it may: while it still takes new ones, they lie above the memory that a load
// gives back, and the heap keeps that. A host that goes on for long is past it.
constexpr std::size_t kCalentamiento = 12000;

template <class Una>
double Medir(Una&& una, std::size_t veces) {
    for (std::size_t i = 0; i < kCalentamiento; ++i) una(i);
    const double antes = Nanosegundos();
    for (std::size_t i = 0; i < veces; ++i) una(kCalentamiento + i);
    return (Nanosegundos() - antes) / static_cast<double>(veces);
}

double DeMemoria(const std::string& ruta, std::size_t veces) {
    const auto grabadora = std::make_shared<Grabadora>(Abrir(ruta));
    Cargador grabado(grabadora, ruta);
    std::vector<CargaGrabada> cargas;
    for (std::size_t i = 0; i < 256; ++i) {
        grabadora->carga.clear();
        grabado(i * 61);
        cargas.push_back(grabadora->carga);
    }
    const auto memoria = std::make_shared<ConexionMemoria>();
    Cargador cargar(memoria, ruta);
    return Medir(
        [&](std::size_t i) {
            memoria->Poner(cargas[i % cargas.size()]);
            cargar(i % cargas.size() * 61);
        },
        veces);
}

double DeBase(const std::string& manera, const std::string& ruta, std::size_t veces) {
    const auto conexion = Abrir(ruta);
    Cargador cargar(conexion, ruta);
    if (manera == "lectura") conexion->BeginTrans();
    return Medir(cargar, veces);
}

int Principal(int argc, char** argv) {
    if (argc != 4) throw std::runtime_error("se esperan tres argumentos");
    const std::string manera = argv[1];
    if (manera == "--base") {
        CrearBase(argv[2], argv[3]);
        return 0;
    }
    const auto veces = static_cast<std::size_t>(std::atoi(argv[3]));
    std::printf("%.0f\n", manera == "memoria" ? DeMemoria(argv[2], veces) : DeBase(manera, argv[2], veces));
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::Principal(argc, argv);
}
