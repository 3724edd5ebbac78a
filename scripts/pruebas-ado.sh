# Sourced by test-windows.sh: its stages for ADO, which use its Wine and its temporary folder.

# The data source KVPrueba: a new, empty SQLite file through Debian's driver.
preparar_odbc() {
    local controlador
    controlador=$(find /usr/lib -name libsqlite3odbc.so | head -1)
    printf '[KVPrueba]\nDriver=%s\nDatabase=%s\n' "$controlador" "$trabajo/odbc.db" >"$trabajo/odbc.ini"
    : >"$trabajo/odbcinst.ini"
    rm -f "$trabajo/odbc.db"
    export ODBCINI=$trabajo/odbc.ini ODBCSYSINI=$trabajo
}

# probar_ejemplos: both examples run as far as they can without a database, and say so by their exit codes. A script that
# cannot be parsed would end with 0.
probar_ejemplos() {
    local codigo=0
    vino 60 cscript //nologo "Z:$raiz/examples/precio.vbs" || codigo=$?
    [ "$codigo" -eq 2 ] || { echo "precio.vbs sale con $codigo"; return 1; }
    codigo=0
    vino 60 "$construido/examples/precio.exe" || codigo=$?
    [ "$codigo" -eq 2 ] || { echo "precio.exe sale con $codigo"; return 1; }
}

# probar_ado BITS: the declarations against the platform's, the values, the adapter over ADO-shaped objects, and the
# adapter over Wine's own ADO, which shows what it leaves out; with 64 bits also the contract through odbc32 and a driver.
probar_ado() {
    if [ "$1" -eq 64 ]; then
        preparar_odbc
        export KV_ORIGEN=KVPrueba
    fi
    probar '-Registrada.*:SinRegistrar.*:Sistema.*'
    unset KV_ORIGEN
}
