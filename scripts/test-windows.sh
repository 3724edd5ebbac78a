#!/usr/bin/env bash
# Records native loads and tests both DLLs under Wine with them, and kvdatosart.exe, without a display. After
# build-windows.sh.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
. scripts/pruebas-ado.sh
. scripts/pruebas-programa.sh

scripts/instalar.sh nativo windows
cmake --preset dev --log-level=WARNING >/dev/null
cmake --build --preset dev --target grabar

trabajo=$(mktemp -d)
# The locale decides how texts reach an ODBC driver without wide functions.
export WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=-all LC_ALL=C.UTF-8
unset DISPLAY
trap 'parar_wine; rm -rf "$trabajo"' EXIT

etapa() { echo "== $1"; }

# vino SEGUNDOS PROGRAMA...: runs a Windows program within a time limit.
vino() { timeout "$1" "$WINELOADER" "${@:2}" </dev/null 2> >(grep -viE 'freetype|TrueType|2\.0\.5' >&2 || true); }

# de_bits BITS: the paths of that build.
de_bits() {
    if [ "$1" -eq 64 ]; then triple=x86_64; else triple=i686; fi
    construido=$raiz/build/mingw-$triple
    dll=$construido/component/com/KVDatosArt.dll
    export KV_GRABACION=Z:$trabajo/cargas.txt KV_MANIFIESTO=Z:$construido/component/com/KVDatosArt.manifest
}

# comprobar_dll BITS: what it imports and exports, and the type library inside it.
comprobar_dll() {
    local tabla ajenas exportadas tipos desde sistema
    tabla=$("$triple-w64-mingw32-objdump" -p "$dll")
    ajenas=$(sed -n 's/.*DLL Name: //p' <<<"$tabla" | grep -viE '^(advapi32|kernel32|msvcrt|ole32|oleaut32|user32)\.dll$' || true)
    exportadas=$(sed -n '/Ordinal\/Name Pointer/,/^$/s/^\s*\[ *[0-9]*\] //p' <<<"$tabla" | tr '\n' ' ')
    [ "$exportadas" = "DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer " ] ||
        { echo "exporta $exportadas"; return 1; }
    tipos=$construido/component/com/KVDatosArt.tlb
    desde=$(grep -obUaP 'MSFT\x02\x00' "$dll" | head -n 1 | cut -d: -f1)
    cmp -n "$(stat -c %s "$tipos")" -i "$desde:0" "$dll" "$tipos"
    # The kind of system in the library's header: 1 is Windows of 32 bits, 3 of 64.
    sistema=$(od -An -tu1 -j20 -N1 "$tipos")
    [ $((sistema & 15)) -eq "$([ "$1" -eq 64 ] && echo 3 || echo 1)" ] || { echo "biblioteca de tipos de otro sistema"; return 1; }
}

# arrancar_wine BITS: an empty Wine; fails, saying why, when there is none for those bits.
arrancar_wine() {
    export WINEPREFIX=$trabajo/wine$1 WINEARCH=win$1
    if [ "$1" -eq 64 ]; then
        export WINELOADER=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
    else
        WINELOADER=$(scripts/wine32.sh) || return 1
        export WINELOADER WINESERVER=${WINELOADER}server32
        # Debian's Wine of 32 bits takes this one from beside the compiler.
        mkdir -p "$WINEPREFIX/drive_c/windows/system32"
        cp /usr/i686-w64-mingw32/lib/zlib1.dll "$WINEPREFIX/drive_c/windows/system32"
    fi
    vino 180 wineboot -i >/dev/null 2>&1
    # Windows that open where nobody sees them, from the next start on.
    vino 60 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null
    esperar_wine
}

esperar_wine() { timeout 60 "$WINESERVER" -w || true; }
parar_wine() { [ -z "${WINESERVER:-}" ] || timeout 30 "$WINESERVER" -k || true; }

registrar() {
    vino 60 regsvr32 /s "Z:$dll"
    vino 60 reg query 'HKLM\Software\Classes\KVDatosArt.clsDatosArt' >/dev/null
}

retirar() {
    vino 60 regsvr32 /s /u "Z:$dll"
    esperar_wine
    if grep -i '1fa74086-df09-486c-a741-27a97c598ef0\|002eef61-6083-45a8-a783-8e77d15e2010\|KVDatosArt.clsDatosArt' "$WINEPREFIX"/*.reg; then
        echo "quedan claves"
        return 1
    fi
}

# probar FILTER: a stage of the tests' program.
probar() { vino 300 "$construido/tests/com/prueba_com.exe" --gtest_brief=1 --gtest_filter="$1"; }

# sistema: what Windows gives a program without the DLL, in two zones between which it is never the same day.
sistema() {
    local zona
    for zona in Etc/GMT+12 Etc/GMT-14; do
        TZ=$zona KV_HOY=$(TZ=$zona date +%d/%m/%Y) probar 'Sistema.*'
    done
}

# guion HOST OPTION: the class from a script; 42 says that all of it ran, since a script host ends with 0 after an error
# that nobody caught.
guion() {
    local final=0
    vino 120 "$1" "$2" "Z:$raiz/tests/com/objeto.vbs" || final=$?
    [ "$final" -eq 42 ] || { echo "$1 objeto.vbs: termina con $final"; return 1; }
}

# medir: what a load costs through COM; few rounds here, for the figures give more.
medir() { vino 300 "$construido/bench/com/medir_com.exe" "Z:$trabajo/cargas.txt" "${1:-3}"; }

"$raiz/build/dev/tests/com/grabar" "$trabajo/cargas.txt"
for bits in 64 32; do
    de_bits "$bits"
    etapa "$bits bits: importaciones, exportaciones y biblioteca de tipos"
    comprobar_dll "$bits"
    if ! arrancar_wine "$bits"; then
        [ "$bits" -eq 32 ] || exit 1
        echo "OMITIDO: los 32 bits no se ejecutan, no hay un Wine para ellos"
        continue
    fi
    etapa "$bits bits: registro, repetición, ranuras y objetos"
    registrar
    probar 'Registrada.*'
    etapa "$bits bits: guiones"
    guion cscript //nologo
    guion wscript //B
    etapa "$bits bits: coste de una carga"
    medir
    retirar
    etapa "$bits bits: fecha, separador y mensaje de Windows"
    sistema
    etapa "$bits bits: claves del registro y uso sin registro"
    probar 'SinRegistrar.*'
    etapa "$bits bits: ADO"
    probar_ado "$bits"
    etapa "$bits bits: ejemplos"
    probar_ejemplos
    if [ "$bits" -eq 64 ]; then
        etapa "kvdatosart.exe"
        probar_programa
    fi
    parar_wine
done
echo "Correcto"
