#!/usr/bin/env bash
# Runs the host as a person does, on a demonstration database of its own: exit code and a text that must appear.
set -uo pipefail
programa=$(realpath "$1")
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
export LC_ALL=C
cd "$carpeta"
fallos=0
casos=0

# caso CODE TEXT ARGUMENT...: the text must appear in what the program writes, on either output.
caso() {
    local codigo=$1 texto=$2 salida real
    shift 2
    casos=$((casos + 1))
    salida=$("$programa" "$@" 2>&1 </dev/null)
    real=$?
    # A failure is one line, and nothing ever shows the password of a connection string.
    if [ "$real" -ne "$codigo" ] || [[ "$salida" != *"$texto"* || "$salida" == *secreta* ]] ||
        { [ "$real" -eq 3 ] && [ "$(wc -l <<<"$salida")" -ne 1 ]; }; then
        echo "FALLA: $*"
        echo "  esperado $codigo con «$texto»; real $real: $salida" | head -n 6
        fallos=$((fallos + 1))
    fi
}

b=(--base demo.kv)
manana=$(date -d '+40 days' +%d/%m/%Y)

caso 0 'Creada la base' crear-demo demo.kv
caso 3 'ya existe y no se toca' crear-demo demo.kv
caso 3 '«/no/hay/demo.kv» no se puede crear: su carpeta no existe (No such' crear-demo /no/hay/demo.kv
caso 0 'Precio      24.50' devpvp "${b[@]}" --articulo 102 --tarifa 1
caso 0 '"precio": 26.9' devpvp "${b[@]}" --articulo 102 --tarifa 1 --fecha "$manana" --json
caso 0 '|SELECT TOP 1 Cod_Tarifa, Pvp FROM Tarifas_Modificacion WHERE' \
    devpvp "${b[@]}" --articulo 102 --tarifa 1 --fecha "$manana" --forzar --traza
caso 0 'Precio      24.50' devpvp "${b[@]}" --empresa 2 --articulo 102 --tarifa 1 --fecha "$manana"
caso 0 'Precio      26.90' devpvp "${b[@]}" --empresa 2 --articulo 102 --tarifa 1 --fecha "$manana" --forzar
caso 0 'Precio      64.00' devpvp "${b[@]}" --articulo 103 --tarifa 1 --cualidad-x 42
caso 1 'no tiene precio en la tarifa 4' devpvp "${b[@]}" --articulo 101 --tarifa 4
caso 2 '--articulo: «abc» no vale' devpvp "${b[@]}" --articulo abc --tarifa 1
caso 2 '--tarifa: «40000» no vale; se espera un número entero de 1 a 32767' devpvp "${b[@]}" --articulo 1 --tarifa 40000
caso 2 '--fecha: «31/02/2026» no vale' devpvp "${b[@]}" --articulo 1 --tarifa 1 --fecha 31/02/2026
caso 2 'falta --articulo' devpvp "${b[@]}" --tarifa 1
caso 2 'falta el valor de --tarifa' devpvp "${b[@]}" --articulo 1 --tarifa
caso 2 'argumento desconocido: --nada' devpvp "${b[@]}" --articulo 1 --tarifa 1 --nada
caso 2 'orden desconocida: «cargr» (¿quiso decir cargar?); las de kvdatosart: crear-demo, devpvp, ' cargr "${b[@]}" --articulo 1
caso 2 'orden desconocida: «art»; las de kvdatosart' art
caso 2 'falta la orden antes de «--nada»; las de stock: ver, mover, ' stock --nada
caso 2 'falta --base FICHERO o --odbc CADENA' devpvp --articulo 1 --tarifa 1
caso 2 'se espera --base FICHERO o --odbc CADENA, no los dos' devpvp "${b[@]}" --odbc DSN=x --articulo 1 --tarifa 1
caso 3 'No se puede conectar' devpvp --odbc 'DRIVER=NoHay;UID=u;PWD=secreta' --articulo 1 --tarifa 1 --traza
caso 3 'No se puede conectar' cliente ver --odbc 'esto no es una cadena' --codigo 1
caso 2 'argumento desconocido: PWD' devpvp --odbc DSN=x PWD=secreta --articulo 1 --tarifa 1
caso 2 'se espera FICHERO o --odbc CADENA' crear-demo otra.kv --odbc 'DSN=x;PWD=secreta'
caso 3 'No se puede conectar' crear-demo --odbc 'DSN=nohay;PWD={secreta}'
caso 2 'no existe la empresa 9' devpvp "${b[@]}" --empresa 9 --articulo 1 --tarifa 1
caso 3 '«nohay.kv» no existe' devpvp --base nohay.kv --articulo 1 --tarifa 1
caso 0 'tarifa 4 (pedida)       sin fila ' cargar "${b[@]}" --articulo 101 --cliente 1 --tarifa 4 --explica
caso 0 'oferta 5 + 1 gratis' cargar "${b[@]}" --articulo 113 --cliente 11 --explica
caso 0 'lo sustituye: Precio del cliente' cargar "${b[@]}" --articulo 106 --cliente 3 --explica
caso 0 'fuera de sus fechas' cargar "${b[@]}" --articulo 101 --cliente 3 --explica
caso 0 '1 descuento vigente (acuerdo desde el 01/01/2024)' cargar "${b[@]}" --articulo 113 --cliente 11 --explica
caso 0 'hallado: 255.00 (acuerdo del 01/01/2024 al ' cargar "${b[@]}" --articulo 116 --cliente 20 --explica
caso 0 'acuerdo fuera de sus fechas: desde el 01/01/2024' \
    cargar "${b[@]}" --articulo 113 --cliente 11 --fecha 1/1/2023 --explica
