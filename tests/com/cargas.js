// The same from JScript, which has neither dates nor Set: cscript cargas.js RECORDING. 42 is right.
var guion = new ActiveXObject("KVPrueba.Guion"), mal = 0, o, i;
function exigir(bien, que) {
    if (!bien) WScript.Echo("FALLA: " + i + ": " + que), mal++;
}
var cuantas = guion.Abrir(WScript.Arguments(0));
for (i = 0; i < cuantas; i += 7) {
    guion.Elegir(i);
    o = new ActiveXObject("KVDatosArt.clsDatosArt");
    exigir(o.padre === null, "sin padre, null");
    o.Conexion = guion.Conexion;
    o.cEmpresa = guion.Empresa;
    o.CualidadX = guion.Argumento(6);
    var estado = o.Cargar(guion.Argumento(1), guion.Argumento(2), guion.Argumento(3), guion.Argumento(4), 1, 2, guion.Argumento(5));
    exigir(estado == guion.Estado && o.Pvp == guion.Esperado("Pvp"), "estado " + estado + ", precio " + o.Pvp);
}
var padre = new ActiveXObject("KVDatosArt.clsDatosArt");
padre.Descripcion = "puesto";
o.padre = padre;
exigir(o.padre.Descripcion == "puesto", "padre puesto");
try {
    o.Conexion = guion;
    exigir(false, "no es una conexion");
} catch (e) {
    exigir((e.number & 0xFFFF) == 13 && e.description.indexOf("No coinciden los tipos: Conexion") == 0, e.description);
}
WScript.Echo("JScript: " + mal + " fallas");
WScript.Quit(mal == 0 && i > 700 ? 42 : 1);
