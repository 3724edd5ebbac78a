#!/usr/bin/env bash
# Price lists as people run them: the same from any number of workers and of machines while others write, whole files or
# none, what Excel makes of them, and two lists compared. Usage: listas.sh PROGRAM
set -uo pipefail
programa=$(realpath "$1")
carpeta=$(mktemp -d)
escritor=
trap '[ -z "$escritor" ] || kill "$escritor"; rm -rf "$carpeta"' EXIT
cd "$carpeta"
export LC_ALL=C KV_BASE=demo.kv
fallos=0
casos=0

# es WHAT EXPECTED REAL
es() {
    casos=$((casos + 1))
    [ "$2" = "$3" ] && return
    printf 'FALLA: %s\n' "$1"
    diff <(echo "$2") <(echo "$3") | head -n 8
    fallos=$((fallos + 1))
}
kv() { "$programa" "$@" --hoy 21/11/2026 </dev/null; }
sql() { sqlite3 -cmd '.timeout 20000' demo.kv "$1" >/dev/null; }
lista=(lista --clientes todos --csv)

kv crear-demo demo.kv >/dev/null || exit 1

# Somebody writes all the time: stock, which these columns do not show, and one price for all of them.
while sql "UPDATE Almacen_Articulos SET Stock_Actual = Stock_Actual + 1" && [ ! -e basta ]; do :; done &
escritor=$!
for trabajadores in 1 2 5; do kv "${lista[@]}" --trabajadores "$trabajadores" --salida "$trabajadores.csv" 2>/dev/null; done
touch basta
wait "$escritor"
es 'dos trabajadores, lo mismo que uno' "$(cksum <1.csv)" "$(cksum <2.csv)"
es 'cinco trabajadores, lo mismo que uno' "$(cksum <1.csv)" "$(cksum <5.csv)"
es 'líneas' 19561 "$(wc -l <1.csv)"
rm basta
for ((i = 1; i < 10000; i++)); do
    [ ! -e basta ] && sql "UPDATE Articulos_Tarifas SET Pvp = $i" || break
done &
escritor=$!
sleep 0.3
for trabajadores in 1 2 5; do
    kv lista --clientes 1 --columnas neto motivo --csv --trabajadores "$trabajadores" 2>/dev/null | grep ',tarifa' | sort | uniq -c >estado.txt
    es "un solo estado con $trabajadores" 1 "$(cut -d, -f1 estado.txt | awk '{ print $2 }' | sort -u | wc -l)"
done
touch basta
wait "$escritor"
escritor=

# Machines that share the lines, each with a copy.
rm demo.kv && kv crear-demo demo.kv >/dev/null && cp demo.kv copia.kv
kv "${lista[@]}" >entera.csv 2>/dev/null
parallel -j 2 "$programa" "${lista[@]}" --base copia.kv --hoy 21/11/2026 --trabajadores 1 --parte {}/5 --salida parte{}.csv ::: 1 2 3 4 5 2>/dev/null
es 'las partes son la lista entera' "$(sort entera.csv | cksum)" "$({ head -n 1 entera.csv; tail -qn +2 parte?.csv; } | sort | cksum)"

# Cut at any moment: the file that was there, or the whole new one.
for ((vez = 0; vez < 12; vez++)); do
    [ $((vez % 2)) -eq 0 ] && forma=--csv || forma=--xlsx
    echo antes >cortada
    "$programa" lista --clientes todos $forma --salida cortada 2>/dev/null &
    sleep "0.0$((RANDOM % 9))$((RANDOM % 9))"
    kill -TERM $! 2>/dev/null
    wait $!
    codigo=$?
    if [ "$codigo" -eq 0 ]; then [ "$(head -c 5 cortada)" != antes ] || es "acabada la vez $vez" entera antes; else es "cortada la vez $vez" antes "$(cat cortada)"; fi
    es "ni rastro la vez $vez" cortada "$(echo cortada*)"
