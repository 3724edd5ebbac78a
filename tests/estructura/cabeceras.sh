#!/usr/bin/env bash
# Compiles every header alone: each must include what it uses. Windows headers belong to the Windows build.
set -euo pipefail
cd "$1"
export compilador=$2
incluir=$(mktemp -d)
trap 'rm -rf "$incluir"' EXIT
ln -s "$PWD" "$incluir/kvdatosart"
export incluir

sola() {
    local errores
    errores=$("$compilador" -std=c++20 -fsyntax-only -I"$incluir" -x c++ "$1" 2>&1) && return
    printf '%s no compila sola:\n%s\n' "$1" "$(head -n 5 <<<"$errores")"
    return 1
}
export -f sola

find . -name '*.h' -not -path './build/*' -not -path './tests/*' -not -path './bench/*' -not -path './db/ado/*' \
    -not -path './component/com/*' -print0 | xargs -0 -n 1 -P "$(nproc)" bash -c 'sola "$1"' _
