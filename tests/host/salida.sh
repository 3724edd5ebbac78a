#!/usr/bin/env bash
# What happens around an answer: where it goes, who reads it and how it was asked for. Usage: salida.sh PROGRAM
set -uo pipefail
programa=$(realpath "$1")
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"
export LC_ALL=es_ES.UTF-8 TERM=xterm
unset NO_COLOR KV_BASE
fallos=0
casos=0

# comprobar WHAT EXPECTED REAL
comprobar() {
    casos=$((casos + 1))
    [ "$2" = "$3" ] && return
    printf 'FALLA: %s\n' "$1"
    diff <(echo "$2") <(echo "$3") | head -n 8
    fallos=$((fallos + 1))
}
# contiene WHAT TEXT REAL
contiene() {
    casos=$((casos + 1))
    [[ "$3" == *"$2"* ]] && return
    printf 'FALLA: %s\n  esperado, dentro: %s\n  real: %s\n' "$1" "$2" "$3" | head -n 8
    fallos=$((fallos + 1))
}
kv() { "$programa" "$@" 2>&1 </dev/null; }
# On a terminal of so many columns.
en_terminal() {
    local columnas=$1
    shift
    script -qec "stty cols $columnas; $(printf '%q ' "$programa" "$@")" /dev/null </dev/null | tr -d '\r'
}

kv crear-demo demo.kv --traza >creacion.txt
comprobar 'crear-demo con traza' 1 "$(grep -c ' ms Execute |INSERT INTO Empresas (.*VALUES (1, ' creacion.txt)"
contiene 'crear-demo con traza, su suma' ' operaciones' "$(tail -n 4 creacion.txt)"
cargar=(cargar --base demo.kv --articulo 113 --cliente 11 --explica)
mover=(stock mover --base demo.kv --articulo 106 --tipo venta --unidades 1)
existencias() { kv stock ver --base demo.kv --articulo 106 --csv | sed -n '2s/^[^,]*,\([^,]*\),.*/\1/p'; }

# Nowhere to write.
"$programa" "${cargar[@]}" >/dev/full 2>error.txt
comprobar 'disco lleno al leer' '3 kvdatosart: no se puede escribir en la salida: el disco está lleno' "$? $(cat error.txt)"
"$programa" --help >/dev/full 2>error.txt
comprobar 'disco lleno al pedir ayuda' '3 kvdatosart: no se puede escribir en la salida: el disco está lleno' "$? $(cat error.txt)"
"$programa" cargar --base demo.kv --articulo 5555 --cliente 1 --json >/dev/full 2>error.txt
comprobar 'disco lleno y sin artículo' '1 kvdatosart: no existe el artículo 5555' "$? $(cat error.txt)"
antes=$(existencias)
"$programa" "${mover[@]}" >/dev/full 2>error.txt
comprobar 'disco lleno tras escribir' \
    '0 kvdatosart: hecho, pero la respuesta no se puede mostrar: no se puede escribir en la salida: el disco está lleno' \
    "$? $(cat error.txt)"
"$programa" "${mover[@]}" --csv=nada >tabla.txt 2>error.txt
contiene 'tabla desconocida tras escribir' '0  kvdatosart: hecho, pero' "$? $(cat tabla.txt) $(cat error.txt)"
(trap '' PIPE; sleep 0.3; "$programa" "${mover[@]}" 2>error.txt; echo $? >codigo.txt) | true
comprobar 'tubería cerrada tras escribir' '0 ' "$(cat codigo.txt) $(cat error.txt)"
comprobar 'los tres movimientos quedan' "$((antes - 3))" "$(existencias)"
{ sleep 0.3; "$programa" "${cargar[@]}" 2>error.txt; echo $? >codigo.txt; } | true
comprobar 'tubería cerrada al leer' '0 ' "$(cat codigo.txt) $(cat error.txt)"
"$programa" "${cargar[@]}" >&- 2>error.txt
comprobar 'sin salida' '3 kvdatosart: no se puede escribir en la salida: está cerrada' "$? $(cat error.txt)"

# A file besides the answer: whole or as it was.
historia=(historia --base demo.kv --articulo 102 --cliente 1)
kv "${historia[@]}" --svg h.svg >/dev/null
contiene 'el dibujo' '</svg>' "$(tail -n 1 h.svg)"
ln -s h.svg enlace.svg
kv "${historia[@]}" --hasta 31/12/2040 --svg enlace.svg >/dev/null
comprobar 'se sustituye lo que nombra el enlace' 'enlace.svg 1' "$(find enlace.svg -type l) $(grep -c '<desc.*31/12/2040' h.svg)"
for caso in '. es una carpeta' '/dev/null no es un fichero' 'no/hay.svg no se puede escribir: '; do
    contiene "--svg ${caso%% *}" "«${caso%% *}» ${caso#* }" "$(kv "${historia[@]}" --svg "${caso%% *}")"
done
comprobar 'no queda nada más' 'enlace.svg h.svg' "$(echo ./*.svg* | sed 's|\./||g')"

