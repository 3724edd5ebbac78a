// Hours of a shop in minutes: four processes load, list and post movements on one base and are killed at random; a
// fifth is never killed, and neither its memory nor its descriptors may grow. At the end every movement that was
// committed must be there. Usage: kv_resistencia NEW_BASE MINUTES
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/catalog/Lista.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/EmpresaTabla.h"
#include "kvdatosart/db/Transaccion.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"
#include "kvdatosart/schema/Demostracion.h"
#include "kvdatosart/schema/Esquema.h"
#include "kvdatosart/stock/clsAlmacen_Articulo.h"

namespace {

using Reloj = std::chrono::steady_clock;
using kv::ConexionSqlite;
using kv::Fecha;

constexpr kv::IdentidadBase kIdentidad{kv::kAplicacionEsquema, kv::kVersionEsquema};
constexpr std::int32_t kArticulo = 113;
constexpr std::int16_t kAlmacen = 1;
constexpr std::size_t kProcesos = 5;
// The last one is never killed.
constexpr std::size_t kConstante = kProcesos - 1;
// SQLite's number for a lock that another holds.
constexpr std::int32_t kOcupada = 5;

/// What each process tells the others, in memory that they share: it outlives who is killed.
struct Cuenta {
    std::atomic<std::uint64_t> empezados;
    std::atomic<std::uint64_t> confirmados;
    std::atomic<std::uint64_t> cargas;
    std::atomic<std::uint64_t> lineas;
    std::atomic<std::uint64_t> ocupadas;
};

/// Memory in use (kB) and open descriptors of this process.
struct Medida {
    long memoria = 0;
    long descriptores = 0;
};

Medida Medir() {
    Medida medida;
    std::ifstream estado("/proc/self/status");
    for (std::string linea; std::getline(estado, linea);)
        if (linea.starts_with("VmRSS:")) medida.memoria = std::strtol(linea.c_str() + 6, nullptr, 10);
    const std::filesystem::directory_iterator abiertos("/proc/self/fd");
    medida.descriptores = std::distance(begin(abiertos), end(abiertos));
    return medida;
}

bool CreceDemasiado(long antes, long despues) {
    return (despues - antes) * 100 >= antes * 2;
}

std::shared_ptr<ConexionSqlite> Abrir(const std::string& ruta) {
    return ConexionSqlite::Abrir(ruta, kIdentidad, ConexionSqlite::Modo::LecturaEscritura);
}

/// Counts the lines and asks nothing else of them.
class DestinoCuenta : public kv::DestinoLista {
  public:
    explicit DestinoCuenta(Cuenta& cuenta) : cuenta_(cuenta) {}
    void Linea(const kv::LineaLista&) override { ++cuenta_.lineas; }
    void Progreso(std::uint64_t, std::uint64_t) override {}

