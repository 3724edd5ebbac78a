// Real statements through the ADO adapter: ADO-shaped objects over the system's odbc32 and a driver.

#include "db/ado/ConexionAdo.h"
#include "db/odbc/ConexionOdbc.h"
#include "tests/ado/FachadaAdo.h"
#include "tests/ado/Informe.h"

namespace kv::prueba {
namespace {

std::string Contar(const Valor& valor) {
    return EsNulo(valor) ? "NULL" : std::to_string(valor.index()) + ":" + AString(valor, '.');
}

/// The columns of the rows, each as its kind and text, rows parted by a bar.
std::string Leer(Connection& cn, const char* sql, std::initializer_list<const char*> columnas) {
    std::string leido;
    std::unique_ptr<kv::Recordset> rs;
    AbrirLectura(rs, cn, sql);
    for (; !rs->Eof(); rs->MoveNext()) {
        if (!leido.empty()) leido += " | ";
        for (const char* columna : columnas) leido += Contar(rs->Fields(columna).Value()) + " ";
    }
    rs->Close();
    return leido;
}

void Comparar(Connection& cn, const char* sql, std::initializer_list<const char*> columnas, const char* esperado) {
    const std::string leido = Leer(cn, sql, columnas);
    Exigir(leido == esperado, std::string(sql) + ": " + leido + "en vez de " + esperado);
}

/// What a text is in the database and what it is when it comes back.
void ProbarTextos(Connection& cn) {
    cn.Ejecutar("UPDATE Articulos SET Descripcion = 'Piña 5 €' WHERE Codigo = 2");
    Comparar(cn, "SELECT HEX(Descripcion) AS Bytes FROM Articulos WHERE Codigo = 2", {"Bytes"},
             "10:5069C3B161203520E282AC ");
    const std::string leido = Leer(cn, "SELECT Descripcion FROM Articulos WHERE Codigo = 2", {"Descripcion"});
    if (leido != "10:Piña 5 € ")
        Omitir("ñ y € de vuelta: el controlador no tiene funciones de texto ancho, da " + leido);
}

void Recorrer(Connection& cn) {
    cn.Ejecutar(
        "CREATE TABLE Articulos (Codigo INTEGER PRIMARY KEY, Descripcion VARCHAR(40), Precio DOUBLE, "
        "Coste DECIMAL(12,4), Alta DATE, Activo BIT, Tipo TINYINT, Familia SMALLINT)");
    Exigir(cn.EjecutarContando("INSERT INTO Articulos VALUES (1, 'Jugo', 2.5, 1.2345, '2026-03-05', 1, 200, -7), "
                               "(2, NULL, NULL, NULL, NULL, NULL, NULL, NULL)") == 2,
           "filas insertadas");
    Comparar(cn, "SELECT * FROM Articulos ORDER BY Codigo",
             {"codigo", "DESCRIPCION", "Precio", "Coste", "Alta", "Activo", "Tipo", "Familia"},
             "4:1 10:Jugo 7:2.5 10:1.2345 9:05/03/2026 1:Verdadero 2:200 3:-7  | "
             "4:2 NULL NULL NULL NULL NULL NULL NULL ");
    ProbarTextos(cn);
    Comparar(cn, "SELECT Codigo FROM Articulos WHERE Codigo = 77", {"Codigo"}, "");
    Exigir(cn.EjecutarContando("UPDATE Articulos SET Precio = 9 WHERE Codigo = 77") == 0, "ninguna afectada");

    cn.BeginTrans();
    Exigir(cn.EjecutarContando("UPDATE Articulos SET Precio = 3") == 2, "dos afectadas");
    cn.RollbackTrans();
    Comparar(cn, "SELECT Precio FROM Articulos ORDER BY Codigo", {"Precio"}, "7:2.5  | NULL ");
    cn.BeginTrans();
    cn.Ejecutar("DELETE FROM Articulos WHERE Codigo = 2");
    cn.CommitTrans();
    Comparar(cn, "SELECT COUNT(*) AS Cuantos FROM Articulos", {"Cuantos"}, "4:1 ");

    const std::string tabla = Fallo([&] { Leer(cn, "SELECT 1 FROM NoHay", {}); });
    Exigir(tabla.find("|Proveedor de prueba|") != std::string::npos && tabla.starts_with("-"), tabla);
    const std::string columna = Fallo([&] { Leer(cn, "SELECT Codigo FROM Articulos", {"Nada"}); });
    Exigir(columna.starts_with("-2146825023|"), columna);
}

}  // namespace

void ProbarSentencias(const std::string& origen) {
    PunteroCom<IUnknown> fabrica;
    *fabrica.Recibir() = new FabricaFalsa<RecordsetFachada>(ado::kRecordset[1]);
    DWORD registro = 0;
    Exigir(CoRegisterClassObject(ado::kClaseRecordset, fabrica.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                 &registro) == S_OK,
           "fábrica de recordsets");
    ConexionOdbc real("DSN=" + origen, DialectoOdbc::Otro);
    PunteroCom<ado::Connection> fachada;
    *fachada.Recibir() = new ConexionFachada(real);
    ConexionAdo cn(fachada.Get());
    const long antes = Global().vivos;
    Recorrer(cn);
    Exigir(Global().vivos == antes, "las referencias vuelven a cero");
    CoRevokeClassObject(registro);
}

}  // namespace kv::prueba
