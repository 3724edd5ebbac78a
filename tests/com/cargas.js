// The same from JScript, which has neither dates nor Set: cscript cargas.js RECORDING. 42 is right.
var guion = new ActiveXObject("KVPrueba.Guion"), mal = 0, o, i;
var cuantas = guion.Abrir(WScript.Arguments(0));
for (i = 0; i < cuantas; i += 7) {
    guion.Elegir(i);
    o = new ActiveXObject("KVDatosArt.clsDatosArt");
    o.Conexion = guion.Conexion;
    o.cEmpresa = guion.Empresa;
    o.CualidadX = guion.Argumento(6);
    var estado = o.Cargar(guion.Argumento(1), guion.Argumento(2), guion.Argumento(3), guion.Argumento(4), 1, 2, guion.Argumento(5));
    if (estado == guion.Estado && o.Pvp == guion.Esperado("Pvp")) continue;
    WScript.Echo("FALLA: " + i + ": estado " + estado + ", precio " + o.Pvp);
    mal++;
}
WScript.Echo("JScript: " + mal + " fallas");
WScript.Quit(mal == 0 && i > 700 && new ActiveXObject("KVDatosArt.clsDatosArt").padre === null ? 42 : 1);
