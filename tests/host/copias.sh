#!/usr/bin/env bash
# Copies of a base, on request and for a trial: whole, private, and nothing left of those that fail. Usage: copias.sh PROGRAM
set -uo pipefail
programa=$(realpath "$1")
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"
export LC_ALL=C KV_BASE=demo.kv
fallos=0
falla() {
    echo "FALLA: $*"
    fallos=$((fallos + 1))
}
# es CODE TEXT ARGUMENT...: the exit code and a text of its only line; nothing new in the folder.
es() {
    local codigo=$1 texto=$2 salida real antes
    shift 2
    antes=$(ls -A)
    salida=$("${delante[@]}" "$programa" "$@" 2>&1 </dev/null)
    real=$?
    [ "$real" -eq "$codigo" ] && [[ "$salida" == *"$texto"* && "$salida" != *$'\n'* ]] ||
        falla "$* (esperado $codigo con «$texto»; real $real: $salida)"
    [ "$(ls -A)" = "$antes" ] || falla "$* ha dejado $(ls -A)"
}
delante=()
"$programa" crear-demo demo.kv >/dev/null

# Whole while others write: one article's movements and its stock are of one moment.
for i in $(seq 40); do "$programa" stock mover --articulo 106 --tipo entrada --unidades 1 >/dev/null; done &
escritor=$!
for i in 1 2 3; do "$programa" copia "copia$i.kv" >/dev/null || falla "copia $i"; done
kill "$escritor" 2>/dev/null
wait "$escritor" 2>/dev/null
"$programa" copia igual.kv >/dev/null || falla 'copia de la base quieta'
for orden in 'stock ver --articulo 106' 'cargar --articulo 113 --cliente 11' 'clientes listar' revisar; do
    # shellcheck disable=SC2086
    [ "$("$programa" $orden --json)" = "$("$programa" $orden --json --base igual.kv)" ] || falla "$orden no dice lo mismo en la copia"
done
[ "$(sqlite3 copia1.kv 'PRAGMA integrity_check')" = ok ] || falla 'la copia no está entera'
[ "$(stat -c %a igual.kv)" = 600 ] || falla "la copia es $(stat -c %a igual.kv)"
rm copia?.kv

es 3 '«igual.kv» ya existe y no se toca' copia igual.kv
es 3 'No se puede abrir «no/hay.kv.creando»' copia no/hay.kv
es 3 '«nohay.kv» no existe' copia otra.kv --base nohay.kv
es 2 '--odbc: solo se copia un fichero' copia otra.kv --odbc DSN=x
es 2 'falta fichero' copia
delante=(bash -c 'trap "" XFSZ; ulimit -f 300; exec "$@"' _)
es 3 'el disco falla o está lleno' copia otra.kv
delante=()

# A base that takes a while to copy, so that there is time to interrupt.
cp igual.kv grande.kv
sqlite3 grande.kv 'CREATE TABLE Relleno (x); INSERT INTO Relleno VALUES (zeroblob(150000000))'
"$programa" copia cortada.kv --base grande.kv >cortada.txt 2>&1 &
pid=$!
vueltas=0
until [ -e cortada.kv.creando ] || [ $((vueltas += 1)) -gt 500 ]; do sleep 0.002; done
kill -TERM "$pid"
wait "$pid"
[ "$? $(cat cortada.txt)" = '3 kvdatosart: interrumpido; no ha quedado nada a medias' ] || falla "cortada: $(cat cortada.txt)"
[ -z "$(ls cortada.kv* 2>/dev/null)" ] || falla "ha quedado $(ls cortada.kv*)"

echo "$fallos failed"
[ "$fallos" -eq 0 ]
