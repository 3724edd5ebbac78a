// Stock movements: `clsAlmacen_Articulo::Act_Stock` on the embedded database against the same statements prepared by
// hand (the floor), on two copies of one file, each posting durable by itself and a hundred in a transaction.
//   kv_bench_movimientos [--benchmark_...]
//   kv_bench_movimientos --cuenta clase|piso VECES   (in one transaction, to count instructions)

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "kvdatosart/bench/BaseGrande.h"
#include "kvdatosart/bench/EmpresaMedida.h"
#include "kvdatosart/bench/Grabadora.h"
#include "kvdatosart/bench/PisoGrabado.h"
#include "kvdatosart/bench/Reservas.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/stock/Movimiento.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

namespace kv::bench {
namespace {

constexpr const char* kRutaClase = "bench-movimientos-clase.kv";
constexpr const char* kRutaPiso = "bench-movimientos-piso.kv";
constexpr std::int32_t kArticulos = 20000;
constexpr std::int32_t kPorGrupo = 100;
const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

struct Movimiento {
    std::int32_t articulo;
    double unidades;
    double neto;
    std::int16_t op;
    bool fichas;
};

// Each article is bought and sold, brought in and taken out: the stock comes back, and with it the same statements.
std::vector<Movimiento> Movimientos() {
    std::vector<Movimiento> movimientos;
    for (std::int32_t i = 0; i < 500; ++i) {
        const std::int32_t articulo = 1 + i * 7919 % kArticulos;
        const double neto = 1.25 + i % 40;
        movimientos.push_back({articulo, 12, neto, kOpCompra, true});
        movimientos.push_back({articulo, 12, 0, kOpVenta, true});
        movimientos.push_back({articulo, 2.5, neto, kOpEntradaConPrecio, false});
        movimientos.push_back({articulo, 2.5, 0, kOpSalida8, false});
    }
    return movimientos;
}

std::shared_ptr<Connection> Abrir() {
    return ConexionSqlite::Abrir(kRutaClase, kIdentidadEsquema, ConexionSqlite::Modo::LecturaEscritura);
}

class Clase {
  public:
    explicit Clase(std::shared_ptr<Connection> conexion) : conexion_(std::move(conexion)) {
        almacen_.Conexion(conexion_);
        almacen_.cEmpresa(std::make_shared<EmpresaMedida>());
    }
    void Empezar() { conexion_->BeginTrans(); }
    void Confirmar() { conexion_->CommitTrans(); }
    void Mover(std::size_t i) {
        const Movimiento& m = movimientos_[i];
        double puc = 0;
        double medio = 0;
        double stock = 0;
        almacen_.Act_Stock(1, m.articulo, m.unidades, 0, m.neto, m.op, kHoy, puc, medio, stock, m.fichas);
        benchmark::DoNotOptimize(stock);
    }
    std::size_t Cuantos() const { return movimientos_.size(); }

  private:
    std::vector<Movimiento> movimientos_ = Movimientos();
    std::shared_ptr<Connection> conexion_;
    clsAlmacen_Articulo almacen_;
};

std::vector<CargaGrabada> Grabar() {
    const auto conexion = Abrir();
    const auto grabadora = std::make_shared<Grabadora>(conexion);
    Clase clase(grabadora);
    std::vector<CargaGrabada> grabados;
    conexion->BeginTrans();
    for (std::size_t i = 0; i < clase.Cuantos(); ++i) {
        grabadora->carga.clear();
        clase.Mover(i);
        grabados.push_back(grabadora->carga);
    }
    conexion->CommitTrans();
    return grabados;
}

class Piso {
  public:
    explicit Piso(const std::vector<CargaGrabada>& grabados) {
        for (const CargaGrabada& grabado : grabados) pasos_.push_back(piso_.Preparar(grabado));
    }
    void Empezar() { piso_.Ejecutar("BEGIN IMMEDIATE"); }
    void Confirmar() { piso_.Ejecutar("COMMIT"); }
    void Mover(std::size_t i) {
        piso_.Recorrer(pasos_[i], suma_, texto_);
        benchmark::DoNotOptimize(suma_);
    }
    std::size_t Cuantos() const { return pasos_.size(); }

  private:
    PisoGrabado piso_{kRutaPiso};
    std::vector<std::vector<PisoGrabado::Paso>> pasos_;
    std::int64_t suma_ = 0;
    std::string texto_;
};

template <class Quien>
void Grupo(Quien& quien, std::int64_t cuantos, std::size_t& siguiente) {
    quien.Empezar();
    for (std::int64_t i = 0; i < cuantos; ++i) {
        quien.Mover(siguiente);
        siguiente = (siguiente + 1) % quien.Cuantos();
    }
    quien.Confirmar();
}

template <class Quien>
void Medir(benchmark::State& estado, Quien quien) {
    std::size_t siguiente = 0;
    // Every statement prepared, the file's pages in the cache.
    Grupo(quien, static_cast<std::int64_t>(quien.Cuantos()), siguiente);
    for (auto _ : estado) Grupo(quien, estado.range(0), siguiente);
    estado.SetItemsProcessed(estado.iterations() * estado.range(0));
}

class Informe : public benchmark::ConsoleReporter {
  public:
    Informe() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& medidas) override {
        for (const Run& medida : medidas)
            if (medida.aggregate_name == "median")
                medianas_[medida.run_name.function_name + "/" + medida.run_name.args] = medida.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(medidas);
    }
    void Razon(const std::string& grupo) {
        const double clase = medianas_["clase/" + grupo];
        const double piso = medianas_["piso/" + grupo];
        if (piso > 0) std::printf("clase / piso, grupos de %s: %.2f\n", grupo.c_str(), clase / piso);
    }

  private:
    std::map<std::string, double> medianas_;
};

int Principal(int argc, char** argv) {
    for (const char* ruta : {kRutaClase, kRutaPiso}) std::filesystem::remove(ruta);
    CrearBaseGrande(kRutaClase, kArticulos);
    const std::vector<CargaGrabada> grabados = Grabar();
    std::filesystem::copy_file(kRutaClase, kRutaPiso);
    double sentencias = 0;
    for (const CargaGrabada& grabado : grabados) sentencias += static_cast<double>(grabado.size());
    if (argc == 4 && std::string(argv[1]) == "--cuenta") {
        std::size_t siguiente = 0;
        Clase clase(Abrir());
        Piso piso(grabados);
        if (std::string(argv[2]) == "piso")
            Grupo(piso, std::atoi(argv[3]), siguiente);
        else
            Grupo(clase, std::atoi(argv[3]), siguiente);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    const auto registrar = [](const char* nombre, auto medida) {
        benchmark::RegisterBenchmark(nombre, medida)
            ->Arg(1)
            ->Arg(kPorGrupo)
            ->Repetitions(15)
            ->MinTime(0.2)
            ->UseRealTime()
            ->ReportAggregatesOnly();
    };
    registrar("piso", [&](benchmark::State& estado) { Medir(estado, Piso(grabados)); });
    registrar("clase", [](benchmark::State& estado) { Medir(estado, Clase(Abrir())); });
    Informe informe;
    benchmark::RunSpecifiedBenchmarks(&informe);
    std::printf("sentencias por movimiento: %.1f\n", sentencias / static_cast<double>(grabados.size()));
    for (const std::int32_t grupo : {1, kPorGrupo}) informe.Razon(std::to_string(grupo));
    for (const char* ruta : {kRutaClase, kRutaPiso}) std::filesystem::remove(ruta);
    return 0;
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    return kv::bench::Principal(argc, argv);
}
