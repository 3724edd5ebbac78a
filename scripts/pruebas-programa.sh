# Sourced by test-windows.sh: its stages for kvdatosart.exe, which use its Wine and its temporary folder.

exe=$raiz/build/mingw-programa/host/kvdatosart.exe

# comprobar_programa: what it needs of the system, and that it says so of itself which code page it works in.
comprobar_programa() {
    local ajenas
    ajenas=$(x86_64-w64-mingw32-objdump -p "$exe" | sed -n 's/.*DLL Name: //p' |
        grep -viE '^(advapi32|kernel32|msvcrt|odbc32|shell32|user32|ws2_32)\.dll$' || true)
    [ -z "$ajenas" ] || { echo "importa $ajenas"; return 1; }
    grep -q '<activeCodePage [^>]*>UTF-8<' "$exe" || { echo "sin la página de códigos UTF-8"; return 1; }
}

# preparar_programa: a program of this system that runs it, for the tests that take one. With the server of Wine that
# stays, one start costs a twentieth of a second.
preparar_programa() {
    parar_wine
    "$WINESERVER" -p
    programa=$trabajo/kvdatosart
    printf '#!/bin/sh\nexec %q %q "$@"\n' "$WINELOADER" "$exe" >"$programa"
    chmod +x "$programa"
}

# probar_rutas: a file whose folder and name are Spanish, named in the command line and by the environment.
probar_rutas() {
    local carpeta="$trabajo/Año nuevo ñ" precio
    mkdir "$carpeta"
    "$programa" crear-demo "$carpeta/tienda ñ.kv" >/dev/null
    [ "$(ls "$carpeta")" = 'tienda ñ.kv' ] || { echo "ha hecho $(ls "$carpeta")"; return 1; }
    precio=$(cd "$carpeta" && KV_BASE='tienda ñ.kv' "$programa" cargar --articulo 113 --cliente 11 --json | grep '"precio"')
    [ "$precio" = '  "precio": 15.51,' ] || { echo "carga $precio"; return 1; }
    if precio=$("$programa" devpvp --base "$carpeta/no está.kv" --articulo 113 --tarifa 1 2>&1); then return 1; fi
    [ "$precio" = "kvdatosart: «$carpeta/no está.kv» no existe" ] || { echo "dice $precio"; return 1; }
}

# probar_tuberia: a reader that goes away is no failure.
probar_tuberia() {
    { sleep 0.3; "$programa" ayuda --man 2>"$trabajo/error.txt"; echo $? >"$trabajo/codigo.txt"; } | true
    [ "$(cat "$trabajo/codigo.txt" "$trabajo/error.txt")" = 0 ] || { cat "$trabajo/error.txt"; return 1; }
}

# probar_odbc: through odbc32 to a driver, whose database takes no session of ours, and back with what it says.
probar_odbc() {
    local dicho
    preparar_odbc
    if dicho=$("$programa" devpvp --odbc DSN=KVPrueba --articulo 1 --tarifa 1 2>&1); then return 1; fi
    [[ "$dicho" == *'el servidor no admite los ajustes: '*'[SQLite]near "SET": syntax error'* ]] ||
        { echo "dice $dicho"; return 1; }
}

# probar_programa: the tests of the other systems, byte by byte.
probar_programa() {
    comprobar_programa
    preparar_programa
    probar_rutas
    probar_tuberia
    probar_odbc
    KV_PROGRAMA=Z:$exe probar 'Consola.*'
    "$raiz/tests/host/transcripciones.sh" "$programa" es_ES.UTF-8
    KV_SIN_BYTES=1 "$raiz/tests/host/ordenes.sh" "$programa"
}
