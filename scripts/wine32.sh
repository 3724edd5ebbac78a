#!/usr/bin/env bash
# Prints the loader of a 32-bit Wine: the installed one, or else one unpacked under build/wine32 from Debian's i386
# packages, which cannot always be installed beside those of the machine. Fails, saying why, when there is neither.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

if [ -x /usr/lib/wine/wine ]; then echo /usr/lib/wine/wine; exit; fi
destino=$raiz/build/wine32
cargador=$destino/usr/lib/wine/wine

desempaquetar() {
    local apt=(apt-get -qq -o APT::Architecture=i386 -o APT::Architectures=i386 -o Dir::State::lists="$destino/apt/lists"
        -o Dir::State::status=/dev/null -o Dir::Cache="$destino/apt" -o APT::Sandbox::User=root)
    rm -rf "$destino"
    mkdir -p "$destino/apt/lists/partial" "$destino/apt/archives/partial"
    cd "$destino"
    # A source without 32-bit packages is no obstacle.
    timeout 120 "${apt[@]}" update || true
    timeout 300 "${apt[@]}" download wine32 libwine libc6 libgcc-s1 || return 1
    local paquete
    for paquete in ./*.deb; do dpkg-deb -x "$paquete" . || return 1; done
    rm -rf apt ./*.deb usr/lib/wine/wine-preloader
    local programa
    # A search path of the old kind, which also serves what the C library itself loads later.
    for programa in wine wineserver32; do
        patchelf --set-interpreter "$destino/lib/ld-linux.so.2" --force-rpath --set-rpath "$destino/lib/i386-linux-gnu" \
            "usr/lib/wine/$programa" || return 1
    done
    touch listo
}

if [ ! -e "$destino/listo" ]; then desempaquetar >"$raiz/build/wine32.log" 2>&1 || true; fi
if ! [ -e "$destino/listo" ]; then
    echo "no hay paquetes i386 de Wine: $(tail -n 1 "$raiz/build/wine32.log")" >&2
    exit 1
fi
"$cargador" --version >/dev/null || { echo "el núcleo no ejecuta programas de 32 bits" >&2; exit 1; }
echo "$cargador"
