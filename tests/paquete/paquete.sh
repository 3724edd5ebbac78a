#!/usr/bin/env bash
# Installs the libraries in a folder of its own and builds a host against them.
# Usage: paquete.sh BUILD_FOLDER FLAGS COMPILER
set -euo pipefail
aqui=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
trabajo=$(mktemp -d)
trap 'rm -rf "$trabajo"' EXIT
cmake --install "$1" --prefix "$trabajo/instalado" >/dev/null
cmake -S "$aqui" -B "$trabajo/usa" -G Ninja -DCMAKE_CXX_COMPILER="$3" -DCMAKE_PREFIX_PATH="$trabajo/instalado" \
    -DCMAKE_CXX_FLAGS="$2" >/dev/null
cmake --build "$trabajo/usa" >/dev/null
salida=$("$trabajo/usa/usa" "$trabajo/tienda.kv")
[ "$salida" = "0 Detergente industrial 10 l 15.51" ] || { echo "devuelve: $salida"; exit 1; }
[ -x "$trabajo/instalado/bin/kvdatosart" ]
