' Prices recorded loads as a script does: cscript cargas.vbs RECORDING. Ends with 42 when everything is right, because a
' script host ends with 0 after an error that nobody caught.
Option Explicit
Dim guion, o, i, cuantos, mal, hechas

Sub Exigir(bien, que)
    If bien Then Exit Sub
    mal = mal + 1
    WScript.Echo "FALLA: " & que
End Sub

Sub Comparar(nombre, valor, tipo)
    Exigir valor = guion.Esperado(nombre), "carga " & i & ": " & nombre & " " & valor
    Exigir TypeName(valor) = tipo, nombre & " es " & TypeName(valor)
End Sub

Sub Cargar()
    Dim estado, dia
    dia = CDate(guion.Argumento(3))
    Set o = CreateObject("KVDatosArt.clsDatosArt")
    Set o.Conexion = guion.Conexion
    Set o.cEmpresa = guion.Empresa
    o.CualidadX = guion.Argumento(6)
    guion.Elegir i
    If guion.Argumento(5) = 0 Then
        estado = o.Cargar(guion.Argumento(1), guion.Argumento(2), dia, guion.Argumento(4), 1, 2)
    Else
        estado = o.Cargar(guion.Argumento(1), guion.Argumento(2), dia, guion.Argumento(4), 1, 2, guion.Argumento(5))
    End If
    Exigir estado = guion.Estado And guion.Pendientes = 0, "carga " & i & ": estado " & estado
    Comparar "Codigo", o.Codigo, "Long"
    Comparar "Familia_1", o.Familia_1, "Integer"
    Comparar "Descripcion", o.Descripcion, "String"
    Comparar "Pvp", o.Pvp, "Double"
    Comparar "PDescuento", o.PDescuento, "Single"
    Comparar "Impuesto", o.Impuesto, "Byte"
    Comparar "DStock", o.DStock, "Boolean"
    Comparar "Stock", o.Stock, "Currency"
    guion.ElegirPrecio
    If Not IsNull(guion.Precio) Then
        If guion.Argumento(7) = 0 Then
            Exigir o.DevPvp(guion.Argumento(4), dia) = guion.Precio, "DevPvp " & i
        Else
            Exigir o.DevPvp(guion.Argumento(4), dia, True) = guion.Precio, "DevPvp forzado " & i
        End If
    End If
    hechas = hechas + 1
End Sub

Sub ProbarError(que, numero, origen, descripcion)
    Exigir Err.Number = numero, que & ": numero " & Err.Number
    Exigir Err.Source = origen, que & ": origen " & Err.Source
    Exigir Left(Err.Description, Len(descripcion)) = descripcion, que & ": " & Err.Description
    Err.Clear
End Sub

Sub ProbarErrores()
    Dim nuevo, nada
    On Error Resume Next
    Set nuevo = CreateObject("KVDatosArt.clsDatosArt")
    Set nuevo.cEmpresa = guion.Empresa
    nada = nuevo.Cargar(101, 1, Date, 1, 1, 2)
    ProbarError "sin Conexion", 91, "clsCliente::Cargar", "Variable de objeto no establecida: Conexion"
    Set nuevo.Conexion = guion
    ProbarError "no es una conexion", 13, "KVDatosArt", "No coinciden los tipos: Conexion"
    Set nuevo.Conexion = guion.Conexion
    guion.ElegirPrecio
    nada = nuevo.Cargar(101, 1, Date, 1, 1, 2)
    ProbarError "del proveedor", &H80040E14, "clsCliente::Cargar", "se esperaba |"
    nuevo.Impuesto = 256
    Exigir Err.Number = 6, "Byte desbordado: " & Err.Number
    Err.Clear
    nuevo.Codigo = "doce"
    Exigir Err.Number = 13, "texto por numero: " & Err.Number
    Err.Clear
    nuevo.Inexistente = 1
    Exigir Err.Number = 438, "miembro ajeno: " & Err.Number
    Err.Clear
    nada = nuevo.Conexion
    Exigir Err.Number <> 0, "Conexion no se lee"
    Err.Clear
    Exigir nuevo.padre Is Nothing, "sin padre, Nothing"
    Exigir Err.Number = 0, "padre: " & Err.Description
    Set nuevo.padre = CreateObject("KVDatosArt.clsDatosArt")
    nuevo.padre.Codigo = 0
    nuevo.padre.Descripcion = "puesto"
    Exigir nuevo.padre.Descripcion = "puesto", "el padre es siempre el mismo objeto"
    Exigir Err.Number = 0, "padre: " & Err.Description
End Sub

mal = 0
hechas = 0
Set guion = CreateObject("KVPrueba.Guion")
cuantos = guion.Abrir(WScript.Arguments(0))
For i = 0 To cuantos - 1 Step 7
    guion.Elegir i
    Cargar
Next
ProbarErrores
WScript.Echo "VBScript: " & hechas & " cargas, " & mal & " fallas"
If mal = 0 And hechas > 100 Then WScript.Quit 42
WScript.Quit 1
