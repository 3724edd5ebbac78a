#!/usr/bin/env bash
# Installs the cross compiler when it is missing and builds kvdatosart.exe, and KVDatosArt.dll for 64 and 32 bits with its
# test programs.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

# construir_para PRESET TARGET...
construir_para() {
    cmake --preset "$1" --log-level=WARNING >/dev/null
    cmake --build --preset "$1" -j "$(nproc)" --target "${@:2}"
}

scripts/instalar.sh nativo windows
scripts/bibliotecas-windows.sh
construir_para mingw-programa kvdatosart
for bits in x86_64 i686; do construir_para "mingw-$bits" KVDatosArt kv_pruebas_com; done
