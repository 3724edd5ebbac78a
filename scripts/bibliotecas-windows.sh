#!/usr/bin/env bash
# Makes build/bibliotecas-windows, what kvdatosart.exe is linked with: SQLite and utf8proc built from Debian's own
# sources, so that both systems have one version, and the headers of those that are headers alone. A prefix of its own,
# since the compiler must not see the rest of this machine's headers.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/comun.sh"

destino=$raiz/build/bibliotecas-windows
fuentes=$destino/fuentes
# Made anew when this script says something else.
version=$(sha256sum <scripts/bibliotecas-windows.sh)
[ ! -e "$destino/listo" ] || [ "$(cat "$destino/listo")" != "$version" ] || exit 0
rm -rf "$destino"
mkdir -p "$destino"/{include,lib/pkgconfig,share/cmake,apt/lists/partial,apt/archives/partial} "$fuentes"

# Lists of sources of its own: the machine's seldom have any.
. /etc/os-release
for lista in "debian $VERSION_CODENAME" "debian-security $VERSION_CODENAME-security"; do
    echo "deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] http://deb.debian.org/$lista main"
done >"$destino/apt/sources.list"
apt=(apt-get -qq -o Dir::Etc::SourceList="$destino/apt/sources.list" -o Dir::Etc::SourceParts=-
    -o Dir::State::lists="$destino/apt/lists" -o Dir::Cache="$destino/apt" -o APT::Sandbox::User=root)

compilar() { x86_64-w64-mingw32-gcc-posix -O2 -c "$@"; }
archivar() { x86_64-w64-mingw32-ar crs "$destino/lib/lib$1.a" "${@:2}"; }

# The one big file that SQLite is compiled as, with those of Debian's settings by which our use of it can tell.
hacer_sqlite() {
    cd "$fuentes"/sqlite3-*/
    ./configure --disable-shared --disable-readline
    make -s sqlite3.c
    compilar -DSQLITE_THREADSAFE=1 -DSQLITE_SECURE_DELETE -DSQLITE_LIKE_DOESNT_MATCH_BLOBS -DSQLITE_USE_URI \
        -DSQLITE_OMIT_LOAD_EXTENSION sqlite3.c
    archivar sqlite3 sqlite3.o
    cp sqlite3.h "$destino/include"
}

# describir NAME LIBS CFLAGS: what pkg-config is asked for of the source in which one stands.
describir() {
    cat >"$destino/lib/pkgconfig/$1.pc" <<FIN
Name: $1
Description: $1, for Windows
Version: $(dpkg-parsechangelog -S Version | sed 's/[+-].*//')
Libs: -L$destino/lib $2
Cflags: -I$destino/include $3
FIN
}

hacer_utf8proc() {
    cd "$fuentes"/utf8proc-*/
    compilar -DUTF8PROC_STATIC utf8proc.c
    archivar utf8proc utf8proc.o
    cp utf8proc.h "$destino/include"
    describir libutf8proc -lutf8proc -DUTF8PROC_STATIC
}

# Whole, as a header: Debian's package has it parted, with a library of its own.
hacer_httplib() {
    cd "$fuentes"/cpp-httplib-*/
    cp httplib.h "$destino/include"
    describir cpp-httplib -lws2_32 ''
}

# With the writer of ZIP files that comes with it. Under this compiler it would take a file's name for one in the code
# page; it has the road by UTF-16 for others.
hacer_xlsxwriter() {
    cd "$fuentes"/libxlsxwriter-*/
    sed -i '/^#undef _WIN32$/d' src/packager.c
    compilar -Iinclude src/*.c third_party/{tmpfileplus/tmpfileplus,md5/md5,minizip/zip,minizip/ioapi,minizip/iowin32}.c
    archivar xlsxwriter ./*.o
    cp -r include/xlsxwriter include/xlsxwriter.h "$destino/include"
    cp /usr/x86_64-w64-mingw32/lib/libz.a "$destino/lib"
    describir xlsxwriter '-lxlsxwriter -lz' ''
}

# copiar CMAKE HEADERS: a library of headers with its CMake package, which looks for them beside itself.
copiar() {
    cp -r "/usr/share/cmake/$1" "$destino/share/cmake"
    cp -r "/usr/include/$2" "$destino/include"
}

# Shown only when something fails.
registro=$raiz/build/bibliotecas-windows.log
exec 3>&2 >"$registro" 2>&1
trap '[ -e "$destino/listo" ] || tail -n 20 "$registro" >&3' EXIT
"${apt[@]}" update
(cd "$fuentes" && "${apt[@]}" source sqlite3 utf8proc cpp-httplib libxlsxwriter)
(hacer_sqlite)
(hacer_utf8proc)
(hacer_httplib)
(hacer_xlsxwriter)
copiar CLI11 CLI
copiar nlohmann_json nlohmann
rm -rf "$destino/apt" "$fuentes"
echo "$version" >"$destino/listo"
