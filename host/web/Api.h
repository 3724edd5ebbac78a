#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "kvdatosart/application/Bases.h"
#include "kvdatosart/base/Fecha.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/host/web/Reserva.h"

namespace kv::host {

/// What whoever starts the server decides for all questions.
struct AjustesApi {
    aplicacion::OrigenBase base;
    /// The company of a question that names none.
    std::int16_t empresa = 1;
    /// The day that is taken for today; the system's, asked for each question, when there is none.
    std::optional<Fecha> hoy;
    /// Whoever asks may see costs.
    bool conCoste = false;
    /// Hears, in one line, of each failure of the database; may be called from several threads.
    std::function<void(const std::string&)> avisar;
};

/// What is answered to an address, whole.
struct Contestacion {
    int estado = 200;
    std::string tipo = "application/json; charset=utf-8";
    std::string cuerpo;
    /// What was cut off ("lineas", "tiempo"); empty when nothing was.
    std::string limite;
    /// The name of the file that it is to become; empty when it is shown.
    std::string fichero;
};

/// A failure as every address tells it; the exit code of the program goes with its status.
Contestacion Negar(int estado, const std::string& mensaje, const std::string& campo = {});

/// Answers the addresses below /api/, each with a connection of its own and on one state of the database. Several
/// threads may ask at once.
class Api {
  public:
    /// Rechazo when there is no such company, the adapter's error when the database cannot be read.
    explicit Api(AjustesApi ajustes);

    /// `ruta` is "/api/cargar", `consulta` what follows the question mark. Lets no failure out.
    Contestacion Contestar(const std::string& ruta, const std::string& consulta);
    /// What is long ends soon.
    void Cerrar() { cerrada_ = true; }

  private:
    Contestacion Preguntar(const std::string& ruta, const std::string& consulta);
    Contestacion Fallida(const RuntimeError& error) const;

    AjustesApi ajustes_;
    Reserva reserva_;
    std::atomic<bool> cerrada_ = false;
};

}  // namespace kv::host
