#!/usr/bin/env bash
# Installs the libraries in a folder of its own, builds the examples against them with two compilers, runs them.
# Usage: paquete.sh BUILD_FOLDER FLAGS COMPILER
set -euo pipefail
ejemplos=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../examples/nativo")
trabajo=$(mktemp -d)
trap 'rm -rf "$trabajo"' EXIT
cmake --install "$1" --prefix "$trabajo/instalado" >/dev/null
cd "$trabajo"
falla() {
    echo "FALLA: $*"
    exit 1
}

instalado/bin/kvdatosart crear-demo tienda.kv >/dev/null
for compilador in "$3" clang++; do
    hecho=con-${compilador##*/}
    # Where ODBC is missing nobody asks for it.
    cmake -S "$ejemplos" -B "$hecho" -G Ninja -DCMAKE_CXX_COMPILER="$compilador" -DCMAKE_CXX_FLAGS="$2 -Wall -Wextra -Werror" \
        -DCMAKE_PREFIX_PATH="$trabajo/instalado" -DCMAKE_DISABLE_FIND_PACKAGE_ODBC=ON \
        --no-warn-unused-cli >/dev/null
    cmake --build "$hecho" >/dev/null
    salida=$("$hecho/linea" tienda.kv 113 11)
    [ "$salida" = 'Detergente industrial 10 l: 15.51 menos 0 %' ] || falla "linea: $salida"
    "$hecho/linea" tienda.kv 9999 11 2>/dev/null && falla 'linea de un artículo que no hay'
    "$hecho/lista" tienda.kv 11 >lista.csv 2>progreso.txt || falla "lista: $(cat progreso.txt)"
    grep -qx '113;"Detergente industrial 10 l";15.51' lista.csv || falla "lista: $(cat lista.csv)"
    tr '\r' '\n' <progreso.txt | grep -qxE '([0-9]+) de \1 líneas' || falla "progreso: $(cat progreso.txt)"
done

# What is missing is told by its name, and so is a compiler that is too old.
encontrar() {
    mkdir -p quien
    echo "cmake_minimum_required(VERSION 3.20)
project(Quien LANGUAGES CXX)
find_package(KVDatosArt 1.0 REQUIRED COMPONENTS $1)" >quien/CMakeLists.txt
    rm -rf quien/build
    ! cmake -S quien -B quien/build -DCMAKE_PREFIX_PATH="$trabajo/instalado" -DCMAKE_DISABLE_FIND_PACKAGE_ODBC=ON 2>&1 | tr -s '\n ' ' '
}
[[ "$(encontrar odbc)" == *'Component odbc needs ODBC, which is not installed'* ]] || falla 'odbc sin ODBC'
[[ "$(encontrar nada)" == *'There is no component nada'* ]] || falla 'una parte que no hay'
viejo=$("$3" -std=c++17 -fsyntax-only -Iinstalado/include "$ejemplos/linea.cpp" 2>&1) && falla 'C++17 vale'
[[ "$(grep -m 1 error: <<<"$viejo")" == *'KVDatosArt necesita C++20'* ]] || falla "C++17 dice: $viejo"
