' What only a script does, late bound: cscript objeto.vbs. Ends with 42 when everything is right, because a script host
' ends with 0 after an error that nobody caught.
Option Explicit
Dim o, ajeno, articulo, dia, nada, mal

Sub Exigir(bien, que)
    If bien Then Exit Sub
    mal = mal + 1
    WScript.Echo "FALLA: " & que & "; error " & Err.Number & " " & Err.Source & ": " & Err.Description
End Sub

Sub ProbarError(numero, origen, texto)
    Exigir Err.Number = numero And Err.Source = origen And InStr(Err.Description, texto) > 0, "error de " & origen & " sin " & texto
    Err.Clear
End Sub

mal = 0
articulo = 101
dia = DateSerial(2026, 3, 5)
On Error Resume Next
Set o = CreateObject("KVDatosArt.clsDatosArt")
nada = o.Cargar(articulo, 1, dia, 1, 1, 2)
ProbarError 91, "clsCliente::Cargar", "cEmpresa"
Set ajeno = CreateObject("KVDatosArt.clsDatosArt")
Set o.cEmpresa = ajeno
nada = o.Cargar(articulo, 1, dia, 1, 1, 2, CCur(2))
ProbarError 438, "clsCliente::Cargar", "CodEmpresaClientes"
Set o.Conexion = ajeno
ProbarError 13, "KVDatosArt", "onexi"
o.Descripcion = "Taladro"
o.Pvp = 2
o.Stock = 1.5
o.DStock = True
Exigir o.Descripcion = "Taladro" And o.Stock = 1.5, "valores"
Exigir TypeName(o.Pvp) & TypeName(o.Stock) & TypeName(o.DStock) = "DoubleCurrencyBoolean", "tipos"
Exigir o.padre Is Nothing, "sin padre, Nothing"
Set o.padre = CreateObject("KVDatosArt.clsDatosArt")
o.padre.Descripcion = "puesto"
Exigir o.padre.Descripcion = "puesto", "el padre es siempre el mismo objeto"
Set o.padre = Nothing
Exigir o.padre Is Nothing And Err.Number = 0, "padre a Nothing"
WScript.Echo "VBScript: " & mal & " fallas"
If mal = 0 Then WScript.Quit 42
WScript.Quit 1
