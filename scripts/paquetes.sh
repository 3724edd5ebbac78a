#!/usr/bin/env bash
# Makes the packages into dist/, with their sums: the program and its libraries for Debian, the program and the
# component for Windows (when scripts/build-windows.sh has built them). The same source makes the same bytes, wherever
# it lies. Usage: scripts/paquetes.sh [--todo]   with --todo also tries them out: lintian, a clean Debian, a fresh Wine
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"
[ $# -eq 0 ] || [ "$*" = --todo ] || { echo "uso: scripts/paquetes.sh [--todo]" >&2; exit 2; }

scripts/instalar.sh nativo paquetes
export SOURCE_DATE_EPOCH LC_ALL=C.UTF-8
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l paquetes/changelog -S Timestamp)
version=$(dpkg-parsechangelog -l paquetes/changelog -S Version)
umask 022
rm -rf dist
mkdir dist

# What is compiled does not say where.
construir paquetes "-DCMAKE_CXX_FLAGS='-ffile-prefix-map=$raiz=.' -fstack-protector-strong -D_FORTIFY_SOURCE=2" \
    "-DCMAKE_EXE_LINKER_FLAGS=-Wl,-z,relro,-z,now"
cpack --config build/paquetes/CPackConfig.cmake -B dist >dist/cpack.log || { cat dist/cpack.log; exit 1; }
rm -rf dist/_CPack_Packages dist/cpack.log

# de_windows BITS TRIPLE: the component for those programs.
de_windows() {
    local com=build/mingw-$2/component/com
    mkdir -p "$zip/$1"
    cp "$com/KVDatosArt.dll" "$com/KVDatosArt.tlb" "$com/KVDatosArt.manifest" "$zip/$1"
}
programa=$(find build/mingw-* -name kvdatosart.exe -print -quit 2>/dev/null || true)
if [ -n "$programa" ] && [ -e build/mingw-i686/component/com/KVDatosArt.dll ]; then
    nombre=kvdatosart-$version-windows
    trabajo=$(mktemp -d)
    trap 'rm -rf "$trabajo"' EXIT
    zip=$trabajo/$nombre
    de_windows x64 x86_64
    de_windows x86 i686
    cp "$programa" "$zip"
    mkdir "$zip/ejemplos"
    cp examples/precio.cpp examples/precio.vbs "$zip/ejemplos"
    cp docs/manual.md docs/*.svg "$zip"
    # Notepad of every Windows: the mark that says UTF-8, and its line ends.
    (printf '\xef\xbb\xbf'; cat paquetes/LEEME.txt) | sed 's/$/\r/' >"$zip/LEEME.txt"
    # There the libraries that Debian has apart are linked in, too.
    cat build/paquetes/paquetes/copyright /usr/share/doc/{libsqlite3-dev,libutf8proc-dev,libxlsxwriter-dev,libz-mingw-w64-dev,mingw-w64-common}/copyright |
        sed 's/$/\r/' >"$zip/LICENCIAS.txt"
    x86_64-w64-mingw32-strip "$zip"/*.exe "$zip"/x64/*.dll
    i686-w64-mingw32-strip "$zip"/x86/*.dll
    find "$zip" -exec touch -d "@$SOURCE_DATE_EPOCH" {} +
    (cd "$trabajo" && find "$nombre" -type f | sort | TZ=UTC zip -qX9 "$raiz/dist/$nombre.zip" -@)
else
    echo "sin el zip de Windows: antes se hace scripts/build-windows.sh"
fi
(cd dist && sha256sum -- *.deb *.zip 2>/dev/null >SHA256SUMS || sha256sum -- *.deb >SHA256SUMS)
[ $# -eq 0 ] || scripts/probar-paquetes.sh
cat dist/SHA256SUMS