caso 0 'Padre de venta              119' cargar "${b[@]}" --articulo 118 --cliente 1 --padre
caso 0 '"codigoEstado": 2' cargar "${b[@]}" --articulo 115 --cliente 1 --json
caso 1 'no existe el artículo 5555' cargar "${b[@]}" --articulo 5555 --cliente 1
caso 1 'no existe el almacén 77' cargar "${b[@]}" --articulo 101 --cliente 1 --almacen 77
caso 0 '"cualidadX": 42,' cargar "${b[@]}" --articulo 103 --cliente 1 --cualidad-x 42 --json
caso 2 'repetido --articulo' cargar "${b[@]}" --articulo 101 --articulo 102 --cliente 1
caso 1 'no existe el cliente 999' cargar "${b[@]}" --articulo 101 --cliente 999
caso 2 '--unidades: «1,23456» no vale' cargar "${b[@]}" --articulo 101 --cliente 1 --unidades 1,23456
caso 0 'Instalaciones Duero' cliente ver "${b[@]}" --codigo 4
caso 0 'Carpintería Encina' cliente siguiente "${b[@]}" --codigo 4
caso 0 'Instalaciones Duero 2' cliente siguiente "${b[@]}" --codigo 4 --por-nombre
caso 1 'no hay más clientes' cliente anterior "${b[@]}" --codigo 1
caso 1 'porque tiene dependencias' cliente eliminar "${b[@]}" --codigo 40
caso 0 'Cliente eliminado  44' cliente eliminar "${b[@]}" --codigo 44
caso 1 'no existe el cliente 44' cliente ver "${b[@]}" --codigo 44
caso 0 'Precio puesto' precios poner "${b[@]}" --articulo 101 --cliente 3 --desde 1/1/2026 --precio 77,5
caso 0 'Precio                      77.50' cargar "${b[@]}" --articulo 101 --cliente 3
caso 1 'ya hay un precio de ese artículo, cliente y fechas' precios poner "${b[@]}" --articulo 101 --cliente 3 --desde 1/1/2026 --precio 70
caso 0 'Precio cambiado' precios cambiar "${b[@]}" --articulo 101 --cliente 3 --desde 1/1/2026 --precio 78
caso 0 'Precio quitado' precios quitar "${b[@]}" --articulo 101 --cliente 3 --desde 1/1/2026
caso 1 'no hay un precio' precios quitar "${b[@]}" --articulo 101 --cliente 3 --desde 1/1/2026
caso 2 'es anterior a --desde' precios poner "${b[@]}" --articulo 1 --cliente 3 --desde 2/1/2026 --hasta 1/1/2026 --precio 1
caso 1 'se solapa con el de 1 a 9' dto-grupo poner "${b[@]}" --grupo 1 --clave 111-4-1-1-1 --minimo 5 --maximo 20 --descuento 3
caso 0 'Descuento puesto' dto-grupo poner "${b[@]}" --grupo 1 --clave 111-4-1-1-1 --minimo 100 --maximo 200 --descuento 3
caso 0 'Descuento de la línea %     3' cargar "${b[@]}" --articulo 111 --cliente 6 --unidades 150
caso 0 'Descuento quitado' dto-familia quitar "${b[@]}" --cliente 5 --clave 112-4-6-2-3
caso 0 'Descuento de la línea %     6' cargar "${b[@]}" --articulo 112 --cliente 5
caso 2 'el nivel va de 1 a 4' dto-familia poner "${b[@]}" --cliente 5 --clave 1-5-1-1-1 --descuento 1
caso 2 'va de 0 a 100' dto-familia poner "${b[@]}" --cliente 5 --clave 0-1-1-0-0 --descuento 101
caso 1 'cambios de tarifa sin uso' revisar "${b[@]}"
caso 1 '"articuloBase": 121,' revisar "${b[@]}" --json
caso 0 'Coste medio  0.79' stock mover "${b[@]}" --articulo 106 --tipo compra --unidades 100 --coste 0,95 --fichas
caso 0 'Existencias  470' stock mover "${b[@]}" --articulo 106 --tipo venta --unidades 30
caso 0 'Existencias  475' stock mover "${b[@]}" --articulo 106 --tipo devolucion --unidades 5
caso 0 'Existencias  14' stock mover "${b[@]}" --articulo 103 --tipo entrada --unidades 8 --coste 33 --cualidad-x 42 --cualidad-y 1
caso 2 'se espera una cantidad mayor que 0' stock mover "${b[@]}" --articulo 106 --tipo venta --unidades -1
caso 2 '--tipo: «robo» no vale' stock mover "${b[@]}" --articulo 106 --tipo robo --unidades 1
caso 1 'no existe el artículo 99999' stock mover "${b[@]}" --articulo 99999 --tipo compra --unidades 1
caso 1 'no existe el almacén 9' stock coste "${b[@]}" --articulo 106 --almacen 9 --coste 1
caso 0 'Bloqueado' stock bloquear "${b[@]}" --articulo 106
caso 0 'bloqueado en el almacén' cargar "${b[@]}" --articulo 106 --cliente 1
caso 0 '"bloqueado": false' stock desbloquear "${b[@]}" --articulo 106 --json
caso 0 '"pendienteServir": 4' stock pendiente "${b[@]}" --articulo 106 --servir 4 --json
# Windows hands over text, never bytes that are none.
[ -n "${KV_SIN_BYTES:-}" ] ||
    caso 2 'el argumento 10, tras --ubic1, no es texto UTF-8' stock ubicacion "${b[@]}" --articulo 106 --unidades 1 --ubic1 $'\xe9'
