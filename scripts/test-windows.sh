#!/usr/bin/env bash
# Records native loads and replays them through the registered DLL under Wine, without a display. After build-windows.sh.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

scripts/instalar.sh nativo windows
cmake --preset dev --log-level=WARNING >/dev/null
cmake --build --preset dev --target grabar

trabajo=$(mktemp -d)
export WINEPREFIX=$trabajo/wine WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=-all
unset DISPLAY
trap 'timeout 30 wineserver -k || true; rm -rf "$trabajo"' EXIT
dll=$raiz/build/mingw-x86_64/component/com/KVDatosArt.dll
clase='HKLM\Software\Classes\KVDatosArt.clsDatosArt'

echo "Importaciones y exportaciones"
tabla=$(x86_64-w64-mingw32-objdump -p "$dll")
ajenas=$(sed -n 's/.*DLL Name: //p' <<<"$tabla" | grep -viE '^(advapi32|kernel32|msvcrt|ole32|oleaut32|user32)\.dll$' || true)
[ -z "$ajenas" ] || { echo "importa $ajenas"; exit 1; }
[ "$(grep -cE '\] Dll(CanUnloadNow|GetClassObject|RegisterServer|UnregisterServer)$' <<<"$tabla")" -eq 4 ]

echo "Registro, repetición y retirada"
timeout 180 wineboot -i </dev/null >/dev/null 2>&1
"$raiz/build/dev/tests/com/grabar" "$trabajo/cargas.txt"
timeout 60 wine regsvr32 /s "Z:$dll" </dev/null
timeout 60 wine reg query "$clase" </dev/null >/dev/null
timeout 300 wine "$raiz/build/mingw-x86_64/tests/com/prueba_com.exe" "Z:$trabajo/cargas.txt" </dev/null
timeout 60 wine regsvr32 /s /u "Z:$dll" </dev/null
timeout 60 wineserver -w || true
if timeout 60 wine reg query "$clase" </dev/null >/dev/null 2>&1; then echo "queda registrada"; exit 1; fi
if grep -qi '1fa74086-df09-486c-a741-27a97c598ef0\|002eef61-6083-45a8-a783-8e77d15e2010' "$WINEPREFIX"/*.reg; then
    echo "quedan claves"; exit 1
fi
echo "Correcto"
