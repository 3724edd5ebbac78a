#!/usr/bin/env bash
# Loads, lists and movements by four processes that are killed at random and a fifth that is not, on one base: whatever
# was committed must be there at the end, and the fifth must not grow.
# Usage: scripts/resistencia.sh [MINUTES]   (default 10)
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh nativo bench odbc
cmake --preset release --log-level=WARNING >/dev/null
cmake --build --preset release -j "$(nproc)" --target kv_resistencia
trabajo=$(mktemp -d)
trap 'rm -rf "$trabajo"' EXIT
build/release/bench/kv_resistencia "$trabajo/tienda.kv" "${1:-10}"
