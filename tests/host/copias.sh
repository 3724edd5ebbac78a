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
until [ -e basta ]; do "$programa" stock mover --articulo 106 --tipo entrada --unidades 1 >/dev/null; done &
for i in 1 2 3; do "$programa" copia "copia$i.kv" >/dev/null || falla "copia $i"; done
touch basta
wait
"$programa" copia igual.kv >/dev/null || falla 'copia de la base quieta'
for orden in 'stock ver --articulo 106' 'cargar --articulo 113 --cliente 11' 'clientes listar' revisar; do
    # shellcheck disable=SC2086
    [ "$("$programa" $orden --json)" = "$("$programa" $orden --json --base igual.kv)" ] || falla "$orden no dice lo mismo en la copia"
done
[ "$(sqlite3 copia1.kv 'PRAGMA integrity_check')" = ok ] || falla 'la copia no está entera'
[ "$(stat -c %a igual.kv)" = 600 ] || falla "la copia es $(stat -c %a igual.kv)"
rm copia?.kv

es 3 '«igual.kv» ya existe y no se toca' copia igual.kv
es 3 '«no/hay.kv» no se puede crear: su carpeta no existe' copia no/hay.kv
es 3 '«nohay.kv» no existe' copia otra.kv --base nohay.kv
es 2 '--odbc: solo se copia un fichero' copia otra.kv --odbc DSN=x
es 2 'falta fichero' copia
delante=(bash -c 'trap "" XFSZ; ulimit -f 300; exec "$@"' _)
es 3 'el disco falla o está lleno' copia otra.kv
delante=()

# A trial shows what would change and leaves the rows of the base, and no other file, as they were.
export TMPDIR=$carpeta/tmp
mkdir tmp
filas() { sqlite3 demo.kv .dump | cksum; }
antes=$(filas)
# ensayo LINES TEXT OPTION... -- COMMAND...: how many lines change, and what is said of one of them.
ensayo() {
    local lineas=$1 texto=$2 salida
    shift 2
    salida=$("$programa" ensayar --hoy 21/11/2026 --csv "$@" 2>&1)
    [ "$(grep -c '^[0-9]' <<<"$salida")" -eq "$lineas" ] && [[ "$salida" == *"$texto"* ]] ||
        falla "ensayar $* (esperadas $lineas con «$texto»): $salida"
    [ "$(filas)" = "$antes" ] || falla "ensayar $* ha escrito en la base"
    [ -z "$(ls -A tmp)" ] || falla "ensayar $* ha dejado $(ls -A tmp)"
}
uno=(--articulos 101 106 --clientes 3 5)
ensayo 1 ',89.95,0,89.95,disponible,tarifa 1,77.5,0,77.5,disponible,precio del cliente,-12.45,-13.84' \
    "${uno[@]}" -- precios poner --articulo 101 --cliente 3 --desde 1/1/2026 --precio 77,5
ensayo 2 ',tarifa 1,1.95,50,0.98,disponible,"tarifa 1, descuento de familia",-0.97,-49.74' \
    --articulos 106 --clientes 5 --unidades 1 2 -- dto-familia poner --cliente 5 --clave 0-2-1-2-0 --descuento 50
ensayo 2 ',disponible,tarifa 1,1.95,0,1.95,bloqueado o de baja,tarifa 1,0,0' \
    --articulos 106 --clientes 1 2 -- stock bloquear --articulo 106
ensayo 1 ',sin existencias,' --articulos 107 --clientes 1 -- stock mover --articulo 107 --tipo venta --unidades 100000
ensayo 0 '' "${uno[@]}" -- precios listar --articulo 101
ensayo 1 ',89.95,disponible,tarifa 1,,,,,,,' --articulos 101 --clientes 44 45 -- cliente eliminar --codigo 44
ensayo 1 ',99,0,99,disponible,tarifa 1,' --articulos 101 --clientes 1 --fecha 1/1/2027 -- cambios poner --articulo 101 --tarifa 1 --desde 1/1/2027 --precio 99
ensayo 0 '' --articulos 101 --clientes 1 --fecha 31/12/2026 -- cambios poner --articulo 101 --tarifa 1 --desde 1/1/2027 --precio 99
cat >ordenes.txt <<'FIN'
# The second one sees the first.
kvdatosart precios poner --articulo 101 --cliente 3 --desde 1/1/2026 --precio 70

precios cambiar --articulo "101" --cliente '3' --desde 1/1/2026 --precio 71
FIN
ensayo 1 ',71,0,71,' "${uno[@]}" --orden-de ordenes.txt
es 2 '--odbc: no se ensaya en un servidor: haga una copia' ensayar --articulos 101 --clientes 3 --odbc DSN=x -- stock bloquear --articulo 101
TMPDIR=$carpeta/nohay es 3 'no hay dónde hacer la copia (TMPDIR dice la carpeta)' ensayar --articulos 101 --clientes 3 -- stock bloquear --articulo 101
delante=(bash -c 'trap "" XFSZ; ulimit -f 300; exec "$@"' _)
es 3 'el disco falla o está lleno' ensayar --articulos 101 --clientes 3 -- stock bloquear --articulo 101
delante=()
[ -z "$(ls -A tmp)" ] || falla "quedan $(ls -A tmp)"

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

# cortado TEXT: a trial of every line, ended once there is a file of this name.
cortado() {
    "$programa" ensayar --base grande.kv --clientes todos -- stock bloquear --articulo 106 >cortada.txt 2>&1 &
    pid=$!
    vueltas=0
    until compgen -G "$1" >/dev/null || [ $((vueltas += 1)) -gt 500 ]; do sleep 0.002; done
    kill -TERM "$pid"
    wait "$pid"
    [ "$? $(cat cortada.txt)" = '3 kvdatosart: interrumpido; no ha quedado nada a medias' ] || falla "ensayo cortado: $(cat cortada.txt)"
    [ -z "$(ls -A tmp)" ] || falla "ha quedado $(ls -A tmp)"
}
cortado 'tmp/*/copia.kv.creando'
cortado 'tmp/*/copia.kv'

echo "$fallos failed"
[ "$fallos" -eq 0 ]
