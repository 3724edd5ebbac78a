' Prices a sales line of an open ADO connection through KVDatosArt.dll:
'   cscript //nologo precio.vbs CONEXION EMPRESA ARTICULO CLIENTE [UNIDADES]
' CONEXION is an OLE DB connection string, for example
'   "Provider=MSOLEDBSQL;Server=servidor;Database=tienda;Trusted_Connection=yes"
' Leaves 0 when the article was loaded, 1 when it does not exist, has no stock or is locked, 2 for wrong use and 3 for
' a failure. The script's bitness must be the DLL's: the cscript of SysWOW64 runs 32-bit ones on 64-bit Windows.
Option Explicit

Const Almacen = 1

' The company object that the component asks by name.
Class Empresa
    Public CodEmpresa
    Public CodEmpresaArticulos
    Public CodEmpresaClientes
    Public CodEmpresaExtra
    Public TarifaEmpresa
    Public VenderSinStock
    Public CosteUltimaCompra
    Public DecPrecios
    Public DecImportes
    Public DecCostes
    Private titulos
    Private parametros

    Public Sub Leer(conexion, codigo)
        Dim fila
        Set fila = conexion.Execute("SELECT * FROM Empresas WHERE Codigo=" & codigo)
        If fila.EOF Then Err.Raise 5, "precio.vbs", "No existe la empresa " & codigo
        CodEmpresa = codigo
        CodEmpresaArticulos = fila("Cod_EmpresaArticulos").Value
        CodEmpresaClientes = fila("Cod_EmpresaClientes").Value
        CodEmpresaExtra = fila("Cod_EmpresaExtra").Value
        TarifaEmpresa = fila("Tarifa").Value
        VenderSinStock = fila("VenderSinStock").Value
        CosteUltimaCompra = fila("CosteUltimaCompra").Value
        DecPrecios = fila("DecPrecios").Value
        DecImportes = fila("DecImportes").Value
        DecCostes = fila("DecCostes").Value
        titulos = Array(fila("CaptionFamilia1").Value, fila("CaptionFamilia2").Value, fila("CaptionFamilia3").Value)
        fila.Close
        Set parametros = CreateObject("Scripting.Dictionary")
        Set fila = conexion.Execute("SELECT Numero, Valor FROM Empresas_Parametros WHERE Cod_Empresa=" & codigo)
        Do Until fila.EOF
            parametros(CInt(fila("Numero").Value)) = fila("Valor").Value
            fila.MoveNext
        Loop
        fila.Close
    End Sub

    Public Function Parametro(numero)
        Parametro = Null
        If parametros.Exists(CInt(numero)) Then Parametro = parametros(CInt(numero))
    End Function

    Public Function CaptionFamilia(nivel)
        CaptionFamilia = titulos(nivel)
    End Function
End Class

Function Cargar(articulo, argumentos)
    Dim conexion, contexto, unidades
    Set conexion = CreateObject("ADODB.Connection")
    conexion.Open argumentos(0)
    ' The component writes its dates as day/month/year.
    conexion.Execute "SET DATEFORMAT dmy"
    Set contexto = New Empresa
    contexto.Leer conexion, CInt(argumentos(1))
    Set articulo.Conexion = conexion
    Set articulo.cEmpresa = contexto
    unidades = CCur(1)
    If argumentos.Count = 5 Then unidades = CCur(argumentos(4))
    Cargar = articulo.Cargar(CLng(argumentos(2)), CLng(argumentos(3)), Date, contexto.TarifaEmpresa, Almacen, _
        contexto.DecPrecios, unidades)
End Function

Sub Mostrar(articulo, estado)
    Dim nombres
    nombres = Array("cargado", "no existe", "sin stock", "bloqueado")
    WScript.Echo "Estado       " & nombres(estado)
    If estado = 1 Then Exit Sub
    WScript.Echo articulo.Codigo & "  " & articulo.Descripcion
    WScript.Echo "Precio       " & articulo.Pvp
    WScript.Echo "Sin dto.     " & articulo.PvpOriginal
    WScript.Echo "Descuento %  " & articulo.PDescuento
    WScript.Echo "Convenio     " & articulo.Convenio
    WScript.Echo "Stock        " & articulo.Stock
    If Not articulo.padre Is Nothing Then WScript.Echo "Se vende con " & articulo.padre.Descripcion
End Sub

Function Principal(argumentos)
    Dim articulo
    Principal = 3
    On Error Resume Next
    Set articulo = CreateObject("KVDatosArt.clsDatosArt")
    If Err.Number = 0 Then Principal = Cargar(articulo, argumentos)
    If Err.Number = 0 Then Mostrar articulo, Principal
    If Err.Number <> 0 Then
        WScript.Echo "Error 0x" & Hex(Err.Number) & " de " & Err.Source & ": " & Err.Description
        Principal = 3
    ElseIf Principal > 1 Then
        Principal = 1
    End If
End Function

If WScript.Arguments.Count < 4 Or WScript.Arguments.Count > 5 Then
    WScript.Echo "Uso: cscript //nologo precio.vbs CONEXION EMPRESA ARTICULO CLIENTE [UNIDADES]"
    WScript.Quit 2
End If
WScript.Quit Principal(WScript.Arguments)
