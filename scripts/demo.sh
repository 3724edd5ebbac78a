#!/usr/bin/env bash
# Installs what is missing, builds the host, makes a demonstration database and prices a few lines with it.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh nativo
echo "Construyendo (build/demo)..."
mkdir -p build
{ cmake --preset release -B build/demo -DKV_BENCH=OFF && cmake --build build/demo -j "$(nproc)" --target kvdatosart; } \
    >build/demo.log 2>&1 || { cat build/demo.log; exit 1; }

base=build/demo.kv
rm -f "$base"
kvdatosart() {
    echo
    echo "\$ kvdatosart $*"
    build/demo/host/kvdatosart "$@"
}

kvdatosart crear-demo "$base"
kvdatosart devpvp --base "$base" --articulo 101 --tarifa 1 --traza
kvdatosart cargar --base "$base" --articulo 113 --cliente 11 --explica
echo
echo "El programa queda en build/demo/host/kvdatosart y la base en $base; kvdatosart --help cuenta el resto."
echo "El simulador de precios se abre en el navegador con:"
echo "  build/demo/host/kvdatosart servir --base $base --abrir"
