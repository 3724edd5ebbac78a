#!/usr/bin/env bash
# Holds --json to docs/json.md: each command's members, by name and in order. Usage: json.sh PROGRAM DOCUMENT
set -uo pipefail
programa=$(realpath "$1")
documento=$(realpath "$2")
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"
export LC_ALL=C KV_BASE=demo.kv
fallos=0
casos=0

# The indented lines under some headings of the document ("a|b"): one line for the data and one for each listing.
prometidos() {
    awk -v titulo="$1" '
        /^```/ { dentro = 0 }
        dentro && /^  [a-zA-Z0-9]+:/ { listas = listas "\n" substr($0, 3); next }
        dentro && /^  / { $1 = $1; datos = datos " " $0; next }
        { dentro = index("|" titulo "|", "|" $0 "|") > 0 }
        END { print substr(datos, 2) listas }' "$documento"
}
# The same of an answer: members at two blanks, members of the first object of each listing at six.
dados() {
    awk '
        /^  "formato": 1,?$/ { next }
        /^  "[^"]*": \[/ { split($0, p, "\""); lista = p[2]; listas = listas "\n" lista ":"; primera = 1; next }
        /^    }/ { primera = 0 }
        /^      "/ && primera { split($0, p, "\""); listas = listas " " p[2]; next }
        /^  "/ { split($0, p, "\""); datos = datos " " p[2] }
        END { print substr(datos, 2) listas }'
}
# caso HEADINGS COMMAND...
caso() {
    local titulo=$1 esperado real
    shift
    casos=$((casos + 1))
    esperado=$(prometidos "$titulo")
    real=$("$programa" "$@" --json | dados)
    if [ -z "$esperado" ] || [ "$esperado" != "$real" ]; then
        echo "FALLA: $*"
        diff <(echo "$esperado") <(echo "$real")
        fallos=$((fallos + 1))
    fi
}

caso 'crear-demo (in a file)' crear-demo demo.kv
caso 'copia' copia otra.kv
caso 'actualizar' actualizar --base demo.kv
caso 'devpvp' devpvp --articulo 101 --tarifa 1
caso 'cargar' cargar --articulo 101 --cliente 1
caso 'cargar|cargar --padre (then also)|cargar --explica (then also)' cargar --articulo 118 --cliente 1 --padre --explica
caso 'historia' historia --articulo 102 --cliente 1
caso 'historia --svg (then also)|historia' historia --articulo 102 --cliente 1 --svg h.svg
echo 'precios poner --articulo 101 --cliente 3 --desde 1/1/2026 --precio 70' >ordenes.txt
caso 'ensayar' ensayar --articulos 101 --clientes 3 --orden-de ordenes.txt
cliente='cliente ver, primero, ultimo, anterior, siguiente'
caso "$cliente" cliente ver --codigo 4
caso "$cliente" cliente primero
caso 'cliente resumen' cliente resumen --codigo 4
caso 'cliente venta, cobro' cliente venta --codigo 4
caso 'cliente eliminar' cliente eliminar --codigo 44
clave=(--articulo 101 --cliente 3 --desde 1/1/2026)
caso 'precios poner, cambiar, quitar' precios poner "${clave[@]}" --precio 70
caso 'precios listar' precios listar --articulo 101
caso 'precios poner, cambiar, quitar' precios quitar "${clave[@]}"
cambio=(--articulo 101 --tarifa 1 --desde 1/1/2040)
caso 'cambios poner, quitar' cambios poner "${cambio[@]}" --precio 99
caso 'cambios ver' cambios ver
caso 'cambios poner, quitar' cambios quitar "${cambio[@]}"
caso 'dto-familia listar' dto-familia listar --cliente 5
caso 'dto-grupo listar' dto-grupo listar --grupo 1
caso 'dto-familia and dto-grupo poner, cambiar, quitar' dto-familia poner --cliente 5 --clave 0-1-3-0-0 --descuento 2
caso 'dto-familia and dto-grupo poner, cambiar, quitar' \
    dto-grupo quitar --grupo 1 --clave 111-4-1-1-1 --minimo 1 --maximo 9
todos='acuerdos of all of them'
caso "acuerdos ver (nodo and convenio with --nodo)|$todos" acuerdos ver --articulo 113 --nodo 1.1
caso "acuerdos poner, cambiar, quitar|$todos" acuerdos poner --articulo 106 --nodo 1.1 --dto porcentaje:10
for lista in articulos clientes tarifas almacenes grupos cadenas empresas; do
    caso "$lista listar, buscar" "$lista" listar
done
caso 'tarifas de' tarifas de 101
stock='stock ver, bloquear, desbloquear, coste, pendiente, ubicacion'
"$programa" stock ubicacion --articulo 103 --unidades 1 --ubic1 P >/dev/null
caso "$stock" stock ver --articulo 103
caso "$stock|stock mover (then also, before the listings)" stock mover --articulo 103 --tipo venta --unidades 1
caso 'ventas acumular' ventas acumular --articulo 106 --cliente 3 --unidades 1 --importe 1
caso 'revisar' revisar

# Lists: the members of their first line.
lineas() {
    local titulo=$1
    shift
    casos=$((casos + 1))
    [ "$(prometidos "$titulo")" = "$("$programa" "$@" --json 2>/dev/null | sed -n '1{s/": [^,]*\(,"\|}\)/ \1/g; s/"//g; s/[{,}]//g; s/ *$//p}')" ] && return
    echo "FALLA: $*: $("$programa" "$@" --json 2>/dev/null | head -n 1)"
    fallos=$((fallos + 1))
}
lineas 'lista (an object a line)' lista --clientes 1 --articulos 106
lineas 'lista (an object a line)|lista --con-coste (then also)' lista --clientes 1 --articulos 106 --con-coste
lineas 'lista comparar (an object a line)' lista comparar --clientes 1 --articulos 103 --con-tarifa 2

echo "$((casos - fallos)) passed, $fallos failed"
[ "$fallos" -eq 0 ]
