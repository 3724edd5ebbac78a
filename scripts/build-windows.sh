#!/usr/bin/env bash
# Installs the cross compiler when it is missing and builds KVDatosArt.dll for 64 bits with its test program.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh windows
construir mingw-x86_64