caso 0 'P1' stock ubicacion "${b[@]}" --articulo 106 --unidades 5 --ubic1 P1
caso 0 '"coste": 23.7' ventas acumular "${b[@]}" --articulo 106 --cliente 3 --unidades 30 --importe 47,1 --json
caso 0 '"unidades": 28' ventas acumular "${b[@]}" --articulo 106 --cliente 3 --unidades -2 --importe -3 --json
caso 0 'Acuerdo puesto' acuerdos poner "${b[@]}" --articulo 106 --nodo 1.1 --dto porcentaje:10 --dto oferta:5+1
caso 0 'DTOS: 10.00% M5,1' acuerdos ver "${b[@]}" --articulo 106 --nodo 1.1
caso 0 'Precio                      1.46' cargar "${b[@]}" --articulo 106 --cliente 11
caso 2 '--dto: «regalo:1» no vale' acuerdos poner "${b[@]}" --articulo 106 --nodo 1.1 --dto regalo:1
caso 0 'Acuerdos quitados' acuerdos quitar "${b[@]}" --articulo 106 --nodo 1.1
caso 0 'Existencias  -1' stock mover "${b[@]}" --articulo 115 --tipo venta --unidades 1
sqlite3 demo.kv 'UPDATE Articulos SET PadreVenta = 777 WHERE Codigo = 118'
caso 0 'Estado del padre            no existe' cargar "${b[@]}" --articulo 118 --cliente 1 --padre
# A text that came into the file by another road and is not UTF-8 does not end --json.
sed -i 's/Carpinter\xc3\xada/Carpinter\xed-a/' demo.kv
caso 0 '"Carpinter�-a Encina"' cliente ver "${b[@]}" --codigo 5 --json
# A file that says it is of the first version: the four bytes of its header where SQLite keeps that.
cp demo.kv vieja.kv
printf '\0\0\0\1' | dd of=vieja.kv bs=1 seek=60 conv=notrunc status=none
caso 3 '«kvdatosart actualizar --base vieja.kv» la pone al día' revisar --base vieja.kv
caso 0 'Actualizada la base «vieja.kv»' actualizar --base vieja.kv
caso 0 'La base «vieja.kv» ya está al día' actualizar --base vieja.kv
caso 0 'oferta 5 + 1 gratis' cargar --base vieja.kv --articulo 113 --cliente 11 --explica
caso 3 '«nohay.kv» no existe' actualizar --base nohay.kv
caso 2 'falta --base FICHERO' actualizar
KV_BASE=vieja.kv caso 0 'La base «vieja.kv» ya está al día' actualizar

echo "$((casos - fallos)) passed, $fallos failed"
[ "$fallos" -eq 0 ]