done
"$programa" "${lista[@]}" --hoy 21/11/2026 --salida ocupada.csv 2>/dev/null &
until [ -e ocupada.csv.parcial ] || ! kill -0 $! 2>/dev/null; do :; done
kill -KILL $! && wait $! 2>/dev/null
es 'la que sigue toma lo que dejó una muerta' 0 "$(kv "${lista[@]}" --salida ocupada.csv 2>/dev/null; echo $?)"
es 'y es la entera' "$(cksum <entera.csv) ocupada.csv" "$(cksum <ocupada.csv) $(echo ocupada*)"
(kv "${lista[@]}" 2>error.txt; echo $? >codigo.txt) | head -n 1 >primera.txt
es 'quien lee se va' '0 articulo,descripcion,cliente,precio,descuento,neto,motivo' "$(cat codigo.txt error.txt) $(tr -d '\r' <primera.txt)"
es 'por una tubería, solo el resumen' $'19560 líneas, 3960 sin precio\nFuera de la lista: 1200 bloqueadas o de baja (--todos)' "$(kv "${lista[@]}" 2>&1 >/dev/null)"

# What is left out, what fails, what is not for customers.
sql "UPDATE Articulos SET Descripcion = '=1+1;\"x\"' WHERE Codigo = 101;
     UPDATE Articulos SET Descripcion = '3/4' WHERE Codigo = 102;
     UPDATE Articulos_Tarifas SET Pvp = 9300000000000 WHERE Cod_Articulo = 105"
codigos=(--articulos 101 102 105 121)
es 'una línea que falla' $'105;Cinta métrica 5 m;1;;;;error: Desbordamiento\n121;Expositor de mostrador;1;;;;sin precio\n4 líneas, 1 sin precio, 1 con error\n1' \
    "$(kv lista --clientes 1 "${codigos[@]}" --csv-excel 2>&1 | tr -d '\r' | tail -n 3 | cut -d ' ' -f 1-99; kv lista --clientes 1 "${codigos[@]}" >/dev/null 2>&1; echo $?)"
es 'CSV para Excel' $'\xef\xbb\xbfArtículo;Descripción;Cliente;Precio;Dto.%;Neto;De dónde sale\n101;"\'=1+1;""x""";1;89,95;0;89,95;tarifa 1\n102;\'3/4;1;24,5;0;24,5;tarifa 1' \
    "$(LC_ALL=en_US.UTF-8 kv lista --clientes 1 "${codigos[@]}" --csv-excel 2>/dev/null | tr -d '\r' | head -n 3)"
es 'lo comprado' '1 línea' "$(kv ventas acumular --articulo 106 --cliente 3 --unidades 1 --importe 1 >/dev/null; kv lista --clientes 3 --articulos 104 106 --solo-comprados 2>&1 >/dev/null | head -n 1)"
es 'a coste, sin precio' $'101,49,,,cliente a coste\n1 línea, 1 sin precio' "$(kv lista --clientes 49 --articulos 101 --columnas articulo cliente precio neto motivo --csv 2>&1 | tr -d '\r' | tail -n 2)"
es 'a coste, a quien puede verlo' '101,49,52.3456,52.35,52.3456' \
    "$(kv lista --clientes 49 --articulos 101 --con-coste --columnas articulo cliente precio neto coste --csv 2>/dev/null | tr -d '\r' | tail -n 1)"

# What Excel reads: texts that are texts, numbers that are numbers.
kv lista --clientes 1 "${codigos[@]}" --xlsx --salida lista.xlsx 2>/dev/null
es 'el libro' "$(cat <<'FIN'
Lista Empresa Suministros Ribera A9 A8:G12
Precios según tarifa, sin calcular impuestos
'101' s '=1+1;"x"' s '1' s 89.95 n #,##0.00 tarifa 1
'102' s '3/4' s '1' s 24.5 n #,##0.00 tarifa 1
'105' s 'Cinta métrica 5 m' s '1' s None n General error: Desbordamiento
'121' s 'Expositor de mostrador' s '1' s None n General sin precio
FIN
)" "$(/usr/bin/python3 - <<'FIN'
import openpyxl
libro = openpyxl.load_workbook("lista.xlsx")
h = libro.worksheets[0]
print(*[s.title for s in libro.worksheets], h["A1"].value, h["B1"].value, h.freeze_panes, h.auto_filter.ref)
print(h["A6"].value, h["B6"].value)
for f in h.iter_rows(min_row=9):
    print(*[x for c in f[:3] for x in (repr(c.value), c.data_type)], f[3].value, f[3].data_type, f[3].number_format, f[6].value)
FIN
)"