  private:
    Cuenta& cuenta_;
};

void Cargar(const std::shared_ptr<ConexionSqlite>& conexion, std::mt19937& azar, Fecha hoy, Cuenta& cuenta) {
    kv::clsDatosArt articulo;
    articulo.Conexion(conexion);
    articulo.cEmpresa(kv::EmpresaTabla::Leer(*conexion, 1));
    articulo.Cargar(100 + static_cast<std::int32_t>(azar() % 30), 10 + static_cast<std::int32_t>(azar() % 8), hoy, 1,
                    kAlmacen, 2);
    ++cuenta.cargas;
}

void Listar(const std::string& ruta, Fecha hoy, Cuenta& cuenta) {
    std::vector<kv::Puesto> puestos;
    for (auto& conexion : ConexionSqlite::AbrirMismoEstado(ruta, kIdentidad, 2)) {
        auto empresa = kv::EmpresaTabla::Leer(*conexion, 1);
        puestos.push_back({std::move(conexion), std::move(empresa)});
    }
    kv::PeticionLista peticion;
    peticion.clientes.codigos = {11, 12};
    peticion.terminos.fecha = peticion.hoy = hoy;
    peticion.terminos.tarifa = 1;
    DestinoCuenta destino(cuenta);
    kv::HacerLista(puestos, peticion, destino);
}

void Mover(const std::shared_ptr<ConexionSqlite>& conexion, Fecha hoy, Cuenta& cuenta) {
    kv::clsAlmacen_Articulo almacen;
    almacen.Conexion(conexion);
    almacen.cEmpresa(kv::EmpresaTabla::Leer(*conexion, 1));
    double ultimo = 0, medio = 0, existencias = 0;
    ++cuenta.empezados;
    try {
        kv::Transaccion transaccion(*conexion);
        almacen.Act_Stock(kAlmacen, kArticulo, 1, 0, 9.5, 3, hoy, ultimo, medio, existencias, true);
        transaccion.Confirmar();
        ++cuenta.confirmados;
    } catch (...) {
        --cuenta.empezados;
        throw;
    }
}

/// Works until it is killed or `fin` has come.
void Trabajar(const std::string& ruta, Cuenta& cuenta, unsigned semilla, Reloj::time_point fin) {
    std::mt19937 azar(semilla);
    const Fecha hoy = Fecha::DeAmd(2026, 11, 21);
    auto conexion = Abrir(ruta);
    while (Reloj::now() < fin) {
        try {
            const auto que = azar() % 100;
            if (que < 2)
                Listar(ruta, hoy, cuenta);
            else if (que < 4)
                conexion = Abrir(ruta);
            else if (que < 40)
                Mover(conexion, hoy, cuenta);
            else
                Cargar(conexion, azar, hoy, cuenta);
        } catch (const kv::RuntimeError& error) {
            if ((error.numero & 0xFF) != kOcupada) throw;
            ++cuenta.ocupadas;
        }
    }
}

/// The process that is never killed: the same work, measured after a while and at the end.
int TrabajarConstante(const std::string& ruta, Cuenta& cuenta, std::chrono::seconds total) {
    const auto inicio = Reloj::now();
    Trabajar(ruta, cuenta, 5, inicio + std::min<std::chrono::seconds>(std::chrono::minutes(2), total / 2));
    const Medida antes = Medir();
    Trabajar(ruta, cuenta, 6, inicio + total);
    const Medida despues = Medir();
    std::printf("memoria %ld kB y luego %ld kB; descriptores %ld y luego %ld\n", antes.memoria, despues.memoria,
                antes.descriptores, despues.descriptores);
    std::fflush(stdout);
    return CreceDemasiado(antes.memoria, despues.memoria) || CreceDemasiado(antes.descriptores, despues.descriptores)
               ? 1
               : 0;
}

pid_t Lanzar(const std::function<int()>& obra) {
    const pid_t hijo = fork();
    if (hijo != 0) return hijo;
    int codigo = 3;
    try {
        codigo = obra();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(codigo);
}

double Existencias(const std::string& ruta) {
    const auto conexion = Abrir(ruta);
    const auto filas = conexion->CrearRecordset();
    filas->Open(
        "SELECT Stock_Actual FROM Almacen_Articulos WHERE Cod_Empresa =1 AND Cod_Almacen =1 AND Cod_Articulo =" +
            std::to_string(kArticulo),
        *conexion, kv::CursorType::adOpenForwardOnly, kv::LockType::adLockReadOnly, kv::CommandType::adCmdText);
    return kv::ADouble(filas->Fields("Stock_Actual").Value());
}

/// Kills the four in turn until the fifth ends. How many were killed; -1 when one failed by itself.
int Matar(const std::string& ruta, Cuenta* cuentas, std::array<pid_t, kProcesos>& hijos, Reloj::time_point fin) {
    std::mt19937 azar(7);
    int muertos = 0;
    while (Reloj::now() < fin) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50 + azar() % 1500));
        if (Reloj::now() >= fin) break;
        const std::size_t quien = azar() % kConstante;
        kill(hijos[quien], SIGKILL);
        int estado = 0;
        waitpid(hijos[quien], &estado, 0);
        if (!WIFSIGNALED(estado)) return -1;
        ++muertos;
        const auto semilla = static_cast<unsigned>(azar());
        hijos[quien] = Lanzar([&] { return Trabajar(ruta, cuentas[quien], semilla, fin), 0; });
    }
    return muertos;
}

}  // namespace

int main(int argc, char** argv) {
    const int minutos = argc == 3 ? std::atoi(argv[2]) : 0;
    if (minutos < 1) {
        std::fprintf(stderr, "uso: kv_resistencia BASE_NUEVA MINUTOS\n");
        return 2;
    }
    const std::string ruta = argv[1];
    ConexionSqlite::Crear(ruta, kIdentidad, kv::EsquemaSqlite(), [](kv::Connection& conexion) {
        kv::CargarDemostracion(conexion, Fecha::DeAmd(2026, 11, 21));
    });
    const double antes = Existencias(ruta);
    auto* cuentas = static_cast<Cuenta*>(
        mmap(nullptr, sizeof(Cuenta) * kProcesos, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (cuentas == MAP_FAILED) return 3;
    const std::chrono::seconds total = std::chrono::minutes(minutos);
    const auto fin = Reloj::now() + total;
    std::array<pid_t, kProcesos> hijos{};
    for (std::size_t i = 0; i < kConstante; ++i)
        hijos[i] = Lanzar([&] { return Trabajar(ruta, cuentas[i], static_cast<unsigned>(i), fin), 0; });
    hijos[kConstante] = Lanzar([&] { return TrabajarConstante(ruta, cuentas[kConstante], total); });
    const int muertos = Matar(ruta, cuentas, hijos, fin);
    bool bien = muertos >= 0;
    for (const pid_t hijo : hijos) {
        int estado = 0;
        waitpid(hijo, &estado, 0);
        bien = bien && WIFEXITED(estado) && WEXITSTATUS(estado) == 0;
    }
    std::uint64_t empezados = 0, confirmados = 0, cargas = 0, lineas = 0, ocupadas = 0;
    for (std::size_t i = 0; i < kProcesos; ++i) {
        empezados += cuentas[i].empezados;
        confirmados += cuentas[i].confirmados;
        cargas += cuentas[i].cargas;
        lineas += cuentas[i].lineas;
        ocupadas += cuentas[i].ocupadas;
    }
    const auto hallados = static_cast<std::uint64_t>(Existencias(ruta) - antes);
    std::printf(
        "%llu cargas, %llu líneas de listas, %llu movimientos confirmados, %llu hallados, %d muertes, "
        "%llu esperas agotadas\n",
        static_cast<unsigned long long>(cargas), static_cast<unsigned long long>(lineas),
        static_cast<unsigned long long>(confirmados), static_cast<unsigned long long>(hallados), muertos,
        static_cast<unsigned long long>(ocupadas));
    // One that was killed may have committed without saying so.
    bien = bien && hallados >= confirmados && hallados <= empezados;
    std::puts(bien ? "todo está" : "NO ESTÁ TODO, O ALGO CRECE");
    return bien ? 0 : 1;
}
