#!/usr/bin/env bash
# Installs the Debian packages that the build and the tests need, when they are missing.
# Usage: scripts/instalar.sh [grupo...]   groups: nativo (default), windows, odbc, paquetes, bench, navegador
set -euo pipefail

paquetes() {
    case "$1" in
        nativo) echo g++ cmake ninja-build pkg-config libsqlite3-dev unixodbc-dev libutf8proc-dev libcli11-dev nlohmann-json3-dev libxlsxwriter-dev python3-openpyxl parallel libcpp-httplib-dev libgtest-dev clang-format locales man-db sqlite3 python3 ;;
        windows) echo g++-mingw-w64-x86-64 g++-mingw-w64-i686 mingw-w64-tools libwine-dev wine64 wine patchelf unixodbc libsqliteodbc googletest libz-mingw-w64-dev dpkg-dev tcl ;;
        odbc) echo unixodbc libsqliteodbc odbc-postgresql postgresql tdsodbc ;;
        paquetes) echo dpkg-dev file lintian debootstrap zip unzip ;;
        navegador) echo chromium chromium-l10n chromium-driver python3-selenium fonts-dejavu-core ;;
        bench) echo libbenchmark-dev libsoci-dev libboost-dev valgrind ;;
        fuzz) echo clang libclang-rt-14-dev llvm ;;
        *) echo "instalar.sh: grupo desconocido: $1" >&2; exit 2 ;;
    esac
}

como_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

faltan=()
for grupo in "${@:-nativo}"; do
    for paquete in $(paquetes "$grupo"); do
        dpkg-query -W -f='${Status}' "$paquete" 2>/dev/null | grep -q 'install ok installed' || faltan+=("$paquete")
    done
done
if [ "${#faltan[@]}" -gt 0 ]; then
    echo "Instalando: ${faltan[*]}"
    como_root apt-get update -qq
    como_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
fi
# The tests ask the same in a Spanish and in an English locale.
if [[ " ${*:-nativo} " == *" nativo "* ]]; then
    hay=$(locale -a)
    for idioma in es_ES en_US; do
        grep -qi "^$idioma.utf-\?8$" <<<"$hay" || como_root localedef -i "$idioma" -f UTF-8 "$idioma.UTF-8"
    done
fi
