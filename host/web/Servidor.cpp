#include "kvdatosart/host/web/Servidor.h"

#include <stdexcept>

#include "kvdatosart/host/web/Limites.h"
#include "kvdatosart/host/web/Pagina.h"

namespace kv::host {
namespace {

using std::chrono::milliseconds;

// No script, style, picture or frame from elsewhere, nothing kept, nothing told to other sites.
const httplib::Headers& CabecerasFijas() {
    static const httplib::Headers cabeceras = {
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; connect-src 'self'; "
         "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
        {"X-Content-Type-Options", "nosniff"},
        {"Referrer-Policy", "no-referrer"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Cache-Control", "no-store"}};
    return cabeceras;
}

std::string TipoDe(const std::string& ruta) {
    if (ruta.ends_with(".css")) return "text/css; charset=utf-8";
    if (ruta.ends_with(".js")) return "text/javascript; charset=utf-8";
    return "text/html; charset=utf-8";
}

/// The threads of the library's pool, which know whether others wait for one of them.
class Hilos : public httplib::TaskQueue {
  public:
    explicit Hilos(std::atomic<int>& cola) : cola_(cola), hilos_(kHilos) {}

    void enqueue(std::function<void()> tarea) override {
        ++cola_;
        hilos_.enqueue([this, tarea = std::move(tarea)] {
            --cola_;
            tarea();
        });
    }
    void shutdown() override { hilos_.shutdown(); }

  private:
    std::atomic<int>& cola_;
    httplib::ThreadPool hilos_;
};

// Written without the library, which has not seen the request.
std::string Rechazada(const Visto& visto) {
    const std::string cuerpo = Negar(visto.estado, visto.motivo).cuerpo;
    std::string texto = "HTTP/1.1 " + std::to_string(visto.estado) + " Rechazada\r\n";
    for (const auto& [nombre, valor] : CabecerasFijas()) texto += nombre + ": " + valor + "\r\n";
    if (visto.estado == 405) texto += "Allow: GET\r\n";
    return texto + "Content-Type: application/json; charset=utf-8\r\nConnection: close\r\nContent-Length: " +
           std::to_string(cuerpo.size()) + "\r\n\r\n" + cuerpo;
}

Visto NoLlegada(Enchufe::Lectura lectura) {
    if (lectura == Enchufe::Lectura::Lenta) return {408, "la petición no ha llegado a tiempo"};
    if (lectura == Enchufe::Lectura::Larga) return {431, "las cabeceras de la petición son demasiado largas"};
    return {400, "la petición está mal escrita: se corta antes de acabar"};
}

int Tomar(httplib::Server& servidor, int puerto) {
    servidor.set_socket_options(red::SoloUnServidor);
    if (puerto == 0) return servidor.bind_to_any_port("127.0.0.1");
    if (servidor.bind_to_port("127.0.0.1", puerto)) return puerto;
    throw std::runtime_error("no se puede escuchar en el puerto " + std::to_string(puerto) +
                             ": lo usa otro programa o no está permitido; {puerto} 0 toma uno libre");
}

}  // namespace

Servidor::Servidor(Api& api, int puerto, std::vector<std::string> permitidos)
    : api_(api), puerto_(Tomar(*this, puerto)), portero_(puerto_, std::move(permitidos)) {
    // The library lets five clients wait to be accepted; the next ones would try again a second later.
    ::listen(svr_sock_, SOMAXCONN);
    set_default_headers(CabecerasFijas());
    set_keep_alive_max_count(kMaximoPeticiones);
    set_pre_routing_handler([this](const httplib::Request& peticion, httplib::Response& respuesta) {
        Responder(peticion, respuesta);
        return HandlerResponse::Handled;
    });
    new_task_queue = [this] { return new Hilos(cola_); };
}

void Servidor::Escuchar() {
    if (!parada_) listen_after_bind();
}

void Servidor::Parar() {
    parada_ = true;
    api_.Cerrar();
    stop();
}

bool Servidor::process_and_close_socket(socket_t enchufe) {
    Enchufe cliente(enchufe, [this] {
        if (parada_) return milliseconds(0);
        return cola_ > 0 ? kPacienciaConCola : kPaciencia;
    });
    std::size_t quedan = kMaximoPeticiones;
    while (Atender(cliente, --quedan == 0)) {
    }
    return true;
}

// One request; false when it was the last of its connection.
bool Servidor::Atender(Enchufe& cliente, bool ultima) {
    const Enchufe::Lectura lectura = cliente.LeerCabecera();
    if (lectura == Enchufe::Lectura::Fin) return false;
    const Visto visto = lectura == Enchufe::Lectura::Hecha ? portero_.Mirar(cliente.Cabecera()) : NoLlegada(lectura);
    if (visto.estado != 200) {
        cliente.Entregar({});
        cliente.httplib::Stream::write(Rechazada(visto));
        cliente.Vaciar();
        return false;
    }
    const bool cierra = ultima || visto.cierra || parada_;
    // Nothing but what was checked.
    cliente.Entregar("GET " + visto.objetivo + " HTTP/1.1\r\n\r\n");
    bool cerrada = false;
    return process_request(cliente, cierra, cerrada, nullptr) && cliente.Vaciar() && !cierra;
}

void Servidor::Responder(const httplib::Request& peticion, httplib::Response& respuesta) {
    const std::string& objetivo = peticion.target;
    const auto corte = std::min(objetivo.find('?'), objetivo.size());
    const std::string ruta = objetivo.substr(0, corte);
    respuesta.status = 200;
    if (const std::string* fichero = FicheroDePagina(ruta == "/" ? "/index.html" : ruta))
        return respuesta.set_content(*fichero, TipoDe(ruta));
    const Contestacion dicha = api_.Contestar(ruta, objetivo.substr(std::min(corte + 1, objetivo.size())));
    respuesta.status = dicha.estado;
    respuesta.set_content(dicha.cuerpo, dicha.tipo);
    if (!dicha.limite.empty()) respuesta.set_header("KV-Limite", dicha.limite);
    if (!dicha.fichero.empty())
        respuesta.set_header("Content-Disposition", "attachment; filename=\"" + dicha.fichero + "\"");
}

}  // namespace kv::host
