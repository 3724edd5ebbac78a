#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kv::host {

// Texts as a terminal shows them. A column is the place of a Latin letter; what is drawn as one sign (a letter with its
// accents, a family of emoji) is never parted.

/// What can be shown of a text from anywhere: each control character (an escape sequence could repaint the screen) is a
/// blank, each byte that is no UTF-8 a replacement sign.
std::string Mostrable(std::string_view texto);
/// Columns that a text takes: none for a combining accent, two for a Chinese character or an emoji.
std::size_t Anchura(std::string_view texto);
/// The text in lines of at most `ancho` columns, parted at blanks, or inside a word that is wider. At least one line.
/// A sign wider than `ancho` has a line of its own.
std::vector<std::string> EnLineas(std::string_view texto, std::size_t ancho);
/// Blanks after a text up to `ancho` columns.
std::string Completado(std::string_view texto, std::size_t ancho);

}  // namespace kv::host
