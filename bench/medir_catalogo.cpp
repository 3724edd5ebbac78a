// What the lines of a price list cost, beside single loads of the same articles: each measure in a process of its own,
// by turns, with the heap as every program has it; medians and their ratios.
//   kv_bench_catalogo [ROUNDS [LINES]]   (5 and 100,000 when they are not given; a million lines are measured once)

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "kvdatosart/application/ColumnasLista.h"
#include "kvdatosart/application/EstadoFijo.h"
#include "kvdatosart/bench/BaseGrande.h"
#include "kvdatosart/catalog/Lista.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/host/EscritorXlsx.h"

namespace kv::bench {
namespace {

constexpr int kArticulos = 100000;
constexpr const char* kRuta = "bench-catalogo.kv";
const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

/// What a measure says, for each line but the memory.
struct Medida {
    double procesador = 0;
    double reloj = 0;
    double megas = 0;
};

using Manera = std::function<void(std::uint64_t)>;

double Segundos(clockid_t reloj) {
    timespec ahora{};
    clock_gettime(reloj, &ahora);
    return static_cast<double>(ahora.tv_sec) + static_cast<double>(ahora.tv_nsec) / 1e9;
}

// In a child, whose greatest memory is its own.
Medida Medir(const Manera& manera, std::uint64_t lineas) {
    int tubo[2];
    if (pipe(tubo) != 0) std::exit(1);
    const pid_t hijo = fork();
    if (hijo == 0) {
        const double procesador = Segundos(CLOCK_PROCESS_CPUTIME_ID);
        const double reloj = Segundos(CLOCK_MONOTONIC);
        manera(lineas);
        rusage uso{};
        getrusage(RUSAGE_SELF, &uso);
        const Medida medida{(Segundos(CLOCK_PROCESS_CPUTIME_ID) - procesador) / static_cast<double>(lineas),
                            (Segundos(CLOCK_MONOTONIC) - reloj) / static_cast<double>(lineas),
                            static_cast<double>(uso.ru_maxrss) / 1024};
        _exit(write(tubo[1], &medida, sizeof medida) == sizeof medida ? 0 : 1);
    }
    Medida medida;
    const bool leida = read(tubo[0], &medida, sizeof medida) == sizeof medida;
    int fin = 0;
    waitpid(hijo, &fin, 0);
    close(tubo[0]);
    close(tubo[1]);
    if (!leida || fin != 0) std::exit(1);
    return medida;
}

aplicacion::EstadoFijo Estado(std::size_t trabajadores) {
    return aplicacion::FijarEstado({kRuta, {}, {}}, 1, kHoy, trabajadores);
}

/// Ends a list that has enough lines.
struct Basta {};

class Contador : public DestinoLista {
  public:
    Contador(std::uint64_t lineas, std::function<void(const LineaLista&)> linea)
        : quedan_(lineas), linea_(std::move(linea)) {}
    void Linea(const LineaLista& linea) override {
        linea_(linea);
        if (--quedan_ == 0) throw Basta();
    }
    void Progreso(std::uint64_t, std::uint64_t) override {}

