#!/usr/bin/env bash
# Installs what is missing, builds with the sanitizers and runs every test.
# Usage: scripts/test.sh [--windows | --todo]   --windows: with the COM server too: builds it and tests it under Wine, and
# the threads of lists under the thread sanitizer; --todo: that and the simulator's page in a browser, as CI does (CI=true)
# KV_ODBC_PRUEBAS='connection string' scripts/test.sh also runs the scenarios on that SQL Server database, which must be
# empty or one of an earlier run and is emptied, and compares every result with the embedded one. KV_SEMILLA=n repeats
# the random cases of a run.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

windows=${CI:-false} navegador=${CI:-false}
case "${1:-}" in
    --windows) windows=true ;;
    --todo) windows=true navegador=true ;;
    "") ;;
    *) echo "uso: scripts/test.sh [--windows | --todo]" >&2; exit 2 ;;
esac

# The examples are built with clang, too.
scripts/instalar.sh nativo odbc fuzz
construir dev
ctest --preset dev -j "$(nproc)"
if [ "$navegador" = true ]; then
    scripts/test-navegador.sh
else
    echo "La página del simulador no se ha probado: scripts/test.sh --todo"
fi
if [ "$windows" = true ]; then
    scripts/test-hilos.sh
    scripts/build-windows.sh
    scripts/test-windows.sh
else
    echo "El servidor COM no se ha probado: scripts/test.sh --windows"
fi
