#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "kvdatosart/db/Connection.h"
#include "kvdatosart/tests/servidor/ProtocoloTds.h"

namespace kv::prueba {

/// A server on a port of this machine that speaks TDS 7.4, with an embedded database without rows behind it: it proves
/// driver and adapter over the wire where no T-SQL server is at hand. One client at a time. A request that the
/// component has no reason to send ends the conversation; Queja says why.
class ServidorTds {
  public:
    /// How it reads dates: as SET DATEFORMAT says; as month/day/year whatever that says, until the database below it is
    /// told; or always so, where the days allow it.
    enum class Fechas { Obedece, PorDebajo, SiempreMesDia };

    explicit ServidorTds(std::shared_ptr<Connection> base, Fechas fechas = Fechas::Obedece);
    ~ServidorTds();
    ServidorTds(const ServidorTds&) = delete;
    ServidorTds& operator=(const ServidorTds&) = delete;

    /// What connects a driver of this name with it.
    std::string Cadena(const std::string& controlador) const;
    /// What went against the protocol; empty when nothing did. To be read once the client has left.
    const std::string& Queja() const { return queja_; }

  private:
    using Filas = std::vector<std::vector<Valor>>;

    void Atender();
    MensajeTds Contestar(unsigned clase, std::string_view peticion);
    MensajeTds Ejecutar(const std::string& texto);
    MensajeTds ProbarFechas(const std::string& texto);
    TipoTds TipoDeColumna(const std::string& texto, const std::string& columna, std::size_t posicion,
                          const Filas& filas) const;
    MensajeTds Tabla(const std::string& texto, const std::vector<std::string>& columnas, const Filas& filas) const;
    MensajeTds Llamar(LecturaTds& lectura);
    MensajeTds CambiarTransaccion(LecturaTds& lectura);
    /// The transaction that begins, or ends with the number of a request, after what the driver is told already.
    MensajeTds Empezar(MensajeTds mensaje);
    MensajeTds Terminar(unsigned peticion);

    std::shared_ptr<Connection> base_;
    const std::map<std::string, ObjetoTds> objetos_ = ObjetosDelEsquema();
    Fechas fechas_;
    bool enTransaccion_ = false;
    std::string queja_;
    int puerto_ = 0;
    int escucha_ = -1;
    std::thread hilo_;
};

}  // namespace kv::prueba
