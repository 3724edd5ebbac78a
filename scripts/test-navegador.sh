#!/usr/bin/env bash
# Tests the simulator's page in a real browser, against the program of the dev preset, which it builds when need be.
# Usage: scripts/test-navegador.sh [docs]   docs: no tests, takes the pictures of the manual anew (docs/simulador-*.png)
# KV_SEMILLA=n repeats the random questions of a run; KV_PROGRAMA=FILE takes a program that is built already.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

case "${1:-}" in
    docs) carpeta=(docs) ;;
    "") carpeta=() ;;
    *) echo "uso: scripts/test-navegador.sh [docs]" >&2; exit 2 ;;
esac

scripts/instalar.sh navegador
if [ -z "${KV_PROGRAMA:-}" ]; then
    scripts/instalar.sh nativo odbc
    cmake --preset dev --log-level=WARNING >/dev/null
    cmake --build --preset dev -j "$(nproc)" --target kvdatosart
    KV_PROGRAMA=build/dev/host/kvdatosart
fi
LANGUAGE=es LC_ALL=es_ES.UTF-8 /usr/bin/python3 tests/web/navegador.py "$(realpath "$KV_PROGRAMA")" "${carpeta[@]}"
