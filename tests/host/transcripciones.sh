#!/usr/bin/env bash
# Runs the sessions of transcripciones/*.txt, each on a fresh demonstration database whose today is 21/11/2026, and
# compares what people would see on a terminal of 80 columns. The files were written down once and are changed by hand
# only. Usage: transcripciones.sh PROGRAM [LOCALE]; in another locale than Spanish, decimals may stand after a point.
set -uo pipefail
programa=$(realpath "$1")
sesiones=$(realpath "$(dirname "${BASH_SOURCE[0]}")/transcripciones")
export LC_ALL=${2:-es_ES.UTF-8} KV_BASE=demo.kv
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"

# What the sessions call by its name. Help takes no width: through a pipe it is 80 columns wide.
kvdatosart() {
    local comunes=(--ancho 80 --hoy 21/11/2026) delante=()
    case "$*" in *ayuda* | *--help* | *--version*) comunes=() ;; esac
    # What follows two dashes is another command.
    while [ "$#" -gt 0 ] && [ "$1" != -- ]; do
        delante+=("$1")
        shift
    done
    "$programa" "${delante[@]}" "${comunes[@]}" "$@"
}
# Runs each line that begins with "$ ", as the session shows it.
repetir() {
    local linea codigo ancho
    while IFS= read -r linea; do
        echo "$linea"
        eval "${linea#\$ }" >salida.txt 2>&1 </dev/null
        codigo=$?
        cat salida.txt
        [ "$codigo" -eq 0 ] || echo "[código $codigo]"
        # What programs read and failures of one line go on to the right.
        ancho=$(grep -v '^kvdatosart: ' salida.txt | LC_ALL=C.UTF-8 wc -L)
        case "$linea" in *--json* | *--csv*) ;; *) [ "$ancho" -le 80 ] || echo "[llega a $ancho columnas]" ;; esac
        echo
    done < <(grep '^\$ ' "$1")
}
sin_locale() {
    if [ "$LC_ALL" = es_ES.UTF-8 ]; then cat; else sed -E ':a; s/([0-9]),([0-9])/\1.\2/; ta'; fi
}

kvdatosart crear-demo demo.kv >/dev/null || exit 1
mv demo.kv nueva.kv
fallos=0
cuantas=0
for sesion in "$sesiones"/*.txt; do
    cp nueva.kv demo.kv
    cuantas=$((cuantas + 1))
    repetir "$sesion" >real.txt
    if ! diff <(sin_locale <"$sesion") <(sin_locale <real.txt) >diferencias.txt; then
        echo "FALLA: $(basename "$sesion") (esperado <, real >)"
        cat diferencias.txt
        fallos=$((fallos + 1))
    fi
done
echo "$cuantas sesiones, $fallos fallos"
[ "$cuantas" -gt 0 ] && [ "$fallos" -eq 0 ]
