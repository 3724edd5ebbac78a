#!/usr/bin/env bash
# What cannot be meant is refused in one plain line, before anything is written; what stands just beside it is done.
# The same in every locale. Usage: rechazos.sh PROGRAM [locale...]
set -uo pipefail
programa=$(realpath "$1")
shift
carpeta=$(mktemp -d)
trap 'rm -rf "$carpeta"' EXIT
cd "$carpeta"
export KV_BASE=demo.kv
fallos=0
casos=0
hoy=$(date +%d/%m/%Y)
manana=$(date -d tomorrow +%d/%m/%Y)

falla() {
    echo "FALLA ($LC_ALL): $1"
    printf '  %s\n' "${@:2}"
    fallos=$((fallos + 1))
}

# no CODE TEXT ARGUMENT...: refused with this text in one line, and not a byte of the base changes.
no() {
    local codigo=$1 texto=$2 salida real antes
    shift 2
    casos=$((casos + 1))
    antes=$(cksum <demo.kv)
    salida=$("$programa" "$@" 2>&1 </dev/null)
    real=$?
    [ "$real" -eq "$codigo" ] && [[ "$salida" == *"$texto"* && "$salida" != *$'\n'* && "$salida" != *SELECT* ]] ||
        falla "$*" "esperado $codigo con «$texto»" "real $real: $salida"
    [ "$(cksum <demo.kv)" = "$antes" ] || falla "$*" "ha escrito"
}

# si TEXT ARGUMENT...: done, and this text is shown.
si() {
    local texto=$1 salida
    shift
    casos=$((casos + 1))
    salida=$("$programa" "$@" --json 2>&1 </dev/null) && [[ "$salida" == *"$texto"* ]] ||
        falla "$*" "esperado hecho con «$texto»" "real: $salida"
}

