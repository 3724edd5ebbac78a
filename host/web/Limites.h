#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace kv::host {

// What the server bears, so that no client takes it from the others.

inline constexpr std::size_t kHilos = 32;
/// Of a request's head in all, of its address, and how many headers it may have.
inline constexpr std::size_t kMaximoCabecera = 16384;
inline constexpr std::size_t kMaximoObjetivo = 8000;
inline constexpr std::size_t kMaximoCabeceras = 64;
/// Requests that one connection may send.
inline constexpr std::size_t kMaximoPeticiones = 10000;

/// A client that has not sent a whole head by then, or takes nothing of an answer for so long, is let go.
inline constexpr std::chrono::milliseconds kPaciencia{5000};
/// The same when other clients wait for a thread.
inline constexpr std::chrono::milliseconds kPacienciaConCola{200};
/// An answer that has not been taken whole by then is broken off.
inline constexpr std::chrono::milliseconds kMaximoRespuesta{60000};
/// How long a question waits for a connection to the database.
inline constexpr std::chrono::milliseconds kMaximoEspera{10000};

/// Rows of a search: when nothing is said, and at most.
inline constexpr std::int32_t kHallados = 20;
inline constexpr std::int32_t kMaximoHallados = 200;
/// Lines of a page of a list, the same way, and of one that is a file.
inline constexpr std::int32_t kLineasPagina = 50;
inline constexpr std::int32_t kMaximoPagina = 200;
inline constexpr std::int32_t kMaximoDescarga = 100000;
/// A list that is not done by then is cut, one that is a file is refused.
inline constexpr std::chrono::seconds kMaximoPregunta{30};

}  // namespace kv::host
