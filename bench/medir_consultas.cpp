// The look-ups of an article load: the adapter with literal text against statements prepared by hand (the floor),
// against preparing each text anew, and against SOCI. Prints the medians and their ratios to the floor.
//   kv_bench_consultas [--benchmark_...]
//   kv_bench_consultas --base RUTA ARTICULOS                 (only makes the database)
//   kv_bench_consultas --cuenta adaptador|piso RUTA VECES   (to count instructions on an existing database)

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <random>

#include "kvdatosart/bench/BaseGrande.h"
#include "kvdatosart/bench/Lectores.h"
#include "kvdatosart/bench/Reservas.h"

namespace kv::bench {
namespace {

constexpr std::size_t kCargas = 512;

using Fabrica = std::unique_ptr<Lector> (*)(const std::string&);

std::vector<CargaPreparada> CargasAlAzar(int articulos) {
    std::mt19937 azar(20261121);
    std::uniform_int_distribution<int> articulo(1, articulos);
    std::uniform_int_distribution<int> cliente(1, kClientes);
    std::vector<CargaPreparada> cargas;
    for (std::size_t i = 0; i < kCargas; ++i) cargas.push_back(PrepararCarga(articulo(azar), cliente(azar)));
    return cargas;
}

// What a reader reads of every load: readers of the same kind must agree, or the times would compare different work.
std::int64_t Suma(Lector& lector, const std::vector<CargaPreparada>& cargas) {
    Destino destino;
    for (const CargaPreparada& carga : cargas) lector.Recorrer(carga, destino);
    // SOCI types a column by its first value, so that its sums depend on the order; what it reads does not.
    return destino.leidos != 0 ? destino.leidos : destino.suma;
}

void ExigirIguales(const std::string& ruta, const std::vector<CargaPreparada>& cargas, Fabrica una, Fabrica otra) {
    if (Suma(*una(ruta), cargas) != Suma(*otra(ruta), cargas)) throw std::runtime_error("no leen lo mismo: " + ruta);
}

void Medir(benchmark::State& estado, Lector& lector, const std::vector<CargaPreparada>& cargas) {
    Destino destino;
    std::size_t siguiente = 0;
    const std::uint64_t antes = Reservas();
    for (auto _ : estado) {
        lector.Recorrer(cargas[siguiente], destino);
        siguiente = (siguiente + 1) % cargas.size();
        benchmark::DoNotOptimize(destino.suma);
    }
    estado.counters["reservas"] =
        benchmark::Counter(static_cast<double>(Reservas() - antes), benchmark::Counter::kAvgIterations);
}

// Keeps the median of each benchmark's processor time, to print the ratios at the end: on a shared machine the wall
// clock counts the neighbours too.
class Informe : public benchmark::ConsoleReporter {
  public:
    Informe() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& medidas) override {
        for (const Run& medida : medidas)
            if (medida.aggregate_name == "median")
                medianas_[medida.run_name.function_name] = medida.GetAdjustedCPUTime();
        ConsoleReporter::ReportRuns(medidas);
    }
    void Razones() const {
        for (const auto& [nombre, tiempo] : medianas_) {
            const auto piso = medianas_.find("piso" + nombre.substr(nombre.find('/')));
            if (piso != medianas_.end())
                std::printf("%-36s %10.1f ns/carga  %6.2f x piso\n", nombre.c_str(), tiempo, tiempo / piso->second);
        }
    }

  private:
    std::map<std::string, double> medianas_;
};

void Registrar(const std::string& nombre, Fabrica fabrica, const std::string& ruta,
               const std::vector<CargaPreparada>& cargas) {
    const std::shared_ptr<Lector> lector = fabrica(ruta);
    Destino destino;
    for (const CargaPreparada& carga : cargas) lector->Recorrer(carga, destino);
    benchmark::RegisterBenchmark(nombre.c_str(),
                                 [lector, &cargas](benchmark::State& estado) { Medir(estado, *lector, cargas); })
        ->Repetitions(41)
        ->MinTime(0.02)
        ->ReportAggregatesOnly();
}

int Contar(const std::string& quien, const std::string& ruta, int veces) {
    // Both, since the first connection of the adapter sets up SQLite for the whole process.
    const auto adaptador = LectorAdaptador(ruta);
    const auto piso = LectorPiso(ruta);
    const auto& lector = quien == "piso" ? piso : adaptador;
    const auto cargas = CargasAlAzar(1000);
    Destino destino;
    for (int i = 0; i < veces; ++i) lector->Recorrer(cargas[static_cast<std::size_t>(i) % cargas.size()], destino);
    std::printf("%lld\n", static_cast<long long>(destino.suma));
    return 0;
}

int Principal(int argc, char** argv) {
    if (argc == 5 && std::string(argv[1]) == "--cuenta") return Contar(argv[2], argv[3], std::atoi(argv[4]));
    if (argc == 4 && std::string(argv[1]) == "--base") {
        CrearBaseGrande(argv[2], std::atoi(argv[3]));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    std::vector<std::string> ficheros;
    std::vector<std::vector<CargaPreparada>> cargas;
    cargas.reserve(3);
    for (const int articulos : {1000, 10000, 100000}) {
        const std::string ruta = "bench-" + std::to_string(articulos) + ".kv";
        std::filesystem::remove(ruta);
        CrearBaseGrande(ruta, articulos);
        ficheros.push_back(ruta);
        cargas.push_back(CargasAlAzar(articulos));
        const std::string final_ = "/" + std::to_string(articulos);
        ExigirIguales(ruta, cargas.back(), LectorPiso, LectorAdaptador);
        Registrar("piso" + final_, LectorPiso, ruta, cargas.back());
        Registrar("adaptador" + final_, LectorAdaptador, ruta, cargas.back());
        if (articulos != 100000) continue;
        Registrar("preparar_cada_vez" + final_, LectorPreparaCadaVez, ruta, cargas.back());
#ifdef KV_CON_SOCI
        ExigirIguales(ruta, cargas.back(), LectorSociLiteral, LectorSociPreparado);
        Registrar("soci_literal" + final_, LectorSociLiteral, ruta, cargas.back());
        Registrar("soci_preparado" + final_, LectorSociPreparado, ruta, cargas.back());
#endif
    }
    Informe informe;
    benchmark::RunSpecifiedBenchmarks(&informe);
    informe.Razones();
    benchmark::ClearRegisteredBenchmarks();
    for (const std::string& fichero : ficheros) std::filesystem::remove(fichero);
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::Principal(argc, argv);
}
