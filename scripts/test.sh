#!/usr/bin/env bash
# Installs what is missing, builds with the sanitizers and runs every test.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh nativo odbc
construir dev
ctest --preset dev -j "$(nproc)"
