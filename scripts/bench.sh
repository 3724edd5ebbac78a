#!/usr/bin/env bash
# Builds the benchmarks and runs them: times side by side in one run, then instructions of adapter against floor.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh nativo bench odbc
construir release
mkdir -p build/bench && cd build/bench
rm -f ./*.kv

echo "== Consultas de una carga, por el adaptador y a mano"
../release/bench/kv_bench_consultas --benchmark_enable_random_interleaving=true | tee consultas.txt

echo "== Cargas enteras, en la base, a mano y desde la memoria"
../release/bench/kv_bench_cargas --benchmark_enable_random_interleaving=true | tee cargas.txt

echo "== Movimientos de existencias, cada uno confirmado y de cien en cien"
../release/bench/kv_bench_movimientos --benchmark_enable_random_interleaving=true | tee movimientos.txt

echo "== Preguntas al simulador, por su servidor y en el mismo proceso"
../release/bench/kv_bench_servidor | tee servidor.txt

echo "== Sentencias por ODBC, por el adaptador y por la interfaz desnuda"
export KV_POSTGRES=$PWD/postgres.cadena
trap '"$raiz/scripts/postgres.sh" parar "$KV_POSTGRES"' EXIT
# On one processor with the server: where the system puts each of them would weigh more than the adapter.
taskset -c 0 "$raiz/scripts/postgres.sh" arrancar "$KV_POSTGRES"
taskset -c 0 ../release/bench/kv_bench_odbc | tee odbc.txt

echo "== Instrucciones por carga (callgrind): el adaptador y la carga entera, cada uno con su piso"
../release/bench/kv_bench_consultas --base instrucciones.kv 1000
# instrucciones TIMES PROGRAM ARGUMENT...
instrucciones() {
    local veces=$1
    shift
    valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" "$veces" 2>&1 | sed -n 's/.*refs: *//p' | tr -d ,
}
# por_carga PROGRAM ARGUMENT...: without what the program does before.
por_carga() { echo $((($(instrucciones 3000 "$@") - $(instrucciones 1000 "$@")) / 2000)); }
consultas=(../release/bench/kv_bench_consultas --cuenta)
cargas=(../release/bench/kv_bench_cargas --cuenta)
comparar() { awk -v n="$1" -v a="$2" -v p="$3" 'BEGIN { printf "%s: %d, piso: %d, de más: %d, razón: %.2f\n", n, a, p, a - p, a / p }'; }
comparar adaptador "$(por_carga "${consultas[@]}" adaptador instrucciones.kv)" \
    "$(por_carga "${consultas[@]}" piso instrucciones.kv)"
comparar cargar "$(por_carga "${cargas[@]}" cargar)" "$(por_carga "${cargas[@]}" piso)"
