// Whole article loads: `clsDatosArt` on the embedded database against the same statements prepared by hand (the floor),
// and `clsDatosArt` over a connection that answers from memory, which is the component's own cost.
//   kv_bench_cargas [--benchmark_...]
//   kv_bench_cargas --cuenta cargar|piso|memoria VECES   (to count instructions)

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>

#include "kvdatosart/bench/EmpresaMedida.h"
#include "kvdatosart/bench/Grabadora.h"
#include "kvdatosart/bench/PisoGrabado.h"
#include "kvdatosart/bench/Reservas.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"

namespace kv::bench {
namespace {

const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);
constexpr const char* kRuta = "bench-cargas.kv";

struct Asunto {
    std::int32_t articulo;
    std::int32_t cliente;
};

std::vector<Asunto> Asuntos() {
    std::vector<Asunto> asuntos;
    for (std::int32_t i = 0; i < 256; ++i) asuntos.push_back({1001 + i * 37 % 324, 1 + i * 11 % 48});
    return asuntos;
}

void Cargar(clsDatosArt& articulo, const Asunto& asunto) {
    benchmark::DoNotOptimize(articulo.Cargar(asunto.articulo, asunto.cliente, kHoy, 1, 1, 2, Currency::DeEntero(1)));
}

struct Material {
    std::shared_ptr<EmpresaMedida> empresa = std::make_shared<EmpresaMedida>();
    std::vector<Asunto> asuntos = Asuntos();
    std::vector<CargaGrabada> grabadas;

    Material() {
        std::filesystem::remove(kRuta);
        ConexionSqlite::Crear(kRuta, kIdentidadEsquema, EsquemaSqlite(),
                              [](Connection& conexion) { CargarDemostracion(conexion, kHoy); });
        const auto grabadora = std::make_shared<Grabadora>(Abrir());
        for (const Asunto& asunto : asuntos) {
            clsDatosArt articulo;
            articulo.Conexion(grabadora);
            articulo.cEmpresa(empresa);
            grabadora->carga.clear();
            Cargar(articulo, asunto);
            grabadas.push_back(grabadora->carga);
        }
    }
    static std::shared_ptr<Connection> Abrir() {
        return ConexionSqlite::Abrir(kRuta, kIdentidadEsquema, ConexionSqlite::Modo::LecturaEscritura);
    }
};

// One load, the i-th of the list, in each of the ways that are compared.
using Una = std::function<void(std::size_t)>;

std::shared_ptr<clsDatosArt> Articulo(std::shared_ptr<Connection> conexion, const Material& m) {
    const auto articulo = std::make_shared<clsDatosArt>();
    articulo->Conexion(std::move(conexion));
    articulo->cEmpresa(m.empresa);
    return articulo;
}

Una EnBase(const Material& m) {
    return [&m, articulo = Articulo(Material::Abrir(), m)](std::size_t i) { Cargar(*articulo, m.asuntos[i]); };
}

Una EnPiso(const Material& m) {
    const auto piso = std::make_shared<PisoGrabado>(kRuta);
    std::vector<std::vector<PisoGrabado::Paso>> cargas;
    for (const CargaGrabada& carga : m.grabadas) cargas.push_back(piso->Preparar(carga));
    return [piso, cargas = std::move(cargas), suma = std::int64_t{0}, texto = std::string()](std::size_t i) mutable {
        piso->Recorrer(cargas[i], suma, texto);
        benchmark::DoNotOptimize(suma);
    };
}

Una EnMemoria(const Material& m) {
    const auto memoria = std::make_shared<ConexionMemoria>();
    return [&m, memoria, articulo = Articulo(memoria, m)](std::size_t i) {
        memoria->Poner(m.grabadas[i]);
        Cargar(*articulo, m.asuntos[i]);
    };
}

const std::map<std::string, Una (*)(const Material&)> kManeras = {
    {"piso", EnPiso}, {"cargar", EnBase}, {"memoria", EnMemoria}};

void Medir(benchmark::State& estado, const Una& una, std::size_t cuantas) {
    std::size_t siguiente = 0;
    const std::uint64_t antes = Reservas();
    for (auto _ : estado) {
        una(siguiente);
        siguiente = (siguiente + 1) % cuantas;
    }
    estado.counters["reservas"] =
        benchmark::Counter(static_cast<double>(Reservas() - antes), benchmark::Counter::kAvgIterations);
}

int Contar(const std::string& manera, int veces, const Material& m) {
    const Una una = kManeras.at(manera)(m);
    for (int i = 0; i < veces; ++i) una(static_cast<std::size_t>(i) % m.asuntos.size());
    return 0;
}

// Ratios of processor time: on a shared machine the wall clock counts the neighbours too.
class Informe : public benchmark::ConsoleReporter {
  public:
    Informe() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& medidas) override {
        for (const Run& medida : medidas) {
            if (medida.aggregate_name != "median") continue;
            if (medida.run_name.function_name == "piso") piso = medida.GetAdjustedCPUTime();
            if (medida.run_name.function_name == "cargar") cargar = medida.GetAdjustedCPUTime();
        }
        ConsoleReporter::ReportRuns(medidas);
    }
    double piso = 0;
    double cargar = 0;
};

int Principal(int argc, char** argv) {
    const Material material;
    double operaciones = 0;
    for (const CargaGrabada& carga : material.grabadas) operaciones += static_cast<double>(carga.size());
    if (argc == 4 && std::string(argv[1]) == "--cuenta") return Contar(argv[2], std::atoi(argv[3]), material);
    benchmark::Initialize(&argc, argv);
    for (const auto& [nombre, manera] : kManeras) {
        const Una una = manera(material);
        for (std::size_t i = 0; i < material.asuntos.size(); ++i) una(i);
        benchmark::RegisterBenchmark(
            nombre.c_str(), [&material, una](benchmark::State& estado) { Medir(estado, una, material.asuntos.size()); })
            ->Repetitions(41)
            ->MinTime(0.02)
            ->ReportAggregatesOnly();
    }
    Informe informe;
    benchmark::RunSpecifiedBenchmarks(&informe);
    std::printf("sentencias por carga: %.1f\n", operaciones / static_cast<double>(material.grabadas.size()));
    if (informe.piso > 0) std::printf("cargar / piso: %.2f\n", informe.cargar / informe.piso);
    std::filesystem::remove(kRuta);
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::Principal(argc, argv);
}
