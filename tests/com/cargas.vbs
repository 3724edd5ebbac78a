' Prices recorded loads as a script does: cscript cargas.vbs RECORDING. Ends with 42 when everything is right, because a
' script host ends with 0 after an error that nobody caught.
Option Explicit
Dim guion, o, i, mal

Sub Exigir(bien, que)
    If bien Then Exit Sub
    mal = mal + 1
    WScript.Echo "FALLA: " & i & ": " & que
End Sub

Sub Comparar(nombre, valor, esperado)
    Exigir valor = esperado And TypeName(valor) = TypeName(esperado), nombre & " " & valor & " en vez de " & esperado
End Sub

Sub Cargar()
    Dim tarifa, dia, precio
    guion.Elegir i
    tarifa = guion.Argumento(4)
    dia = CDate(guion.Argumento(3))
    Set o = CreateObject("KVDatosArt.clsDatosArt")
    Set o.Conexion = guion.Conexion
    Set o.cEmpresa = guion.Empresa
    o.CualidadX = guion.Argumento(6)
    Comparar "estado", o.Cargar(guion.Argumento(1), guion.Argumento(2), dia, tarifa, 1, 2, guion.Argumento(5)), guion.Estado
    Comparar "Descripcion", o.Descripcion, guion.Esperado("Descripcion")
    Comparar "Pvp", o.Pvp, guion.Esperado("Pvp")
    Comparar "DStock", o.DStock, guion.Esperado("DStock")
    Comparar "Stock", o.Stock, guion.Esperado("Stock")
    precio = guion.Precio
    If Not IsNull(precio) Then Comparar "precio", o.DevPvp(tarifa, dia, guion.Argumento(7) <> 0), precio
End Sub

Sub ProbarError(numero, origen)
    Exigir Err.Number = numero And Err.Source = origen And Err.Description <> "", Err.Number & " " & Err.Source
    Err.Clear
End Sub

Sub ProbarErrores()
    Dim nada
    On Error Resume Next
    Set o = CreateObject("KVDatosArt.clsDatosArt")
    Set o.cEmpresa = guion.Empresa
    nada = o.Cargar(101, 1, Date, 1, 1, 2)
    ProbarError 91, "clsCliente::Cargar"
    Set o.Conexion = guion
    ProbarError 13, "KVDatosArt"
    Set o.Conexion = guion.Conexion
    Exigir o.padre Is Nothing, "sin padre, Nothing"
    Set o.padre = CreateObject("KVDatosArt.clsDatosArt")
    o.padre.Descripcion = "puesto"
    Exigir o.padre.Descripcion = "puesto" And Err.Number = 0, "el padre es siempre el mismo objeto"
    Set o.padre = Nothing
    Exigir o.padre Is Nothing And Err.Number = 0, "padre a Nothing"
End Sub

mal = 0
Set guion = CreateObject("KVPrueba.Guion")
For i = 0 To guion.Abrir(WScript.Arguments(0)) - 1 Step 7
    Cargar
Next
ProbarErrores
WScript.Echo "VBScript: " & mal & " fallas"
If mal = 0 And i > 700 Then WScript.Quit 42
WScript.Quit 1
