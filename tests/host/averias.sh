#!/usr/bin/env bash
# What goes wrong around the file: several that make it at once, one that is interrupted or killed, and failures that
# are told in plain Spanish. Usage: averias.sh PROGRAM
set -uo pipefail
programa=$(realpath "$1")
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"
fallos=0
falla() {
    echo "FALLA: $*"
    fallos=$((fallos + 1))
}
# What the program is run by.
delante=()
# es CODE TEXT ARGUMENT...: the exit code and a text of its only line.
es() {
    local codigo=$1 texto=$2 salida real
    shift 2
    salida=$("${delante[@]}" "$programa" "$@" 2>&1 </dev/null)
    real=$?
    [ "$real" -eq "$codigo" ] && [[ "$salida" == *"$texto"* && "$salida" != *$'\n'* ]] ||
        falla "$* (esperado $codigo con «$texto»; real $real: $salida)"
}

for i in 1 2 3 4; do
    "$programa" crear-demo varias.kv >"$i.txt" 2>&1 &
done
hechas=0
for trabajo in $(jobs -p); do wait "$trabajo" && hechas=$((hechas + 1)); done
[ "$hechas" -eq 1 ] || falla "$hechas de cuatro a la vez han creado la base"
[ "$(cat ./*.txt | grep -cE 'se está creando ya desde otro sitio|ya existe y no se toca')" -eq 3 ] || falla "$(cat ./*.txt)"
"$programa" cargar --base varias.kv --articulo 113 --cliente 11 >/dev/null || falla "la base creada no carga"

# cortada SIGNAL FILE: ends the program with a signal while it makes the file.
cortada() {
    "$programa" crear-demo "$2" >/dev/null 2>&1 &
    local pid=$! vueltas=0
    while [ ! -s "$2.creando" ] && [ "$vueltas" -lt 500 ]; do
        sleep 0.01
        vueltas=$((vueltas + 1))
    done
    kill "-$1" "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
    [ ! -e "$2" ] || falla "$2: ha dado tiempo a acabarla"
}
# Signals of the keyboard do not reach what a script leaves behind; this one is handled alike.
for senal in INT TERM HUP; do
    cortada "$senal" cortada.kv
    [ -z "$(ls cortada.kv* 2>/dev/null)" ] || falla "la señal $senal ha dejado $(ls cortada.kv*)"
done
cortada KILL muerta.kv
[ -e muerta.kv.creando ] || falla 'la muerte no ha dejado nada que tomar'
"$programa" crear-demo muerta.kv >/dev/null || falla 'la siguiente no la toma'
[ "$(ls muerta.kv*)" = muerta.kv ] || falla "ha quedado $(ls muerta.kv*)"

es 3 '«nohay.kv» no existe' cargar --base nohay.kv --articulo 1 --cliente 1
es 3 '«/dev/null» no es un fichero' cargar --base /dev/null --articulo 1 --cliente 1
echo nada >texto.kv
es 3 '«texto.kv» no es una base de datos' cargar --base texto.kv --articulo 1 --cliente 1
head -c 50000 muerta.kv >rota.kv
es 3 '«rota.kv» está dañada; hace falta una copia de seguridad (database disk image is malformed)' revisar --base rota.kv
es 2 '--espera: solo es para un fichero' cargar --odbc DSN=x --espera 1 --articulo 1 --cliente 1
# A file that may not grow: what is half made goes.
delante=(bash -c 'trap "" XFSZ; ulimit -f 300; exec "$@"' _)
es 3 '«corta.kv» no se puede leer o escribir: el disco falla o está lleno (disk I/O error' crear-demo corta.kv
[ -z "$(ls corta.kv* 2>/dev/null)" ] || falla "ha quedado $(ls corta.kv*)"

# Nobody's permissions; root has all of them.
cp muerta.kv prohibida.kv
cp "$programa" copia
chmod 000 prohibida.kv
chmod 555 .
delante=()
[ "$(id -u)" -ne 0 ] || delante=(setpriv --reuid=65534 --regid=65534 --clear-groups)
de_todos=$programa
programa=$carpeta/copia
es 3 '«prohibida.kv» no se puede abrir: falta permiso en ella o en su carpeta (' cargar --base prohibida.kv --articulo 1 --cliente 1
es 3 '«muerta.kv» es de solo lectura o falta permiso para escribir' stock bloquear --base muerta.kv --articulo 106
es 3 '«nueva.kv» no se puede abrir: falta permiso en ella o en su carpeta (Permission denied)' crear-demo nueva.kv
es 3 '«prohibida.kv» no se puede abrir: falta permiso' actualizar --base prohibida.kv
chmod 755 .
programa=$de_todos
delante=()

# Another program that holds the base.
bloquear=(stock bloquear --base muerta.kv --articulo 106)
coproc OTRO { sqlite3 muerta.kv; }
echo 'BEGIN IMMEDIATE; SELECT 1;' >&"${OTRO[1]}"
read -r _ <&"${OTRO[0]}"
es 3 '«muerta.kv» la está usando otro programa; se vuelve a probar cuando acabe, o se le espera más con --espera (database is locked' "${bloquear[@]}" --espera 0
"$programa" "${bloquear[@]}" --espera 60 >salida.txt 2>error.txt &
esperando=$!
vueltas=0
until [ -s error.txt ] || [ $((vueltas += 1)) -gt 500 ]; do sleep 0.01; done
[ "$(cat error.txt)" = 'kvdatosart: esperando a que otro programa suelte «muerta.kv»...' ] || falla "al esperar dice: $(cat error.txt)"
echo 'COMMIT;' >&"${OTRO[1]}"
wait "$esperando" && grep -q ' sí ' salida.txt || falla "suelta la base, no sigue: $(cat salida.txt error.txt)"
exec {OTRO[1]}>&-
wait "$OTRO_PID"

echo "$fallos failed"
[ "$fallos" -eq 0 ]