probar() {
    rm -f demo.kv
    "$programa" crear-demo demo.kv >/dev/null || falla crear-demo

    # Texts that a statement carries.
    for nivel in 1 2 3 4 5; do
        no 2 "--ubic$nivel: «x' OR 'a'='a» no vale" stock ubicacion --articulo 106 --unidades 1 "--ubic$nivel" "x' OR 'a'='a"
    done
    no 2 "--ubic2: «a b» no vale" stock ubicacion --articulo 106 --unidades 1 --ubic2 a$'\x1f'b
    no 2 '--ubic1: «12345678901» no vale; se espera 10 caracteres como mucho' stock ubicacion --articulo 106 --unidades 1 --ubic1 12345678901
    si '"ñandú56789"' stock ubicacion --articulo 106 --unidades 1 --ubic1 ñandú56789
    no 1 "no hay clientes con «O'Brien»" clientes buscar "O'Brien"
    no 1 'no hay artículos con «%»' articulos buscar %
    no 1 'no hay artículos con «_»' articulos buscar _
    no 1 'no hay artículos con «[a»' articulos buscar '[a'
    si '"Carpintería Encina"' clientes buscar ENCINA carpinteria --limite 1

    # What a list is made of.
    no 2 'falta para qué clientes: --clientes, --grupo o --nodo' lista
    no 2 'se espera --clientes con códigos o todos, o --grupo y --nodo, no los dos' lista --clientes todos --grupo 1
    no 2 '--articulos: se esperan los códigos, o --familias y --buscar' lista --clientes 1 --articulos 101 --familias 1
    no 2 '--unidades: «10» está dos veces' lista --clientes 1 --unidades 1 10 10,0
    no 2 '--unidades: «-1» no vale' lista --clientes 1 --unidades 1 -1
    no 2 '--tarifa: -1 vende a coste, y sin --con-coste una lista no enseña costes' lista --clientes 1 --tarifa -1
    no 2 '--columnas: «coste» solo sale con --con-coste' lista --clientes 1 --columnas articulo coste
    no 2 '--columnas: «pvp» no vale; las que hay: articulo, descripcion' lista --clientes 1 --columnas pvp
    no 2 '--columnas: «neto» está dos veces' lista --clientes 1 --columnas neto cliente neto
    no 2 '--orden: «precio» no vale; se espera articulo, cliente o familia' lista --clientes 1 --orden precio
    no 2 '--sin-precio: «quitar» no vale; se espera omitir o marcar' lista --clientes 1 --sin-precio quitar
    no 2 '--parte: «2» no vale; se espera la parte y cuántas son: 2/8' lista --clientes 1 --parte 2
    no 2 '--parte: «0» no vale' lista --clientes 1 --parte 1/0
    no 2 '--parte: «3/2» no vale; la parte va de 1 a cuantas sean' lista --clientes 1 --parte 3/2
    no 2 '--trabajadores: «0» no vale' lista --clientes 1 --trabajadores 0
    no 2 'se espera una sola forma de --json, --csv, --csv-excel y --xlsx' lista --clientes 1 --csv --csv-excel
    no 2 '--xlsx: se espera también --salida FICHERO' lista --clientes 1 --xlsx
    no 2 '--salida: «.» es una carpeta; se espera un fichero' lista --clientes 1 --salida .
    no 2 '--salida: «nohay/lista.csv» no se puede escribir: no existe su carpeta' lista --clientes 1 --salida nohay/lista.csv
    no 1 'no existe el cliente 999' lista --clientes 1 999 2
    no 1 'no hay artículos en lo elegido: familia 1, con «zzz»' lista --clientes 1 --familias 1 --buscar zzz
    no 1 'no existe el nodo 9' lista --nodo 9
    printf '\xef\xbb\xbfC\xf3digo;Art\xedculo\r\n101;a\r\n\r\n"103";b\r\n' >codigos.csv
    { cat codigos.csv; printf '10\xf1;c\r\n'; } >malos.csv
    { cat codigos.csv; printf '9999\r105'; } >otros.csv
    printf 'Codigo\r\n' >vacio.csv
    si '"articulo": 103' lista --clientes 1 --fichero-articulos codigos.csv
    no 2 'malos.csv, línea 5: «10ñ» no es un código' lista --clientes 1 --fichero-articulos malos.csv
    no 1 'otros.csv, línea 5: no existe el artículo 9999' lista --clientes 1 --fichero-articulos otros.csv
    no 2 '--fichero-clientes: «vacio.csv» no tiene códigos' lista --fichero-clientes vacio.csv
    no 3 'no se puede leer «.»' lista --fichero-clientes .
    no 2 'se espera --clientes o --fichero-clientes, no los dos' lista --clientes 1 --fichero-clientes codigos.csv

    # Codes that do not exist.
    no 1 'no existe el artículo 9999' precios poner --articulo 9999 --cliente 3 --desde 1/1/2026 --precio 1
    no 1 'no existe el cliente 999' precios poner --articulo 101 --cliente 999 --desde 1/1/2026 --precio 1
    no 1 'no existe el artículo 9999' cambios poner --articulo 9999 --tarifa 1 --desde "$manana" --precio 1
    no 1 'no existe la tarifa 99' cambios poner --articulo 101 --tarifa 99 --desde "$manana" --precio 1
    no 1 'no existe la tarifa 99' cambios ver --tarifa 99
    no 1 'no existe el cliente 999' dto-familia poner --cliente 999 --clave 0-1-1-0-0 --descuento 1
    no 1 'no existe el artículo 9999' dto-familia poner --cliente 5 --clave 9999-4-1-1-1 --descuento 1
    no 1 'no existe el grupo 99' dto-grupo poner --grupo 99 --clave 0-1-1-0-0 --descuento 1
    no 1 'no existe el artículo 9999' dto-grupo poner --grupo 1 --clave 9999-4-1-1-1 --descuento 1
    no 1 'no existe el artículo 9999' acuerdos poner --articulo 9999 --nodo 1.1 --dto porcentaje:1
    no 1 'no existe el nodo 1.9' acuerdos poner --articulo 106 --nodo 1.9 --dto porcentaje:1
    no 1 'no existe el artículo 9999' ventas acumular --articulo 9999 --cliente 3 --unidades 1 --importe 1
    no 1 'no existe el cliente 999' ventas acumular --articulo 106 --cliente 999 --unidades 1 --importe 1
    no 1 'no existe el almacén 9' ventas acumular --articulo 106 --cliente 3 --unidades 1 --importe 1 --almacen 9
    no 1 'no existe el almacén 2' stock bloquear --empresa 2 --articulo 106 --almacen 2
    no 1 'no existe la tarifa 99' cargar --articulo 106 --cliente 3 --tarifa 99
    no 1 'no existe la tarifa 99' devpvp --articulo 106 --tarifa 99
    no 1 'no existe el artículo 9999' historia --articulo 9999 --cliente 3
    no 1 'no existe el cliente 999' historia --articulo 106 --cliente 999
    no 1 'no existe el almacén 9' historia --articulo 106 --cliente 3 --almacen 9
    no 1 'no existe la tarifa 99' historia --articulo 106 --cliente 3 --tarifa 99
    for orden in 'mover --tipo compra --unidades 1' bloquear desbloquear 'coste --coste 1' 'pendiente --servir 1' 'ubicacion --unidades 1'; do
        # shellcheck disable=SC2086
        no 1 'no existe el artículo 9999' stock $orden --articulo 9999
        # shellcheck disable=SC2086
        no 1 'no existe el almacén 9' stock $orden --articulo 106 --almacen 9
    done
    no 1 'no existe el cliente 999' cliente venta --codigo 999
    no 1 'no existe el cliente 999' cliente cobro --codigo 999

    # Values that cannot be.
    no 2 '--precio: «-0.01» no vale' precios poner --articulo 101 --cliente 3 --desde 1/1/2026 --precio=-0,01
    no 2 '--precio: «-1» no vale' precios cambiar --articulo 101 --cliente 3 --desde 1/1/2026 --precio=-1
    no 2 '--precio: «0» no vale; se espera un número mayor que 0' cambios poner --articulo 101 --tarifa 1 --desde "$manana" --precio 0
    no 2 '--precio: «-1» no vale' cambios poner --articulo 101 --tarifa 1 --desde "$manana" --precio=-1
    no 2 '--hasta: el 31/12/2025 es anterior a --desde' cambios ver --desde 1/1/2026 --hasta 31/12/2025
    no 2 '--precio-base: «-1» no vale' acuerdos poner --articulo 106 --nodo 1.1 --precio-base=-1
    no 2 '--coste: «-1» no vale' stock coste --articulo 106 --coste=-1
    no 2 '--coste: «-1» no vale' stock mover --articulo 106 --tipo compra --unidades 1 --coste=-1
    no 2 '--unidades: «0» no vale' stock mover --articulo 106 --tipo venta --unidades 0
    no 2 '--descuento: «100.01» no vale' dto-familia poner --cliente 5 --clave 0-1-1-0-0 --descuento 100,01
    no 2 '--descuento: «-0.01» no vale' dto-familia cambiar --cliente 5 --clave 112-4-6-2-3 --descuento=-0,01
    no 2 '--descuento: «101» no vale' dto-grupo poner --grupo 1 --clave 0-1-1-0-0 --descuento 101
    no 2 '--dto: «100.5» no vale' acuerdos poner --articulo 106 --nodo 1.1 --dto cascada:100,5
    no 2 '--dto: «-1» no vale' acuerdos poner --articulo 106 --nodo 1.1 --dto importe:-1
    no 2 '--dto: «oferta:0+0» no vale' acuerdos poner --articulo 106 --nodo 1.1 --dto oferta:0+0
    no 2 '--dto: caben cinco descuentos' acuerdos poner --articulo 106 --nodo 1.1 --dto importe:1 --dto importe:1 --dto importe:1 --dto importe:1 --dto importe:1 --dto importe:1
    no 2 '--hasta: el 31/12/2025 es anterior a --desde' precios poner --articulo 101 --cliente 3 --desde 1/1/2026 --hasta 31/12/2025 --precio 1
    no 2 '--hasta: el 31/12/2025 es anterior a --desde' acuerdos poner --articulo 106 --nodo 1.1 --desde 1/1/2026 --hasta 31/12/2025
    no 2 '--hasta: el 31/12/2025 es anterior a --desde' historia --articulo 106 --cliente 3 --desde 1/1/2026 --hasta 31/12/2025
    no 2 '--hasta: el 31/12/2025 ya ha pasado; se espera también --desde' historia --articulo 106 --cliente 3 --hasta 31/12/2025
    no 2 '--maximo: «4.5» es menor que --minimo' dto-grupo poner --grupo 1 --clave 0-1-1-0-0 --minimo 5 --maximo 4,5 --descuento 1
    no 2 '--minimo: «-1» no vale' dto-grupo poner --grupo 1 --clave 0-1-1-0-0 --minimo=-1 --descuento 1
    no 2 'no casa artículo y familias; se espera «111-4-1-1-1»' dto-grupo poner --grupo 1 --clave 111-4-1-1-2 --descuento 1
    no 2 'no casa artículo y familias; se espera «0-2-1-1-0»' dto-familia poner --cliente 5 --clave 111-2-1-1-0 --descuento 1
    no 2 'no casa artículo y familias; se espera «0-1-1-0-0»' dto-familia poner --cliente 5 --clave 0-1-1-2-0 --descuento 1
    no 2 'el nivel 2 lleva 2 familias' dto-familia poner --cliente 5 --clave 0-2-1-0-0 --descuento 1
    no 2 'el nivel va de 1 a 3' dto-familia poner --empresa 2 --cliente 5 --clave 0-4-1-1-1 --descuento 1
    no 2 '--cualidad-x y --cualidad-y van las dos o ninguna' stock pendiente --articulo 103 --cualidad-x 42 --servir 1
    si '"descuento": 100' dto-familia poner --cliente 5 --clave 0-1-2-0-0 --descuento 100
    si '"descuento": 0' dto-familia poner --cliente 5 --clave 107-4-6-1-3 --descuento 0

    # There already, or only when it is forced.
    si '"precio": 5' precios poner --articulo 101 --cliente 4 --desde 5/1/2026 --hasta 5/1/2026 --precio 5
    no 1 'ya hay un precio de ese artículo, cliente y fechas' precios poner --articulo 101 --cliente 4 --desde 5/1/2026 --hasta 5/1/2026 --precio 6 --forzar
    no 1 'ya hay un precio del 05/01/2026 al 05/01/2026, que comparte días; con --forzar' precios poner --articulo 101 --cliente 4 --desde 5/1/2026 --precio 6
    si '"precio": 6' precios poner --articulo 101 --cliente 4 --desde 6/1/2026 --precio 6
    si '"precio": 7' precios poner --articulo 101 --cliente 4 --desde 4/1/2026 --hasta 5/1/2026 --precio 7 --forzar
    no 1 "el $hoy ya ha llegado; con --forzar" cambios poner --articulo 103 --cualidad-x 38 --tarifa 1 --desde "$hoy" --precio 60
    si '"codigo": 2' cambios poner --articulo 103 --cualidad-x 38 --tarifa 1 --desde "$hoy" --precio 60 --forzar
    si '"codigo": 13236' cambios poner --articulo 103 --tarifa 1 --desde "$manana" --precio 60
    no 1 "ya hay un cambio de ese artículo y tarifa el $manana; con --forzar" cambios poner --articulo 103 --tarifa 1 --desde "$manana" --precio 61
    no 1 "el $manana, con ese mismo precio" cambios poner --articulo 103 --tarifa 1 --desde "$manana" --precio 60 --forzar
    si '"codigo": 13237' cambios poner --articulo 103 --tarifa 1 --desde "$manana" --precio 61 --forzar
    si '"precio": 61' devpvp --articulo 103 --tarifa 1 --fecha "$manana"
    si '"precio": 60' devpvp --articulo 103 --tarifa 1 --fecha "$manana" --cualidad-x 38
    no 1 'ya tiene un descuento de clave 0-1-2-0-0' dto-familia poner --cliente 5 --clave 0-1-2-0-0 --descuento 1
    no 1 'el tramo se solapa con el de 1 a 9' dto-grupo poner --grupo 1 --clave 111-4-1-1-1 --minimo 8,5 --maximo 9,5 --descuento 1
    si '"descuento": 1' dto-grupo poner --grupo 1 --clave 111-4-1-1-1 --minimo 9,5 --maximo 9,75 --descuento 1
    si '"desde": "2027-01-01"' acuerdos poner --articulo 106 --nodo 1.1 --desde 1/1/2027 --hasta 31/1/2027 --precio-base 1,5 --dto oferta:5+1
    si '"hasta": "2027-02-28"' acuerdos poner --articulo 106 --nodo 1.1 --desde 1/2/2027 --hasta 28/2/2027
    no 1 'ya hay un acuerdo de ese nodo y artículo desde el 01/01/2027' acuerdos poner --articulo 106 --nodo 1.1 --desde 1/1/2027 --forzar
    no 1 'ya hay un acuerdo del 01/01/2027 al 31/01/2027, que comparte días' acuerdos poner --articulo 106 --nodo 1.1 --desde 31/1/2027
    si '"precioBase": 2' acuerdos poner --articulo 106 --nodo 1.1 --desde 31/1/2027 --precio-base 2 --forzar
    no 2 "--fecha: el $manana no ha llegado; con --forzar" cliente venta --codigo 3 --fecha "$manana"
    no 2 "--fecha: el $manana no ha llegado; con --forzar" cliente cobro --codigo 3 --fecha "$manana"
    no 2 "--fecha: el $manana no ha llegado; con --forzar" stock mover --articulo 106 --tipo venta --unidades 1 --fecha "$manana"
    no 2 "--fecha: el $manana no ha llegado; con --forzar" ventas acumular --articulo 106 --cliente 3 --unidades 1 --importe 1 --fecha "$manana"
    si '"codigo": 3' cliente venta --codigo 3 --fecha "$manana" --forzar

    # Not there, or not said which.
    no 1 'no hay un precio de ese artículo, cliente y fechas' precios cambiar --articulo 101 --cliente 4 --desde 7/1/2026 --precio 1
    no 1 'no hay un precio de ese artículo, cliente y fechas' precios quitar --articulo 101 --cliente 4 --desde 6/1/2026 --hasta 1/1/2027
    no 2 'hay 2 cambios ese día: se espera --codigo con uno de 13236, 13237' cambios quitar --articulo 103 --tarifa 1 --desde "$manana"
    no 1 'ninguno de ese artículo, tarifa y día es el 9' cambios quitar --articulo 103 --tarifa 1 --desde "$manana" --codigo 9
    no 1 'no hay un cambio de ese artículo, tarifa y día' cambios quitar --articulo 103 --tarifa 2 --desde "$manana"
    si '"precio": null' cambios quitar --articulo 103 --tarifa 1 --desde "$manana" --codigo 13237
    si '"codigo": 13236' cambios quitar --articulo 103 --tarifa 1 --desde "$manana"
    si '"codigo": 2' cambios quitar --articulo 103 --cualidad-x 38 --tarifa 1 --desde "$hoy"
    no 1 'no hay ningún descuento de clave 0-1-9-0-0' dto-familia cambiar --cliente 5 --clave 0-1-9-0-0 --descuento 1
    no 1 'no hay ningún descuento de clave 0-1-9-0-0' dto-familia quitar --cliente 5 --clave 0-1-9-0-0
    no 1 'no hay ningún descuento de clave 111-4-1-1-1' dto-grupo cambiar --grupo 1 --clave 111-4-1-1-1 --minimo 9,5 --maximo 9,8 --descuento 1
    no 1 'no hay ningún descuento de clave 111-4-1-1-1' dto-grupo quitar --grupo 1 --clave 111-4-1-1-1 --minimo 1 --maximo 8
    no 2 'hay 3 acuerdos: se espera --desde FECHA o --todos' acuerdos quitar --articulo 106 --nodo 1.1
    no 2 'hay 3 acuerdos: se espera --desde FECHA o --todos' acuerdos cambiar --articulo 106 --nodo 1.1 --precio-base 1
    no 1 'no hay ningún acuerdo' acuerdos quitar --articulo 106 --nodo 1.1 --desde 2/1/2027
    no 1 'no hay ningún acuerdo' acuerdos cambiar --articulo 106 --nodo 1.2 --todos --precio-base 1
    no 2 '--hasta: el 15/01/2027 es anterior a --desde' acuerdos cambiar --articulo 106 --nodo 1.1 --todos --hasta 15/1/2027
    si '"precioBase": 3' acuerdos cambiar --articulo 106 --nodo 1.1 --desde 1/2/2027 --precio-base 3
    si '"cuantos": 1' acuerdos quitar --articulo 106 --nodo 1.1 --desde 1/1/2027
    si '"cuantos": 2' acuerdos quitar --articulo 106 --nodo 1.1 --todos

    # A trial: of one command that writes, or of those of a file, on the copy that is its own.
    linea=(ensayar --articulos 101 --clientes 3)
    no 2 'se espera la orden que se ensaya, tras --, o --orden-de FICHERO' "${linea[@]}"
    no 2 'se espera la orden que se ensaya, tras --, o --orden-de FICHERO' "${linea[@]}" --orden-de o.txt -- stock
    no 3 '«nohay.txt» no se puede leer' "${linea[@]}" --orden-de nohay.txt
    printf '\xef\xbb\xbf# nada\r\n\r\n' >o.txt
    no 2 '--orden-de: «o.txt» no tiene ninguna orden' "${linea[@]}" --orden-de o.txt
    printf 'kvdatosart stock bloquear --articulo 106\nstock ubicacion --ubic1 "a b\n' >o.txt
    no 2 '--orden-de: o.txt, línea 2: faltan unas comillas' "${linea[@]}" --orden-de o.txt
    printf '# dos\nstock bloquear --articulo 106\nprecios quitar --articulo 101 --cliente 3 --desde 5/5/2026' >o.txt
    no 1 'o.txt, línea 3: no hay un precio de ese artículo, cliente y fechas' "${linea[@]}" --orden-de o.txt
    for caso in '2 la orden que se ensaya: orden desconocida: «crear-demo»; las de kvdatosart: cliente, precios, cambios, |crear-demo otra.kv' \
        '2 la orden que se ensaya: argumento desconocido: --help|precios poner --help' \
        '2 la orden que se ensaya: --precio: «x» no vale|precios poner --precio x' \
        '2 la orden que se ensaya: --base es de ensayar, y no de lo que ensaya|stock bloquear --articulo 106 --base=demo.kv' \
        '1 la orden que se ensaya: no existe el artículo 9999|stock bloquear --articulo 9999'; do
        despues=${caso#*|} delante=${caso%%|*}
        # shellcheck disable=SC2086
        no "${delante%% *}" "${delante#* }" "${linea[@]}" -- $despues
    done

    # An option without a value, or one that is no such option.
    no 2 '--ubic1: «» no vale; se espera un valor' stock ubicacion --articulo 106 --unidades 1 --ubic1 ''
    no 2 '--cliente: «» no vale; se espera un valor' cargar --articulo 106 --cliente ''
    no 2 '--fecha: «» no vale; se espera un valor' cargar --articulo 106 --cliente 3 --fecha ''
    no 2 '--dto: «» no vale' acuerdos poner --articulo 106 --nodo 1.1 --dto ''
    no 2 '--articulo: «1.000» no vale' cargar --articulo 1.000 --cliente 3
    no 2 'argumento desconocido: --artículo (¿quiso decir --articulo?)' cargar --artículo 106 --cliente 3
    no 2 'argumento desconocido: --fehca (¿quiso decir --fecha?)' cargar --articulo 106 --cliente 3 --fehca 1/1/2026
    no 2 'orden desconocida: «mvoer» (¿quiso decir mover?)' stock mvoer --articulo 106
    no 2 '--ancho: «1001» no vale; se espera un número entero de 0 a 1000' cargar --articulo 106 --cliente 3 --ancho 1001
    no 2 '--espera: «-1» no vale' cargar --articulo 106 --cliente 3 --espera=-1
}

for LC_ALL in "${@:-C}"; do
    export LC_ALL
    locale -a | grep -qix "${LC_ALL/UTF-8/utf8}" || falla "falta la configuración regional; scripts/instalar.sh la hace"
    probar
done
echo "$((casos - fallos)) passed, $fallos failed"
[ "$fallos" -eq 0 ]
