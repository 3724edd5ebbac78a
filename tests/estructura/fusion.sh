#!/usr/bin/env bash
# The average cost keeps its product and its sum apart on a processor that can fuse them: compiled for one, as this build
# compiles it, it must not hold such an instruction; with what forbids them taken back it does, or nothing would be shown.
# fusion.sh BUILD
set -euo pipefail
cd "$1"
case "$(uname -m)" in
    x86_64) procesador=(-march=x86-64-v3) fundida='vfn?m(add|sub)' ;;
    aarch64) procesador=() fundida='fn?m(add|sub)' ;;
    *) echo "no se sabe qué instrucciones funden aquí"; exit 77 ;;
esac
orden=$(sed -n 's/^ *"command": "\(.*\) -o [^ ]* -c \(.*stock\/clsAlmacen_Articulo\.cpp\)",$/\1 \2/p' \
    compile_commands.json)
[ -n "$orden" ] || { echo "compile_commands.json no dice cómo se compila la media"; exit 1; }
fundidas() {
    # shellcheck disable=SC2086 # a command and its options
    $orden -O2 "${procesador[@]}" "$@" -S -o - | grep -cE "^\s$fundida" || true
}
[ "$(fundidas -ffp-contract=fast)" -gt 0 ] || { echo "permitiéndolo tampoco se funden: no prueba nada"; exit 1; }
[ "$(fundidas)" -eq 0 ] || { echo "la media funde producto y suma: $orden"; exit 1; }
