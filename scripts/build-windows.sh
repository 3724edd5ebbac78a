#!/usr/bin/env bash
# Installs the cross compiler when it is missing and builds KVDatosArt.dll for 64 and 32 bits with its test programs.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh windows
for preset in mingw-x86_64 mingw-i686; do
    cmake --preset "$preset" --log-level=WARNING >/dev/null
    cmake --build --preset "$preset" -j "$(nproc)" --target KVDatosArt kv_pruebas_com
done
