#pragma once

#include <httplib.h>

#include <chrono>
#include <optional>
#include <string_view>

// What a connection asks of the system, which calls it by other names on each.
namespace kv::host::red {

/// In place of a number of bytes: nothing has come, or fits, yet; the connection is broken.
inline constexpr ssize_t kTodaviaNo = -1;
inline constexpr ssize_t kRota = -2;

enum class Suceso { Leer, Escribir };

/// For a connection whose answers are one piece each: nothing is gained by waiting for more.
void Preparar(socket_t enchufe);
/// Waits until it can be read or written; false when it never will, nothing when `plazo` ends first.
std::optional<bool> Esperar(socket_t enchufe, Suceso suceso, std::chrono::milliseconds plazo);
/// Neither waits. How many bytes were moved; 0 when the other end writes no more.
ssize_t Recibir(socket_t enchufe, char* destino, std::size_t cuanto);
ssize_t Enviar(socket_t enchufe, std::string_view datos);
/// Tells the other end that nothing more comes.
void Acabar(socket_t enchufe);
void Cerrar(socket_t enchufe);

/// For a port that one server alone may have, and again as soon as it ended.
void SoloUnServidor(socket_t enchufe);

}  // namespace kv::host::red
