#!/usr/bin/env bash
# Feeds hostile input to what reads texts and bytes from outside, with the sanitizers, one fuzzer after another.
# Usage: scripts/fuzz.sh [MINUTES [FUZZER...]]   minutes for each fuzzer (default 10); all of them when none is named
# What it learns stays in build/fuzz/corpus. An input that fails ends the run: it is kept in build/fuzz/hallado, and
# belongs among the seeds (fuzz/semillas) once it is mended.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

minutos=${1:-10}
[[ "$minutos" =~ ^[1-9][0-9]*$ ]] || { echo "uso: scripts/fuzz.sh [MINUTOS [FUZZER...]]" >&2; exit 2; }
fuzzers=("${@:2}")
[ "${#fuzzers[@]}" -gt 0 ] || mapfile -t fuzzers < <(cd fuzz/semillas && printf '%s\n' *)

scripts/instalar.sh nativo fuzz
cmake --preset fuzz --log-level=WARNING >/dev/null
cmake --build --preset fuzz -j "$(nproc)" --target "${fuzzers[@]/#/difuso_}"

mkdir -p build/fuzz/hallado
for fuzzer in "${fuzzers[@]}"; do
    corpus=build/fuzz/corpus/$fuzzer
    registro=build/fuzz/$fuzzer.txt
    mkdir -p "$corpus"
    # The driver manager keeps memory until the end, which is not ours to free.
    ASAN_OPTIONS=detect_leaks=0 "build/fuzz/fuzz/difuso_$fuzzer" -max_total_time=$((minutos * 60)) -max_len=400 -timeout=10 \
        -artifact_prefix="build/fuzz/hallado/$fuzzer-" -print_final_stats=1 "$corpus" "fuzz/semillas/$fuzzer" \
        >"$registro" 2>&1 || { tail -n 30 "$registro"; echo "fuzz.sh: $fuzzer ha hallado un fallo"; exit 1; }
    printf '%-12s %12s casos, %s aristas\n' "$fuzzer" \
        "$(sed -n 's/^stat::number_of_executed_units: *//p' "$registro")" \
        "$(grep -o 'cov: [0-9]*' "$registro" | tail -n 1 | cut -d' ' -f2)"
done
