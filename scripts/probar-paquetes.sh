#!/usr/bin/env bash
# Tries out what scripts/paquetes.sh left in dist/: lintian; installed, used and removed in a clean Debian; the zip
# unpacked into a folder with blanks and an ñ in a fresh Wine, the component registered, asked and unregistered. As root.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
export LC_ALL=C.UTF-8
(cd dist && sha256sum --quiet -c SHA256SUMS)

echo '== lintian'
lintian --fail-on error,warning dist/*.deb

echo '== un Debian limpio'
debian=$(mktemp -d)
desmontar() { rm -rf --one-file-system "$debian" "$debian.log"; }
trap desmontar EXIT
chmod 755 "$debian"
# The release that they were made on.
. /etc/os-release
debootstrap --variant=minbase "$VERSION_CODENAME" "$debian" >"$debian.log" || { tail "$debian.log"; exit 1; }
dentro() { chroot "$debian" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
cp dist/*.deb "$debian/tmp"
cp -r examples/nativo "$debian/tmp"
dentro sh -ec 'apt-get update -qq; apt-get install -y -qq --no-install-recommends /tmp/kvdatosart_*.deb >/dev/null'
dentro sh -ec '
    cd /tmp
    kvdatosart crear-demo tienda.kv
    kvdatosart cargar --base tienda.kv --articulo 113 --cliente 11 | grep -x "Precio  *15.51"
    test -s /usr/share/man/man1/kvdatosart.1.gz && test -s /usr/share/bash-completion/completions/kvdatosart'
dentro sh -ec '
    apt-get install -y -qq --no-install-recommends /tmp/libkvdatosart-dev_*.deb cmake make g++ libsqlite3-dev >/dev/null
    cmake -S /tmp/nativo -B /tmp/ejemplos >/dev/null
    cmake --build /tmp/ejemplos >/dev/null
    /tmp/ejemplos/linea /tmp/tienda.kv 113 11 | grep "Detergente industrial 10 l: 15.51"'
dentro sh -ec '
    apt-get purge -y -qq kvdatosart libkvdatosart-dev >/dev/null
    ! find /usr -ipath "*kvdatosart*" | grep .'

compgen -G 'dist/*.zip' >/dev/null || exit 0
echo '== el zip en un Wine nuevo'
scripts/instalar.sh windows
windows=$(mktemp -d)
carpeta="$windows/Año nuevo ñ"
export WINEPREFIX=$windows/wine WINEARCH=win64 WINELOADER=/usr/lib/wine/wine64 WINESERVER=/usr/lib/wine/wineserver64
export WINEDLLOVERRIDES="mscoree,mshtml=" WINEDEBUG=-all
unset DISPLAY
trap 'timeout 30 "$WINESERVER" -k || true; rm -rf "$windows"; desmontar' EXIT
vino() { timeout 120 "$WINELOADER" "$@" </dev/null 2>/dev/null | tr -d '\r'; }
vino wineboot -i
unzip -q dist/*.zip -d "$carpeta"
cd "$carpeta"/kvdatosart-*
vino kvdatosart.exe crear-demo 'tienda ñ.kv'
vino kvdatosart.exe cargar --base 'tienda ñ.kv' --articulo 113 --cliente 11 | grep -E '^Precio +15[.,]51$'
cat >crear.vbs <<'FIN'
WScript.Echo "Precio de un objeto nuevo: " & CreateObject("KVDatosArt.clsDatosArt").Pvp
FIN
vino regsvr32 /s 'x64\KVDatosArt.dll'
vino cscript //nologo crear.vbs | grep 'Precio de un objeto nuevo: 0'
vino regsvr32 /s /u 'x64\KVDatosArt.dll'
! vino reg query 'HKLM\Software\Classes\KVDatosArt.clsDatosArt' || { echo 'queda registrada'; exit 1; }
