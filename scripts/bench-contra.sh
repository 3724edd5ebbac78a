#!/usr/bin/env bash
# Compares the loads of this tree with those of another commit, by turns in one run, with the heap as a host has it:
# processor time of a load, medians of the rounds and their ratio. Usage: bench-contra.sh COMMIT [ROUNDS]
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

rondas=${2:-15}
otro=build/contra
scripts/instalar.sh nativo bench odbc
[ ! -e "$otro" ] || git worktree remove --force "$otro"
git worktree add --quiet --detach "$otro" "$1"
trap 'git -C "$raiz" worktree remove --force "$otro"' EXIT
# The other commit's libraries under the same measuring program, whose includes are found in older trees too.
rm -rf "$otro/bench"
cp -r bench "$otro/bench"
ln -sfn . "$otro/kvdatosart"
for arbol in "$raiz" "$raiz/$otro"; do
    (cd "$arbol" && cmake --preset release >/dev/null &&
        cmake --build --preset release --target kv_bench_anfitrion | tail -n 1)
done

tiempos=$(mktemp -d)
trap 'rm -rf "$tiempos"; git -C "$raiz" worktree remove --force "$otro"' EXIT
medir() { "$1/build/release/bench/kv_bench_anfitrion" "${@:2}"; }
for lado in nuevo viejo; do
    [ "$lado" = nuevo ] && arbol=$raiz || arbol=$raiz/$otro
    for base in demo grande; do medir "$arbol" --base "$base" "$tiempos/$lado-$base.kv"; done
done
for ((ronda = 0; ronda < rondas; ronda++)); do
    for base in demo grande; do
        for manera in autoconfirmada lectura memoria; do
            medir "$raiz" "$manera" "$tiempos/nuevo-$base.kv" 8000 >>"$tiempos/nuevo.$base.$manera"
            medir "$raiz/$otro" "$manera" "$tiempos/viejo-$base.kv" 8000 >>"$tiempos/viejo.$base.$manera"
        done
    done
done
mediana() { sort -n "$1" | sed -n "$(((rondas + 1) / 2))p"; }
printf '%-8s %-16s %12s %12s %8s\n' base carga "$1" "este árbol" razón
for base in demo grande; do
    for manera in autoconfirmada lectura memoria; do
        viejo=$(mediana "$tiempos/viejo.$base.$manera")
        nuevo=$(mediana "$tiempos/nuevo.$base.$manera")
        awk -v b="$base" -v m="$manera" -v v="$viejo" -v n="$nuevo" \
            'BEGIN { printf "%-8s %-16s %9.2f µs %9.2f µs %8.2f\n", b, m, v / 1000, n / 1000, n / v }'
    done
done