# Terminals.
salida=$(en_terminal 60 "${cargar[@]}")
comprobar 'en un terminal, lo que diría --ancho' "$(kv "${cargar[@]}" --ancho 60)" "$(sed 's/\x1b\[[0-9;]*m//g' <<<"$salida")"
contiene 'la fila que pone el precio, en color' $'\x1b[1;32m> ' "$salida"
comprobar 'una sola en color' 1 "$(en_terminal 80 "${cargar[@]}" | grep -c $'\x1b\[')"
comprobar 'sin color con NO_COLOR' "$(sed 's/\x1b\[[0-9;]*m//g' <<<"$salida")" "$(NO_COLOR=1 en_terminal 60 "${cargar[@]}")"
comprobar 'con NO_COLOR vacía hay color' "$salida" "$(NO_COLOR='' en_terminal 60 "${cargar[@]}")"
comprobar 'un terminal que no dice su ancho' "$(kv "${cargar[@]}" --ancho 80)" "$(NO_COLOR=1 en_terminal 0 "${cargar[@]}")"
comprobar 'por una tubería, una fila por línea' 1 "$(kv "${cargar[@]}" | grep -c 'Acuerdo: precio base.*nodo 1\.1 .*(acuerdo desde el 01/01/2024)')"
comprobar 'la ayuda cabe en 40 columnas' 40 "$(en_terminal 40 ayuda stock mover | LC_ALL=C.UTF-8 wc -L)"

# Every locale.
for orden in 'cargar --articulo 113 --cliente 11 --explica' 'revisar' 'cliente ver --codigo 4' 'stock ver --articulo 103' \
    'dto-grupo poner --grupo 1 --clave 111-4-1-1-1 --minimo 5,5 --maximo 20,5 --descuento 3' 'cargar --articulo x'; do
    read -ra palabras <<<"$orden"
    for forma in --json --csv; do
        esperado=$(LC_ALL=C kv "${palabras[@]}" --base demo.kv $forma)
        for idioma in es_ES.UTF-8 en_US.UTF-8 no_HAY.UTF-8; do
            comprobar "$orden $forma en $idioma" "$esperado" "$(env LC_ALL="$idioma" "$programa" "${palabras[@]}" --base demo.kv $forma 2>&1)"
        done
    done
done
for idioma in 'es_ES.UTF-8 ,' 'C .' 'en_US.UTF-8 .'; do
    precio=$(LC_ALL=${idioma% *} kv devpvp --base demo.kv --articulo 102 --tarifa 1)
    contiene "el separador de ${idioma% *}" "Precio      24${idioma#* }50" "$precio"
done

# How it is asked for.
comprobar '--version' 'kvdatosart 1.0.0' "$(kv --version)"
contiene 'KV_BASE' '"precio": 24.5,' "$(KV_BASE=demo.kv kv devpvp --articulo 102 --tarifa 1 --json)"
contiene '--base antes que KV_BASE' '"precio": 24.5,' "$(KV_BASE=nohay.kv kv devpvp --base demo.kv --articulo 102 --tarifa 1 --json)"
contiene '--odbc antes que KV_BASE' 'No se puede conectar' "$(KV_BASE=demo.kv kv devpvp --odbc DRIVER=NoHay --articulo 102 --tarifa 1)"
contiene 'json y csv' 'se espera --json o --csv, no los dos' "$(kv devpvp --base demo.kv --articulo 102 --tarifa 1 --json --csv)"
contiene 'csv de una tabla que no hay' '--csv: «nada» no vale; se espera una de explicacion' "$(kv "${cargar[@]}" --csv=nada)"
contiene 'un error en JSON, también de la línea de órdenes' '"mensaje": "falta --articulo"' "$(kv devpvp --json --tarifa 1)"
contiene '--hoy decide qué es futuro' '"precio": 26.9,' \
    "$(kv devpvp --base demo.kv --articulo 102 --tarifa 1 --json --fecha "$(date -d +30days +%F)" --hoy "$(date +%F)")"
contiene '--hoy, el mismo día ya no es futuro' '"precio": 24.5,' \
    "$(kv devpvp --base demo.kv --articulo 102 --tarifa 1 --json --fecha "$(date -d +30days +%F)" --hoy "$(date -d +30days +%F)")"

# Help, the manual page and the completion come from the same texts.
kv ayuda --man >kvdatosart.1
comprobar 'la página de manual no tiene faltas' '' "$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z ./kvdatosart.1 2>&1 >/dev/null)"
manual=$(MANWIDTH=200 man -E UTF-8 -l ./kvdatosart.1 | sed 's/.\x08//g')
. <(kv ayuda --bash)
# completar WORD...: what bash would offer for the last one
completar() {
    COMP_WORDS=(kvdatosart "$@")
    COMP_CWORD=$#
    _kvdatosart
    echo "${COMPREPLY[*]-}"
}
for orden in $(completar ''); do
    case "$orden" in -*) continue ;; esac
    contiene "el manual cuenta $orden" "kvdatosart $orden" "$manual"
    contiene "la ayuda de $orden" "Uso: kvdatosart $orden" "$(kv ayuda "$orden")"
    comprobar "ayuda $orden y $orden --help" "$(kv ayuda "$orden")" "$(kv "$orden" --help)"
done
comprobar 'completa órdenes' 'dto-familia dto-grupo' "$(completar dto)"
comprobar 'completa las de una familia' 'ver' "$(completar stock v)"
comprobar 'completa opciones' '--cualidad-x --cualidad-y' "$(completar stock mover --articulo 5 --cual)"
comprobar 'completa ficheros tras --base' 'demo.kv' "$(completar cargar --base demo)"
comprobar 'tras un código no ofrece nada' '' "$(completar cargar --articulo '')"
comprobar 'completa el fichero de crear-demo' 'demo.kv' "$(completar crear-demo demo)"

echo "$((casos - fallos)) passed, $fallos failed"
[ "$fallos" -eq 0 ]
