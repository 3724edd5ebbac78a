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

echo "== Sentencias por ODBC, por el adaptador y por la interfaz desnuda"
export KV_POSTGRES=$PWD/postgres.cadena
trap '"$raiz/scripts/postgres.sh" parar "$KV_POSTGRES"' EXIT
# On one processor with the server: where the system puts each of them would weigh more than the adapter.
taskset -c 0 "$raiz/scripts/postgres.sh" arrancar "$KV_POSTGRES"
taskset -c 0 ../release/bench/kv_bench_odbc | tee odbc.txt

echo "== Instrucciones por carga (callgrind), adaptador y piso"
../release/bench/kv_bench_consultas --base instrucciones.kv 1000
instrucciones() {
    valgrind --tool=callgrind --callgrind-out-file=/dev/null \
        ../release/bench/kv_bench_consultas --cuenta "$1" instrucciones.kv "$2" 2>&1 | sed -n 's/.*refs: *//p' | tr -d ,
}
declare -A por_carga
for lector in adaptador piso; do
    por_carga[$lector]=$((($(instrucciones "$lector" 3000) - $(instrucciones "$lector" 1000)) / 2000))
    echo "$lector: ${por_carga[$lector]}"
done
awk -v a="${por_carga[adaptador]}" -v p="${por_carga[piso]}" 'BEGIN { printf "razón: %.2f\n", a / p }'
