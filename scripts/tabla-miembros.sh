#!/usr/bin/env bash
# The table of the public members in docs/com.md, made from the IDL.
# Usage: scripts/tabla-miembros.sh [--escribir | --comprobar]   without an option it prints the table
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
documento=docs/com.md

tabla() {
    echo '| Slot | Member | Type | Access |'
    echo '|---:|---|---|---|'
    # One declaration a line, then one line a member: its getter brings the name and the type, the others their access.
    tr -s '\n\r\t ' ' ' <component/com/KVDatosArt.idl | sed 's/; */;\n/g' | sed -n 's/.*\[id(\([0-9]*\))\(.*\)/\1 \2/p' | awk '
        BEGIN {
            split("long Long;short Integer;BSTR String;CURRENCY Currency;double Double;float Single;unsigned_char Byte;" \
                  "VARIANT_BOOL Boolean;DATE Date;IDispatch Object;_clsDatosArt clsDatosArt", pares, ";")
            for (i in pares) { split(pares[i], par, " "); tipos[par[1]] = par[2] }
        }
        function tipo(texto,   s) {
            s = texto
            sub(/^ *\[[^]]*\] */, "", s); sub(/unsigned char/, "unsigned_char", s); sub(/[ *]+[A-Za-z_]+$/, "", s); sub(/ *\*+.*$/, "", s)
            return s in tipos ? tipos[s] : "?" s
        }
        {
            id = $1; resto = $0
            acceso = /propputref/ ? "set" : /propput/ ? "let" : /propget/ ? "get" : "method"
            sub(/^.*HRESULT /, "", resto); nombre = resto; sub(/\(.*/, "", nombre)
            sub(/^[^(]*\(/, "", resto); sub(/\);.*$/, "", resto)
            gsub(/defaultvalue\(0\)/, "defaultvalue=0", resto)
            n = split(resto, partes, /, *\[/)
            if (acceso == "method") {
                firma = ""
                for (i = 1; i < n; ++i) {
                    parte = i == 1 ? partes[i] : "[" partes[i]
                    argumento = parte; sub(/^.* \**/, "", argumento)
                    if (parte ~ /optional/) argumento = "[" argumento "]"
                    firma = firma (i == 1 ? "" : ", ") argumento " " tipo(parte)
                }
                nombre = nombre "(" firma ")"
                tipos_de[id] = tipo("[" partes[n])
            } else if (!(id in tipos_de)) tipos_de[id] = tipo(resto)
            if (!(id in nombres)) { nombres[id] = nombre; orden[++cuantos] = id }
            accesos[id] = accesos[id] (accesos[id] == "" ? "" : ", ") acceso
        }
        END { for (i = 1; i <= cuantos; ++i) { id = orden[i]; printf "| %d | `%s` | %s | %s |\n", id, nombres[id], tipos_de[id], accesos[id] } }'
}

# The document with its table, between the two marks, made anew.
documento_nuevo() {
    sed '/^<!-- members: begin -->$/q' "$documento"
    tabla
    sed -n '/^<!-- members: end -->$/,$p' "$documento"
}

case "${1:-}" in
    '') tabla ;;
    --escribir) nuevo=$(documento_nuevo) && printf '%s\n' "$nuevo" >"$documento" ;;
    --comprobar)
        [ "$(tabla | grep -c '^| [0-9]')" -eq 48 ] || { echo "no salen 48 miembros"; exit 1; }
        diff "$documento" <(documento_nuevo) || { echo "ejecute scripts/tabla-miembros.sh --escribir"; exit 1; }
        ;;
    *) echo "tabla-miembros.sh: opción desconocida: $1" >&2; exit 2 ;;
esac
