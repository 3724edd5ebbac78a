#pragma once

#include <cstddef>
#include <string>

namespace kv::host {

/// The program's end of its outputs. While it lives, what is written goes out as it is, byte by byte and in UTF-8, and
/// a reader that goes away ends neither the program nor what it is about to commit. A console is left as it was found,
/// also by Ctrl-C. One for each program, before its first output.
class Terminal {
  public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
};

/// Whether standard output, or standard error, is read on a terminal.
bool SalidaEnTerminal();
bool ErroresEnTerminal();
/// Columns of the terminal at standard output; 0 when it does not say.
std::size_t ColumnasTerminal();
/// Whether that terminal knows colours.
bool TerminalConColores();

/// Whether a write that failed with this errno had nobody left to read it.
bool SeFueElLector(int error);

/// A variable of the user's environment in UTF-8; empty when there is none.
std::string DelEntorno(const char* nombre);

#ifdef _WIN32
/// UTF-8 of a text of Windows.
std::string AUtf8(const wchar_t* ancho);
#endif

}  // namespace kv::host
