#include "kvdatosart/db/BibliotecaConsola.h"

#include <iostream>

namespace kv {

void BibliotecaConsola::MensajeCritico(std::string_view texto, std::string_view titulo) {
    std::cerr << titulo << ' ' << texto << std::endl;
}

}  // namespace kv
