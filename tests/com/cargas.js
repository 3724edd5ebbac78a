// The same from JScript, which has neither dates nor amounts of its own: cscript cargas.js RECORDING. 42 is right.
var guion = new ActiveXObject("KVPrueba.Guion");
var mal = 0, hechas = 0;

function exigir(bien, que) {
    if (bien) return;
    mal++;
    WScript.Echo("FALLA: " + que);
}

function numero(e) {
    return e.number & 0xFFFF;
}

function cargar(i) {
    guion.Elegir(i);
    var o = new ActiveXObject("KVDatosArt.clsDatosArt");
    o.Conexion = guion.Conexion;
    o.cEmpresa = guion.Empresa;
    o.CualidadX = guion.Argumento(6);
    var estado = guion.Argumento(5) == 0
        ? o.Cargar(guion.Argumento(1), guion.Argumento(2), guion.Argumento(3), guion.Argumento(4), 1, 2)
        : o.Cargar(guion.Argumento(1), guion.Argumento(2), guion.Argumento(3), guion.Argumento(4), 1, 2, guion.Argumento(5));
    exigir(estado == guion.Estado && guion.Pendientes == 0, "carga " + i + ": estado " + estado);
    var nombres = ["Codigo", "Familia_1", "Descripcion", "Pvp", "PDescuento", "Impuesto", "DStock"];
    for (var n = 0; n < nombres.length; n++)
        exigir(o[nombres[n]] == guion.Esperado(nombres[n]), "carga " + i + ": " + nombres[n]);
    hechas++;
}

function falla(que, esperado, texto, hacer) {
    try {
        hacer();
    } catch (e) {
        exigir(numero(e) == esperado, que + ": " + numero(e));
        exigir(e.description.indexOf(texto) == 0, que + ": " + e.description);
        return;
    }
    exigir(false, que + ": no falla");
}

var cuantas = guion.Abrir(WScript.Arguments(0));
for (var i = 0; i < cuantas; i += 7) cargar(i);
var nuevo = new ActiveXObject("KVDatosArt.clsDatosArt");
nuevo.cEmpresa = guion.Empresa;
falla("sin Conexion", 91, "Variable de objeto no establecida: Conexion", function () { nuevo.Cargar(1, 1, 46000, 1, 1, 2); });
falla("no es una conexion", 13, "No coinciden los tipos: Conexion", function () { nuevo.Conexion = guion; });
exigir(nuevo.padre === null, "sin padre, null");
WScript.Echo("JScript: " + hechas + " cargas, " + mal + " fallas");
WScript.Quit(mal == 0 && hechas > 100 ? 42 : 1);
