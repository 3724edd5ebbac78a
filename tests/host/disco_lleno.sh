#!/usr/bin/env bash
# A disk without room, a file system of a few pages: what does not fit leaves no trace. Where none may be mounted it ends
# with 77, which ctest shows as skipped. Usage: disco_lleno.sh PROGRAM
set -uo pipefail
if [ "${2:-}" != montado ]; then
    for modo in -rm -m; do
        unshare "$modo" mount -t tmpfs none /mnt 2>/dev/null && exec unshare "$modo" "$0" "$(realpath "$1")" montado
    done
    echo 'aquí no se puede montar un disco'
    exit 77
fi
programa=$1
mount -t tmpfs -o size=2m none /mnt || exit
cd /mnt || exit
fallos=0
# lleno TEXT ARGUMENT...: refused with this text, since the disk is full.
lleno() {
    local texto=$1 salida
    shift
    salida=$("$programa" "$@" 2>&1)
    [ "$? $salida" = "3 kvdatosart: «demo.kv» $texto" ] && return
    echo "FALLA: $* ($salida)"
    fallos=$((fallos + 1))
}

head -c 1900k /dev/zero >relleno
lleno 'no cabe más: el disco está lleno; no se ha escrito nada (database or disk is full)' crear-demo demo.kv
[ "$(ls)" = relleno ] || { echo "FALLA: queda $(ls)"; fallos=$((fallos + 1)); }
rm relleno
"$programa" crear-demo demo.kv >/dev/null || exit
antes=$("$programa" stock ver --base demo.kv --articulo 106)
head -c 2m /dev/zero >relleno 2>/dev/null
# What a file in use needs beside it does not fit.
lleno 'no se puede leer o escribir: el disco falla o está lleno (disk I/O error)' stock mover --base demo.kv --articulo 106 --tipo venta --unidades 1
rm relleno
[ "$("$programa" stock ver --base demo.kv --articulo 106)" = "$antes" ] || { echo 'FALLA: se ha movido'; fallos=$((fallos + 1)); }

echo "$fallos failed"
[ "$fallos" -eq 0 ]
