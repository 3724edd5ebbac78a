#!/usr/bin/env bash
# Compiles every header alone: each must include what it uses. Windows headers belong to the Windows build.
set -euo pipefail
cd "$1"
compilador=$2
errores=$(mktemp)
trap 'rm -f "$errores"' EXIT
mal=0
while read -r cabecera; do
    "$compilador" -std=c++20 -fsyntax-only -I. -x c++ "$cabecera" 2>"$errores" && continue
    echo "$cabecera no compila sola:"
    head -n 5 "$errores"
    mal=1
done < <(find . -name '*.h' -not -path './build/*' -not -path './tests/*' -not -path './bench/*' \
             -not -path './db/ado/*' -not -path './component/com/*' | sort)
exit "$mal"
