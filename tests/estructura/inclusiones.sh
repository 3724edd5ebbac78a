#!/usr/bin/env bash
# Rejects an include that goes against the direction of the folders, and native database headers outside adapters.
set -euo pipefail
cd "$1"

# Folder: the folders that it may include besides itself.
declare -A permitidas=(
    [base]=""
    [db]="base"
    [db/sqlite]="base db"
    [db/odbc]="base db"
    [db/ado]="base db"
    [stock]="base db"
    [customers]="base db"
    [rules]="base db stock"
    [pricing]="base db stock customers rules"
    [component]="base db stock customers rules pricing"
    [catalog]="base db stock customers rules pricing component"
    [component/com]="base db db/ado stock customers rules pricing component"
    [schema]="base db"
    [application]="base db db/sqlite db/odbc stock customers rules pricing component catalog schema"
    [host]="base db stock customers rules pricing component catalog application"
    [host/web]="base db catalog application host"
    [host/cli]="base db catalog application host host/web"
)

carpeta_de() {
    local ruta=$1
    local dir=${ruta%/*}
    while [ "$dir" != "${dir%/*}" ] && [ -z "${permitidas[$dir]+x}" ]; do dir=${dir%/*}; done
    echo "$dir"
}

mal=0
comprobar() {
    local fichero=$1 propia incluida destino
    propia=$(carpeta_de "$fichero")
    while read -r incluida; do
        destino=$(carpeta_de "$incluida")
        [ "$destino" = "$propia" ] && continue
        case " ${permitidas[$propia]} " in
            *" $destino "*) ;;
            *) echo "$fichero incluye $incluida: $propia no puede usar $destino"; mal=1 ;;
        esac
    done < <(sed -n 's|^#include "kvdatosart/\(.*\)"$|\1|p' "$fichero" | grep / || true)
    if grep -n '^#include ".*/' "$fichero" | grep -v '"kvdatosart/'; then
        echo "$fichero: una cabecera propia empieza por kvdatosart/"
        mal=1
    fi
    # What a person asks knows neither how it is read nor how it is written.
    if [ "$propia" = application ] &&
        grep -nE '#include <(CLI/.*|nlohmann/.*|iostream|ostream|istream|fstream|sstream|cstdio)>' "$fichero"; then
        echo "$fichero: flujo, línea de órdenes o JSON en application"
        mal=1
    fi
    case "$propia" in db/sqlite | db/odbc | db/ado | component/com) return ;; esac
    # What a folder takes from Windows stands apart from what it takes from other systems.
    case "$fichero" in *Windows.cpp) return ;; esac
    if grep -nE '#include <(sqlite3|sql|sqlext|windows|oaidl|ole2)\.h>' "$fichero"; then
        echo "$fichero: cabecera nativa fuera de un adaptador"
        mal=1
    fi
}

while read -r carpeta; do
    [ -n "${permitidas[$carpeta]+x}" ] || { echo "$carpeta: no dice aquí a quién puede usar"; mal=1; }
done < <(grep -l '^kv_biblioteca(' */CMakeLists.txt */*/CMakeLists.txt | sed 's|/CMakeLists.txt||')
for carpeta in "${!permitidas[@]}"; do
    [ -d "$carpeta" ] || { echo "$carpeta: no existe"; mal=1; }
done

cuantos=0
while read -r fichero; do
    comprobar "$fichero"
    cuantos=$((cuantos + 1))
done < <(find "${!permitidas[@]}" -type f \( -name '*.h' -o -name '*.cpp' \) | sort -u)
[ "$cuantos" -gt 0 ] || { echo "no hay ficheros que comprobar"; exit 1; }
exit "$mal"
