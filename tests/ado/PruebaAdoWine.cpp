// Against Wine's own ADO, which shares nothing with the declarations under test. What it does not implement is shown
// as left out, and checked as soon as it is.

#include <msado15_backcompat.h>

#include "db/ado/ConexionAdo.h"
#include "db/ado/CrearAdo.h"
#include "db/ado/Variante.h"
#include "tests/ado/Informe.h"

namespace kv::prueba {
namespace {

constexpr GUID kClaseConnection = ado::Identificador(0x514);
const std::string kSinImplementar = std::to_string(E_NOTIMPL);

/// False, and shown as left out, when Wine lacks it; otherwise it must have worked.
bool Intentar(const std::string& que, const std::string& fallo) {
    if (fallo.starts_with(kSinImplementar)) return Omitir(que + ": Wine no lo implementa"), false;
    return Exigir(fallo.empty(), que + ": " + fallo);
}

long Estado(ado::Connection& cn) {
    long estado = -1;
    return cn.get_State(&estado) == S_OK ? estado : -1;
}

void Abrir(kv::Recordset& rs, Connection& cn, const char* sql) {
    rs.Open(sql, cn, CursorType::adOpenForwardOnly, LockType::adLockReadOnly, CommandType::adCmdText);
}

void ProbarExecute(ConexionAdo& cn) {
    for (const char* sql : {"CREATE TABLE Telefonos (Codigo INTEGER PRIMARY KEY, Nombre VARCHAR(20), Tarifa DOUBLE)",
                            "INSERT INTO Telefonos VALUES (1, 'Peña 5 €', 2.5)", "UPDATE Telefonos SET Codigo = 2"})
        Exigir(Fallo([&] { cn.Ejecutar(sql); }).empty(), sql);
    // Had the texts not arrived whole, these two would not differ.
    Exigir(Fallo([&] { cn.Ejecutar("INSERT INTO Telefonos VALUES (1, 'otra', 0)"); }).empty(), "clave libre");
    const std::string repetida = Fallo([&] { cn.Ejecutar("INSERT INTO Telefonos VALUES (2, 'otra', 0)"); });
    Exigir(repetida.starts_with(std::to_string(E_FAIL) + "|ADODB|"), "clave repetida: " + repetida);
    if (cn.EjecutarContando("UPDATE Telefonos SET Tarifa = 3") != 2) Omitir("registros afectados: Wine da siempre 0");
}

void ProbarConsulta(ConexionAdo& cn) {
    const auto rs = cn.CrearRecordset();
    Abrir(*rs, cn, "SELECT Codigo, Nombre FROM Telefonos WHERE Codigo = 2");
    Exigir(rs->State() == ObjectState::adStateOpen && rs->NumeroCampos() == 2, "abierto con dos campos");
    Exigir(rs->NombreCampo(0) == "Codigo" && rs->NombreCampo(1) == "Nombre", "nombres de los campos");
    if (rs->Eof())
        Omitir("filas de una consulta: Wine no las lee del proveedor y EOF es siempre verdadero");
    else
        Exigir(AString(rs->Fields("NOMBRE").Value(), '.') == "Peña 5 €", "valor de un campo");
    const std::string dosVeces = Fallo([&] { Abrir(*rs, cn, "SELECT 1"); });
    Exigir(dosVeces.starts_with(std::to_string(static_cast<HRESULT>(0x800A0E79)) + "|"), "abierto: " + dosVeces);
    rs->Close();
    Exigir(rs->State() == ObjectState::adStateClosed, "cerrado");
    Abrir(*rs, cn, "SELECT Codigo FROM Telefonos WHERE Codigo = 77");
    Exigir(rs->Eof() && rs->NumeroCampos() == 1, "se vuelve a abrir, sin filas");
}

void ProbarOrden(ado::Connection& cn) {
    const auto orden = CrearAdo<ado::Command>(ado::kClaseCommand, ado::kCommand);
    PunteroCom<::_Command> vista;
    Exigir(orden->QueryInterface(__uuidof(::_Command), vista.RecibirVoid()) == S_OK, "la orden");
    CommandTypeEnum tipo = adCmdUnknown;
    Cadena texto;
    PunteroCom<::_Connection> activa;
    Exigir(orden->put_CommandType(4) == S_OK && vista->get_CommandType(&tipo) == S_OK && tipo == adCmdStoredProc,
           "tipo");
    Exigir(orden->put_CommandText(Cadena("KVP_Prueba").Get()) == S_OK &&
               vista->get_CommandText(texto.Recibir()) == S_OK && Utf8(texto.Get()) == "KVP_Prueba",
           "texto");
    Exigir(orden->putref_ActiveConnection(&cn) == S_OK && vista->get_ActiveConnection(activa.Recibir()) == S_OK &&
               static_cast<void*>(activa.Get()) == static_cast<void*>(&cn),
           "conexión");
}

/// A row made in memory through Wine's header and read through ours.
void ProbarCampos() {
    PunteroCom<::_Recordset> hecho;
    CoCreateInstance(ado::kClaseRecordset, nullptr, CLSCTX_INPROC_SERVER, __uuidof(::_Recordset), hecho.RecibirVoid());
    PunteroCom<::Fields> columnas;
    Variante nada;
    nada.Get().vt = VT_ERROR;
    nada.Get().scode = DISP_E_PARAMNOTFOUND;
    hecho->get_Fields(columnas.Recibir());
    columnas->Append(Cadena("Precio").Get(), adDouble, 0, adFldUnspecified, nada.Get());
    const VARIANT sin = nada.Get();
    Exigir(hecho->Open(sin, sin, adOpenStatic, adLockOptimistic, -1) == S_OK && hecho->AddNew(sin, sin) == S_OK,
           "fila");
    PunteroCom<::Field> campo;
    Variante nombre(Valor{"Precio"});
    columnas->get_Item(nombre.Get(), campo.Recibir());
    Exigir(campo && campo->put_Value(Variante(Valor{2.5}).Get()) == S_OK, "valor puesto");

    PunteroCom<ado::Recordset> rs;
    hecho->QueryInterface(ado::kRecordset[0], rs.RecibirVoid());
    VARIANT_BOOL fin = VARIANT_TRUE;
    PunteroCom<ado::Fields> campos;
    PunteroCom<ado::Field> leido;
    Cadena titulo;
    Variante valor;
    Exigir(rs->get_EOF(&fin) == S_OK && fin == VARIANT_FALSE && rs->get_Fields(campos.Recibir()) == S_OK,
           "EOF y Fields");
    Exigir(campos->get_Item(Variante(Valor{"precio"}).Get(), leido.Recibir()) == S_OK,
           "campo sin distinguir mayúsculas");
    Exigir(leido->get_Name(titulo.Recibir()) == S_OK && Utf8(titulo.Get()) == "Precio", "nombre");
    Exigir(leido->get_Value(valor.Recibir()) == S_OK && valor.AValor() == Valor{2.5}, "valor leído");
    Exigir(rs->MoveNext() == S_OK && rs->get_EOF(&fin) == S_OK && fin == VARIANT_TRUE, "MoveNext hasta el fin");
    long estado = 0;
    Exigir(rs->get_State(&estado) == S_OK && estado == 1 && rs->Close() == S_OK, "State y Close");
}

}  // namespace

void ProbarAdoDeWine(const std::string& origen) {
    const auto cn = CrearAdo<ado::Connection>(kClaseConnection, ado::kConnection);
    ConexionAdo conexion(cn.Get());
    const std::string cerrada = Fallo([&] { conexion.Ejecutar("SELECT 1"); });
    Exigir(Estado(*cn.Get()) == 0 && cerrada.starts_with(std::to_string(static_cast<HRESULT>(0x800A0E78))), cerrada);
    ProbarOrden(*cn.Get());
    ProbarCampos();
    if (origen.empty()) return Omitir("Open, Execute y las consultas: falta un origen de datos ODBC");
    const Cadena cadena("Provider=MSDASQL;Data Source=" + origen);
    const Cadena vacia("");
    if (!Exigir(cn->Open(cadena.Get(), vacia.Get(), vacia.Get(), -1) == S_OK && Estado(*cn.Get()) == 1, "Open")) return;
    ProbarExecute(conexion);
    ProbarConsulta(conexion);
    if (Intentar("BeginTrans", Fallo([&] { conexion.BeginTrans(); })))
        Intentar("RollbackTrans", Fallo([&] { conexion.RollbackTrans(); }));
}

}  // namespace kv::prueba
