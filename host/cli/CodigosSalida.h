#pragma once

namespace kv::host {

// Exit codes of the program, as `--help` documents them.

inline constexpr int kHecho = 0;
/// The question has a negative answer: no such article, no price, a refused deletion, findings of a check.
inline constexpr int kNegativo = 1;
/// The command line cannot be understood or asks for something impossible.
inline constexpr int kUso = 2;
/// The database or a file fails.
inline constexpr int kBase = 3;

/// Thrown by a command that has said everything, when its code is not `kHecho`.
struct Termina {
    int codigo;
};

}  // namespace kv::host
