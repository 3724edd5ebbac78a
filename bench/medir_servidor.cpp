// What the simulator's server adds to a question: a price with its explanation, asked over kept connections, against
// the same question asked and written as JSON in the same process, by turns.
//   kv_bench_servidor [SECONDS A ROUND]

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "kvdatosart/host/Documentos.h"
#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/web/Servidor.h"

namespace kv::bench {
namespace {

using Reloj = std::chrono::steady_clock;

constexpr int kRondas = 9;
constexpr std::int32_t kPrimero = 101, kArticulos = 20, kCliente = 11;
const Fecha kHoy = Fecha::DeAmd(2026, 11, 21);

double Procesador() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    const auto segundos = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
    };
    return segundos(uso.ru_utime) + segundos(uso.ru_stime);
}

/// What a round came to, a question.
struct Ronda {
    double segundos;
    double procesador;
};

// `obrar(go on, which)` answers how many questions it asked; each of the threads runs it.
template <class Obrar>
Ronda Medir(std::chrono::milliseconds duracion, int hilos, Obrar obrar) {
    std::atomic<bool> sigue = true;
    std::atomic<long> hechas = 0;
    const auto desde = Reloj::now();
    const double gastado = Procesador();
    {
        std::vector<std::jthread> obreros;
        for (int i = 0; i < hilos; ++i) obreros.emplace_back([&, i] { hechas += obrar(sigue, i); });
        std::this_thread::sleep_for(duracion);
        sigue = false;
    }
    const auto n = static_cast<double>(hechas);
    return {std::chrono::duration<double>(Reloj::now() - desde).count() / n, (Procesador() - gastado) / n};
}

std::size_t Directa(const aplicacion::Sesion& sesion, std::int32_t articulo) {
    aplicacion::PeticionCarga peticion;
    peticion.articulo = articulo;
    peticion.cliente = kCliente;
    peticion.explica = true;
    peticion.conCoste = false;
    host::Documento documento;
    Documentar(documento, Cargar(sesion, peticion));
    return AJson(documento).size();
}

/// A connection that is kept.
class Cliente {
  public:
    explicit Cliente(int puerto) : puerto_(std::to_string(puerto)), enchufe_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in destino{};
        destino.sin_family = AF_INET;
        destino.sin_port = htons(static_cast<std::uint16_t>(puerto));
        destino.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (connect(enchufe_, reinterpret_cast<sockaddr*>(&destino), sizeof destino) != 0)
            throw std::runtime_error("sin conexión");
        const int si = 1;
        setsockopt(enchufe_, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
    }
    ~Cliente() { close(enchufe_); }
    Cliente(const Cliente&) = delete;
    Cliente& operator=(const Cliente&) = delete;

    // Bytes of the answer's document.
    std::size_t Pedir(std::int32_t articulo) {
        const std::string peticion = "GET /api/cargar?articulo=" + std::to_string(articulo) +
                                     "&cliente=" + std::to_string(kCliente) +
                                     " HTTP/1.1\r\nHost: 127.0.0.1:" + puerto_ + "\r\n\r\n";
        if (send(enchufe_, peticion.data(), peticion.size(), MSG_NOSIGNAL) < 0) throw std::runtime_error("sin envío");
        std::string texto;
        for (char trozo[16384];;) {
            const ssize_t llegado = recv(enchufe_, trozo, sizeof trozo, 0);
            if (llegado <= 0) throw std::runtime_error("respuesta cortada");
            texto.append(trozo, static_cast<std::size_t>(llegado));
            const auto cuerpo = texto.find("\r\n\r\n");
            if (cuerpo == std::string::npos) continue;
            const auto largo = std::strtoul(texto.c_str() + texto.find("Content-Length: ") + 16, nullptr, 10);
            if (!texto.starts_with("HTTP/1.1 200")) throw std::runtime_error(texto);
            if (texto.size() == cuerpo + 4 + largo) return largo;
        }
    }

  private:
    std::string puerto_;
    int enchufe_;
};

double Mediana(std::vector<double> valores) {
    std::nth_element(valores.begin(), valores.begin() + valores.size() / 2, valores.end());
    return valores[valores.size() / 2];
}

void Comparar(std::chrono::milliseconds duracion) {
    const aplicacion::OrigenBase base{"servidor.kv", "", {}};
    std::filesystem::remove(base.fichero);
    CrearDemo(base, kHoy);
    host::Api api({.base = base, .hoy = kHoy, .avisar = [](const std::string& texto) { std::puts(texto.c_str()); }});
    host::Servidor servidor(api, 0, {});
    std::jthread escucha([&] { servidor.Escuchar(); });
    const auto conexion = AbrirBase(base, aplicacion::Acceso::Leer);
    const aplicacion::Sesion sesion(conexion, aplicacion::LeerEmpresa(*conexion, 1), kHoy);
    if (Directa(sesion, kPrimero) != Cliente(servidor.Puerto()).Pedir(kPrimero)) throw std::runtime_error("otro texto");

    const auto directa = [&](const std::atomic<bool>& sigue, int) {
        long n = 0;
        for (; sigue; ++n) Directa(sesion, kPrimero + static_cast<std::int32_t>(n % kArticulos));
        return n;
    };
    const auto servida = [&](const std::atomic<bool>& sigue, int) {
        long n = 0;
        Cliente cliente(servidor.Puerto());
        for (; sigue && n < 9000; ++n) cliente.Pedir(kPrimero + static_cast<std::int32_t>(n % kArticulos));
        return n;
    };
    std::vector<double> ritmo, gasto, procesador, micros[3];
    for (int ronda = 0; ronda < kRondas; ++ronda) {
        const Ronda sola = Medir(duracion, 1, directa);
        const Ronda uno = Medir(duracion, 1, servida);
        const Ronda dos = Medir(duracion, 2, servida);
        ritmo.push_back(sola.segundos / std::min(uno.segundos, dos.segundos));
        // Server and client together, which the other one does without.
        gasto.push_back(sola.procesador / uno.procesador);
        procesador.push_back(dos.procesador / uno.procesador);
        for (std::size_t i = 0; const Ronda& r : {sola, uno, dos}) micros[i++].push_back(1e6 * r.procesador);
    }
    servidor.Parar();
    std::printf("microsegundos de procesador: %.0f en el proceso, %.0f con un cliente, %.0f con dos\n",
                Mediana(micros[0]), Mediana(micros[1]), Mediana(micros[2]));
    std::printf("ritmo contra el proceso: %.2f por el reloj, %.2f por el procesador; dos clientes contra uno: %.2f\n",
                Mediana(ritmo), Mediana(gasto), Mediana(procesador));
}

}  // namespace
}  // namespace kv::bench

int main(int argc, char** argv) {
    kv::bench::Comparar(std::chrono::milliseconds(argc > 1 ? static_cast<int>(1000 * std::atof(argv[1])) : 400));
    return 0;
}
