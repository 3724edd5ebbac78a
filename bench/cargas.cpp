// Whole article loads: `clsDatosArt` on the embedded database against the same statements prepared by hand (the floor),
// and `clsDatosArt` over a connection that answers from memory, which is the component's own cost.
//   kv_bench_cargas [--benchmark_...]
//   kv_bench_cargas --cuenta VECES   (loads from memory only, to count instructions)

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "bench/EmpresaMedida.h"
#include "bench/Grabadora.h"
#include "bench/PisoGrabado.h"
#include "bench/Reservas.h"
#include "component/clsDatosArt.h"
#include "db/sqlite/ConexionSqlite.h"
#include "schema/Demostracion.h"
#include "schema/Esquema.h"

namespace kv::bench {
namespace {

constexpr IdentidadBase kIdentidad{kAplicacionEsquema, kVersionEsquema};
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
        ConexionSqlite::Crear(kRuta, kIdentidad, EsquemaSqlite(),
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
        return ConexionSqlite::Abrir(kRuta, kIdentidad, ConexionSqlite::Modo::LecturaEscritura);
    }
};

template <class Una>
void Medir(benchmark::State& estado, std::size_t cuantas, Una una) {
    for (std::size_t i = 0; i < cuantas; ++i) una(i);
    std::size_t siguiente = 0;
    const std::uint64_t antes = Reservas();
    for (auto _ : estado) {
        una(siguiente);
        siguiente = (siguiente + 1) % cuantas;
    }
    estado.counters["reservas"] =
        benchmark::Counter(static_cast<double>(Reservas() - antes), benchmark::Counter::kAvgIterations);
}

void EnBase(benchmark::State& estado, const Material& m) {
    clsDatosArt articulo;
    articulo.Conexion(Material::Abrir());
    articulo.cEmpresa(m.empresa);
    Medir(estado, m.asuntos.size(), [&](std::size_t i) { Cargar(articulo, m.asuntos[i]); });
}

void EnPiso(benchmark::State& estado, const Material& m) {
    PisoGrabado piso(kRuta);
    std::vector<std::vector<PisoGrabado::Paso>> cargas;
    for (const CargaGrabada& carga : m.grabadas) cargas.push_back(piso.Preparar(carga));
    std::int64_t suma = 0;
    std::string texto;
    Medir(estado, cargas.size(), [&](std::size_t i) { piso.Recorrer(cargas[i], suma, texto); });
    benchmark::DoNotOptimize(suma);
}

void EnMemoria(benchmark::State& estado, const Material& m) {
    const auto memoria = std::make_shared<ConexionMemoria>();
    clsDatosArt articulo;
    articulo.Conexion(memoria);
    articulo.cEmpresa(m.empresa);
    Medir(estado, m.asuntos.size(), [&](std::size_t i) {
        memoria->Poner(m.grabadas[i]);
        Cargar(articulo, m.asuntos[i]);
    });
}

class Informe : public benchmark::ConsoleReporter {
  public:
    Informe() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& medidas) override {
        for (const Run& medida : medidas) {
            if (medida.aggregate_name != "median") continue;
            if (medida.run_name.function_name == "piso") piso = medida.GetAdjustedRealTime();
            if (medida.run_name.function_name == "cargar") cargar = medida.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(medidas);
    }
    double piso = 0;
    double cargar = 0;
};

int Principal(int argc, char** argv) {
    EstabilizarMonton();
    const Material material;
    double operaciones = 0;
    for (const CargaGrabada& carga : material.grabadas) operaciones += static_cast<double>(carga.size());
    if (argc == 3 && std::string(argv[1]) == "--cuenta") {
        const auto memoria = std::make_shared<ConexionMemoria>();
        clsDatosArt articulo;
        articulo.Conexion(memoria);
        articulo.cEmpresa(material.empresa);
        for (int i = 0; i < std::atoi(argv[2]); ++i) {
            const auto cual = static_cast<std::size_t>(i) % material.asuntos.size();
            memoria->Poner(material.grabadas[cual]);
            Cargar(articulo, material.asuntos[cual]);
        }
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    const auto registrar = [&](const char* nombre, void (*medida)(benchmark::State&, const Material&)) {
        benchmark::RegisterBenchmark(nombre, [&, medida](benchmark::State& estado) { medida(estado, material); })
            ->Repetitions(15)
            ->MinTime(0.1)
            ->ReportAggregatesOnly();
    };
    registrar("piso", EnPiso);
    registrar("cargar", EnBase);
    registrar("memoria", EnMemoria);
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