# Two lists.
sql "UPDATE Articulos_Tarifas SET Pvp = 10 WHERE Cod_Articulo = 105"
todo=(lista comparar --clientes 1 11 49 --con-coste)
kv lista --clientes 1 11 49 --con-coste --json --unidades 1 5 >antes.jsonl 2>/dev/null
es 'la misma lista' $'1956 iguales, 0 distintas\n0' "$(kv "${todo[@]}" --unidades 1 5 --con antes.jsonl --csv 2>&1 >/dev/null; echo "${PIPESTATUS[0]}")"
sql "UPDATE Articulos_Tarifas SET Pvp = 90 WHERE Cod_Articulo = 101 AND Cod_Tarifa = 1;
     UPDATE Articulos_Tarifas SET Pvp = 30 WHERE Cod_Articulo = 102 AND Cod_Tarifa = 1;
     DELETE FROM Articulos_Tarifas WHERE Cod_Articulo = 104; UPDATE Articulos SET Bloqueado = 1 WHERE Codigo = 106"
es 'lo que ha cambiado' "$(cat <<'FIN'
102,1,24.5,30,5.5,22.45,tarifa 1,tarifa 1
101,1,89.95,90,0.05,0.06,tarifa 1,tarifa 1
104,1,9.95,,,,tarifa 1,sin precio
106,1,1.95,,,,tarifa 1,
1
FIN
)" "$(kv lista comparar --clientes 1 --con <(grep '"cliente": 1,.*"unidades": 1,' antes.jsonl) --csv 2>/dev/null | tr -d '\r' | tail -n +2 | cut -d, -f 1,3,9-; echo "${PIPESTATUS[0]}")"
es 'con umbral, y otra tarifa' $'2 iguales, 1 distintas, 1 por debajo del 0.5 %' \
    "$(sql "UPDATE Articulos_Tarifas SET Pvp = 90.1 WHERE Cod_Articulo = 101 AND Cod_Tarifa = 2; DELETE FROM Articulos_Tarifas WHERE Cod_Articulo = 105 AND Cod_Tarifa = 2; DELETE FROM Articulos_Tarifas WHERE Cod_Articulo = 103 AND Cod_Tarifa = 2"
    kv lista comparar --clientes 1 --articulos 101 102 103 105 --con-tarifa 2 --umbral 0,5 2>&1 >/dev/null)"
es 'otro cliente' '101,1,90,52.3456' "$(kv lista comparar --clientes 1 --con-coste --articulos 101 --con-cliente 49 --csv 2>/dev/null | tr -d '\r' | tail -n 1 | cut -d, -f 1,3,5,6)"
echo '{"articulo": 101}' >corta.jsonl
{ head -n 1 antes.jsonl; head -n 1 antes.jsonl; } >doble.jsonl
for caso in 'corta.jsonl|3 kvdatosart: corta.jsonl, línea 1: le falta «cliente»; se espera una lista de --json' \
    'lista.xlsx|3 kvdatosart: lista.xlsx, línea 1: no es una línea de lista en JSON' \
    'doble.jsonl|2 kvdatosart: --con: tiene dos veces el artículo 101 del cliente 1' \
    'nohay|3 kvdatosart: no se puede leer «nohay»'; do
    real=$(kv lista comparar --clientes 1 --con "${caso%%|*}" 2>&1)
    es "comparar con ${caso%%|*}" "${caso#*|}" "$? $real"
done

echo "$((casos - fallos)) passed, $fallos failed"
[ "$fallos" -eq 0 ]