  private:
    std::uint64_t quedan_;
    std::function<void(const LineaLista&)> linea_;
};

void Autoconfirmadas(std::uint64_t lineas) {
    const Puesto puesto{AbrirBase({kRuta, {}, {}}, aplicacion::Acceso::Leer), Estado(1).puestos[0].empresa};
    clsDatosArt articulo;
    articulo.Conexion(puesto.conexion);
    articulo.cEmpresa(puesto.empresa);
    for (std::uint64_t i = 0; i < lineas; ++i)
        articulo.Cargar(static_cast<std::int32_t>(1 + i % kArticulos), static_cast<std::int32_t>(1 + i / kArticulos),
                        kHoy, 1, 1, 2, Currency::DeEntero(1));
}

// The lines of a list, one by one and without its memory of texts.
void SinMemo(std::uint64_t lineas) {
    const aplicacion::EstadoFijo estado = Estado(1);
    const HoyFijado hoy(kHoy);
    Pregunta pregunta;
    pregunta.fecha = kHoy;
    pregunta.tarifa = 1;
    for (std::uint64_t i = 0; i < lineas; ++i) {
        pregunta.articulo = static_cast<std::int32_t>(1 + i % kArticulos);
        pregunta.cliente = static_cast<std::int32_t>(1 + i / kArticulos);
        Tasar(estado.puestos[0], pregunta);
    }
}

void HacerCon(std::size_t trabajadores, std::uint64_t lineas, const std::function<void(const LineaLista&)>& linea) {
    const aplicacion::EstadoFijo estado = Estado(trabajadores);
    aplicacion::PeticionListaPrecios peticion;
    for (std::int32_t i = 1; i <= 10; ++i) peticion.clientes.codigos.push_back(i);
    peticion.orden = OrdenLista::Cliente;
    Contador contador(lineas, linea);
    try {
        HacerLista(estado.puestos, aplicacion::PrepararLista(estado, peticion), contador);
    } catch (const Basta&) {
        // That was all.
    }
}

Manera Lista(std::size_t trabajadores) {
    return [=](std::uint64_t lineas) { HacerCon(trabajadores, lineas, [](const LineaLista&) {}); };
}

using HacerEscritor = std::function<std::unique_ptr<host::EscritorFilas>(std::span<const aplicacion::ColumnaTabla>)>;

Manera Escrita(const HacerEscritor& hacer) {
    return [=](std::uint64_t lineas) {
        aplicacion::FilasLista filas({}, {}, aplicacion::FilasLista::Forma::Ancha);
        const auto escritor = hacer(filas.Columnas());
        HacerCon(1, lineas, [&](const LineaLista& linea) {
            filas.Poner(linea, [&](std::span<const Valor> fila) { escritor->Fila(fila); });
        });
        escritor->Acabar();
    };
}

const std::map<std::string, Manera> kManeras = {
    {"1 Cargar autoconfirmado", Autoconfirmadas},
    {"2 instantánea, sin memoria", SinMemo},
    {"3 lista, un trabajador", Lista(1)},
    {"4 lista, dos trabajadores", Lista(2)},
    {"5 lista a CSV", Escrita([](auto columnas) {
         const auto fichero = std::make_shared<std::ofstream>("bench-catalogo.csv", std::ios::binary);
         return EscritorCsv(columnas, host::EstiloCsv::Rfc, [fichero](std::string_view texto) { *fichero << texto; });
     })},
    {"6 lista a XLSX",
     Escrita([](auto columnas) { return host::EscritorXlsx(columnas, {}, 2, "bench-catalogo.xlsx"); })},
};

double Mediana(std::vector<double> valores) {
    std::sort(valores.begin(), valores.end());
    return valores[valores.size() / 2];
}

void Comparar(int rondas, std::uint64_t lineas) {
    std::map<std::string, std::vector<Medida>> medidas;
    for (int ronda = 0; ronda < rondas; ++ronda)
        for (const auto& [nombre, manera] : kManeras) medidas[nombre].push_back(Medir(manera, lineas));
    const auto mediana = [&](const std::string& nombre, double Medida::*dato) {
        std::vector<double> valores;
        for (const Medida& medida : medidas[nombre]) valores.push_back(medida.*dato);
        return Mediana(valores);
    };
    const double base = mediana(kManeras.begin()->first, &Medida::procesador);
    std::printf("%llu lines, %d rounds: microseconds of processor and of clock a line, ratio, MB\n",
                static_cast<unsigned long long>(lineas), rondas);
    for (const auto& [nombre, manera] : kManeras)
        std::printf("%-30s %8.2f %8.2f %6.2f %6.1f\n", nombre.c_str(), mediana(nombre, &Medida::procesador) * 1e6,
                    mediana(nombre, &Medida::reloj) * 1e6, mediana(nombre, &Medida::procesador) / base,
                    mediana(nombre, &Medida::megas));
}

void Tamanos() {
    std::printf("seconds of a whole list with one worker and with two, microseconds a line, MB\n");
    for (const std::uint64_t lineas : {10000U, 15000U, 1000000U})
        for (const std::size_t trabajadores : {1U, 2U}) {
            const Medida medida = Medir(Lista(trabajadores), lineas);
            std::printf("%8llu lines, %zu: %7.2f s %6.2f %6.1f\n", static_cast<unsigned long long>(lineas),
                        trabajadores, medida.reloj * static_cast<double>(lineas), medida.procesador * 1e6,
                        medida.megas);
        }
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    std::filesystem::remove(kv::bench::kRuta);
    kv::bench::CrearBaseGrande(kv::bench::kRuta, kv::bench::kArticulos);
    kv::bench::Comparar(argc > 1 ? std::atoi(argv[1]) : 5,
                        argc > 2 ? static_cast<std::uint64_t>(std::atoll(argv[2])) : 100000);
    kv::bench::Tamanos();
    for (const char* fichero : {kv::bench::kRuta, "bench-catalogo.csv", "bench-catalogo.xlsx"})
        std::filesystem::remove(fichero);
}
