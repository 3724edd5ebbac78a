#!/usr/bin/env bash
# What the documents say of the code stands there: links and paths lead somewhere, the decision records are numbered
# without gaps, each is in the index once and says where it is seen, and each quirk in the code names its record.
set -euo pipefail
cd "$1"

mal=0
falta() { echo "$*"; mal=1; }
codigo() { grep -rn --include='*.cpp' --include='*.h' "$@" --exclude-dir=build . || true; }

while IFS=: read -r documento enlace; do
    [ -e "$(dirname "$documento")/${enlace%%#*}" ] || falta "$documento: el enlace $enlace no lleva a nada"
done < <(grep -oHE '\]\([^)#:]+(#[^)]*)?\)' README.md docs/*.md docs/decisions/*.md | sed -E 's/\]\((.*)\)$/\1/')

while IFS=: read -r documento ruta; do
    compgen -G "$ruta*" >/dev/null || falta "$documento: no existe $ruta"
done < <(grep -oHE '`[a-z]+/[A-Za-z0-9_/.*-]+`' README.md docs/*.md docs/decisions/*.md | tr -d '`' | grep -vE ':(build|dd)/')

n=0
for registro in docs/decisions/[0-9]*.md; do
    n=$((n + 1))
    numero=$(printf '%04d' "$n")
    nombre=${registro##*/}
    [[ $nombre == "$numero"-* ]] || falta "$registro: le toca el número $numero"
    head -n 1 "$registro" | grep -q "^# $numero: " || falta "$registro: su título no es «# $numero: ...»"
    grep -q '^Seen in: ' "$registro" || falta "$registro: no dice dónde se ve (Seen in: ...)"
    [ "$(grep -cF "[$numero]($nombre)" docs/decisions/README.md)" -eq 1 ] || falta "$registro: no está una vez en el índice"
done
[ "$n" -gt 0 ] || falta "no hay registros"

codigo -i 'quirk' | grep -vE '// Quirk \([0-9]{4}\): ' && falta "una rareza sin su registro: // Quirk (0000): ..."
while read -r numero; do
    compgen -G "docs/decisions/$numero-*.md" >/dev/null || falta "// Quirk ($numero): no hay tal registro"
done < <(codigo -ohE 'Quirk \([0-9]{4}\)' | grep -oE '[0-9]{4}' | sort -u)
exit "$mal"
