#pragma once

#include <string>
#include <vector>

#include "kvdatosart/application/Listas.h"

namespace kv::host {

// What a price list is asked with, read strictly. Each function names the request's field in its Rechazo, which is
// impossible.

aplicacion::CodigosPedidos LeerCodigos(const std::string& campo, const std::vector<std::string>& textos);
/// The first cell of each line of a text file as spreadsheets write it: UTF-8 with or without its mark, or
/// Windows-1252; any line ends; cells between semicolons, commas or tabs, quoted or not. A first line without a number
/// is a heading, empty lines are skipped. A file that cannot be read is a std::runtime_error.
aplicacion::CodigosPedidos LeerFicheroCodigos(const std::string& campo, const std::string& ruta);
OrdenLista LeerOrdenLista(const std::string& campo, const std::string& texto);
/// "2/8": the part, from 1, and how many.
void LeerParte(const std::string& campo, const std::string& texto, aplicacion::PeticionListaPrecios& peticion);

}  // namespace kv::host
