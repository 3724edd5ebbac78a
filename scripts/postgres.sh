#!/usr/bin/env bash
# A PostgreSQL server of its own for the tests: a temporary folder, a local socket, nothing on the network.
#   scripts/postgres.sh arrancar FICHERO   writes the ODBC connection string to FICHERO, or "falta: " and the reason
#   scripts/postgres.sh parar FICHERO      stops the server that FICHERO speaks of and removes what it left
set -euo pipefail

orden=$1
fichero=$2

falta() {
    echo "postgres.sh: $1"
    echo "falta: $1" >"$fichero"
    exit 0
}

# The server refuses to run as root.
como_postgres() {
    if [ "$(id -u)" -eq 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi
}

# The newest of the installed versions.
programas() { ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1; }

arrancar() {
    local bin carpeta controlador
    bin=$(programas)
    [ -x "$bin/pg_ctl" ] || falta "no hay PostgreSQL (paquete postgresql)"
    controlador=$(ls /usr/lib/*/odbc/psqlodbcw.so 2>/dev/null | head -n 1)
    [ -n "$controlador" ] || falta "no hay controlador ODBC de PostgreSQL (paquete odbc-postgresql)"
    # The path of a socket may not be long.
    carpeta=$(mktemp -d /tmp/kvpg-XXXXXX)
    chmod 700 "$carpeta"
    [ "$(id -u)" -ne 0 ] || chown postgres "$carpeta"
    cd "$carpeta"
    if ! como_postgres "$bin/initdb" -D "$carpeta/datos" -U postgres -A trust -E UTF8 --no-locale --no-sync \
            >"$carpeta/registro" 2>&1 ||
        ! como_postgres "$bin/pg_ctl" -D "$carpeta/datos" -l "$carpeta/servidor" -w -t 60 \
            -o "-c listen_addresses='' -k $carpeta -F -c datestyle=ISO,DMY" start >>"$carpeta/registro" 2>&1; then
        tail -n 20 "$carpeta/registro" "$carpeta/servidor" 2>/dev/null || true
        rm -rf "$carpeta"
        falta "PostgreSQL no arranca"
    fi
    echo "Driver=$controlador;Servername=$carpeta;Port=5432;Database=postgres;UID=postgres;BoolsAsChar=0" >"$fichero"
}

parar() {
    [ -f "$fichero" ] || exit 0
    local carpeta
    carpeta=$(sed -n 's/.*Servername=\(\/tmp\/kvpg-[^;]*\);.*/\1/p' "$fichero")
    rm -f "$fichero"
    [ -n "$carpeta" ] && [ -d "$carpeta" ] || exit 0
    cd "$carpeta"
    como_postgres "$(programas)/pg_ctl" -D "$carpeta/datos" -m immediate -w stop >/dev/null || true
    cd /
    rm -rf "$carpeta"
}

case "$orden" in
    arrancar)
        # What an interrupted run left behind.
        [ ! -f "$fichero" ] || "$0" parar "$fichero"
        arrancar
        ;;
    parar) parar ;;
    *) echo "postgres.sh: orden desconocida: $orden" >&2; exit 2 ;;
esac
