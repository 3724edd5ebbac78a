#!/usr/bin/env bash
# Installs the Debian packages that the build and the tests need, when they are missing.
# Usage: scripts/instalar.sh [grupo...]   groups: nativo (default), windows, odbc, bench
set -euo pipefail

paquetes() {
    case "$1" in
        nativo) echo g++ cmake ninja-build libsqlite3-dev unixodbc-dev libcli11-dev nlohmann-json3-dev libgtest-dev librapidcheck-dev clang-format ;;
        windows) echo g++-mingw-w64-x86-64 g++-mingw-w64-i686 mingw-w64-tools libwine-dev wine64 wine patchelf unixodbc libsqliteodbc googletest ;;
        odbc) echo unixodbc libsqliteodbc odbc-postgresql postgresql tdsodbc ;;
        bench) echo libbenchmark-dev libsoci-dev libboost-dev valgrind ;;
        *) echo "instalar.sh: grupo desconocido: $1" >&2; exit 2 ;;
    esac
}

faltan=()
for grupo in "${@:-nativo}"; do
    for paquete in $(paquetes "$grupo"); do
        dpkg-query -W -f='${Status}' "$paquete" 2>/dev/null | grep -q 'install ok installed' || faltan+=("$paquete")
    done
done
if [ "${#faltan[@]}" -gt 0 ]; then
    echo "Instalando: ${faltan[*]}"
    orden=()
    [ "$(id -u)" -eq 0 ] || orden=(sudo)
    "${orden[@]}" apt-get update -qq
    "${orden[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
fi
