#!/usr/bin/env bash
# Builds the tests of lists with the thread sanitizer and runs them: lists with several workers, and single questions
# beside them.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

cmake --preset hilos >/dev/null
cmake --build --preset hilos -j "$(nproc)" --target kv_prueba_catalog
build/hilos/tests/catalog/kv_prueba_catalog --gtest_filter='Lista.*'
