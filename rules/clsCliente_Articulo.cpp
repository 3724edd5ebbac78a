#include "kvdatosart/rules/clsCliente_Articulo.h"

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/Columnas.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {

// clang-format off
bool clsCliente_Articulo::Dev_Precio(Fecha dteFecha) try {
    const TextoNumero fecha = SqlFecha(dteFecha);
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        " SELECT Pvp FROM Clientes_Art_PVP",
        " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
        " AND Cod_Cliente =", SqlEntero(Cod_Cliente),
        " AND Cod_Articulo =", SqlEntero(Cod_Articulo),
        " AND Fecha_Inicial <=' ", fecha, "'",
        " AND Fecha_Final >=' ", fecha, "'"));
    const bool hallado = !rs->Eof();
    if (hallado) precio = ADouble(rs->Fields("Pvp").Value());
    rs->Close();
    return hallado;
} catch (...) {
    Relanzar("clsCliente_Articulo::Dev_Precio");
}

void clsCliente_Articulo::Insertar() try {
    Cnx().Ejecutar(TextoSql(
        "INSERT INTO Clientes_Art_PVP (Cod_Cliente,Cod_Empresa,Cod_Articulo,PVP,Fecha_Inicial,Fecha_Final) Values (",
        SqlEntero(Cod_Cliente), ",", SqlEntero(Cod_Empresa), ",", SqlEntero(Cod_Articulo), ",", SqlNumero(precio),
        ",'", SqlFecha(Fecha_Inicial), "','", SqlFecha(Fecha_Final), "')"));
} catch (...) {
    Relanzar("clsClientes_Art_PVP::Insertar");
}

void clsCliente_Articulo::Eliminar(std::int32_t lngCodigo, Fecha dteFecha_Inicial, Fecha dteFecha_Final) try {
    std::string sql;
    if (porArticulo_)
        Agregar(sql,
            " DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = ", SqlEntero(Cod_Empresa),
            " AND Cod_Articulo = ", SqlEntero(Cod_Articulo),
            " AND Cod_Cliente =  ", SqlEntero(lngCodigo));
    else
        Agregar(sql,
            "DELETE FROM Clientes_Art_PVP WHERE Cod_Empresa = ", SqlEntero(Cod_Empresa),
            " AND Cod_Articulo = ", SqlEntero(lngCodigo),
            " AND Cod_Cliente =  ", SqlEntero(Cod_Cliente));
    Agregar(sql,
        " AND Fecha_Inicial ='", SqlFecha(dteFecha_Inicial),
        "' AND Fecha_Final = '", SqlFecha(dteFecha_Final), "'");
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsClientes_Art_PVP::Eliminar");
}

void clsCliente_Articulo::Modificar(const std::int32_t& lngCodigo) try {
    Cnx().Ejecutar(TextoSql(
        " UPDATE Clientes_Art_PVP SET Cod_Articulo=", SqlEntero(Cod_Articulo),
        " ,Cod_Cliente=", SqlEntero(Cod_Cliente),
        ",PVP=", SqlNumero(precio),
        " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
        " AND Cod_Articulo =", SqlEntero(porArticulo_ ? Cod_Articulo : lngCodigo),
        " AND Cod_Cliente =", SqlEntero(porArticulo_ ? lngCodigo : Cod_Cliente),
        " AND Fecha_Inicial = '", SqlFecha(Fecha_Inicial), "'",
        " AND Fecha_Final = '", SqlFecha(Fecha_Final), "'"));
} catch (...) {
    Relanzar("clsClientes_Art_PVP::Modificar");
}

// What every browsing query begins with: the prices joined with the side that moves.
std::string clsCliente_Articulo::Union() const {
    if (porArticulo_)
        return TextoSql(
            " SELECT a.* , b.Nombre as Descripcion from Clientes b ",
            " INNER JOIN Clientes_Art_PVP a ",
            " ON (b.Codigo = a.Cod_Cliente) ",
            " and (b.Cod_Empresa = ", SqlEntero(Cod_EmpresaExtra), ")");
    return TextoSql(
        " SELECT a.* , b.Descripcion from Articulos b ",
        " INNER JOIN Clientes_Art_PVP a ",
        " ON (b.Codigo = a.Cod_Articulo) ",
        " and (b.Cod_Empresa = ", SqlEntero(Cod_EmpresaExtra), ")");
}

bool clsCliente_Articulo::Cargar(std::unique_ptr<Recordset>& rs, const bool& blnPor_Articulo, const Valor& codigo,
                                 std::shared_ptr<Connection> conexion) try {
    porArticulo_ = blnPor_Articulo;
    if (conexion) {
        // The rows of another connection cannot be opened through a recordset of the former one.
        rs.reset();
        Conexion(std::move(conexion));
    }
    std::string sql = Union();
    const std::string texto = AString(codigo, Biblioteca().SeparadorDecimal());
    if (porArticulo_)
        Agregar(sql, " Where a.Cod_Articulo = ", texto, " and a.Cod_Empresa = ", SqlEntero(Cod_Empresa));
    else
        Agregar(sql, " Where a.Cod_Cliente = ", texto, " and a.Cod_Empresa = ", SqlEntero(Cod_Empresa));
    return Abrir(rs, sql);
} catch (...) {
    Relanzar("clsCliente_Articulo::Cargar");
}

bool clsCliente_Articulo::Cargar_Siguiente(std::unique_ptr<Recordset>& rs) try {
    std::string sql = Union();
    if (porArticulo_)
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Articulo =",
            " (SELECT TOP 1 Cod_Articulo FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
            " AND Cod_Articulo  > ", TextoKey(), " ORDER BY Cod_Articulo ASC)");
    else
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Cliente =",
            " (SELECT TOP 1 Cod_Cliente FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
            " AND Cod_Cliente  > ", TextoKey(), " ORDER BY Cod_Cliente ASC)");
    return Abrir(rs, sql);
} catch (...) {
    Relanzar("clsCliente_Articulo::Cargar");
}

bool clsCliente_Articulo::Cargar_Anterior(std::unique_ptr<Recordset>& rs) try {
    std::string sql = Union();
    if (porArticulo_)
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Articulo =",
            " (SELECT TOP 1 Cod_Articulo FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
            " AND Cod_Articulo  < ", TextoKey(), " ORDER BY Cod_Articulo DESC)");
    else
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Cliente =",
            " (SELECT TOP 1 Cod_Cliente FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa),
            " AND Cod_Cliente  < ", TextoKey(), " ORDER BY Cod_Cliente DESC)");
    return Abrir(rs, sql);
} catch (...) {
    Relanzar("clsCliente_Articulo::Cargar");
}

bool clsCliente_Articulo::Cargar_Primero(std::unique_ptr<Recordset>& rs) try {
    std::string sql = Union();
    if (porArticulo_)
        Agregar(sql,
            " WHERE (a.Cod_Empresa=", SqlEntero(Cod_Empresa), ") and (a.Cod_Articulo =",
            " (SELECT ISNULL(MIN(Cod_Articulo), 0) FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa), "))");
    else
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Cliente =",
            " (SELECT ISNULL(MIN(Cod_Cliente), 0) AS Cod_Cliente FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa), ")");
    return Abrir(rs, sql);
} catch (...) {
    Relanzar("clsCliente_Articulo::Cargar");
}

bool clsCliente_Articulo::Cargar_Ultimo(std::unique_ptr<Recordset>& rs) try {
    std::string sql = Union();
    if (porArticulo_)
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Articulo =",
            " (SELECT ISNULL(MAX(Cod_Articulo), 0) AS Cod_Articulo FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa), ")");
    else
        Agregar(sql,
            " WHERE a.Cod_Empresa=", SqlEntero(Cod_Empresa), " and a.Cod_Cliente =",
            " (SELECT ISNULL(MAX(Cod_Cliente), 0) AS Cod_Cliente FROM Clientes_Art_PVP ",
            " WHERE Cod_Empresa =", SqlEntero(Cod_Empresa), ")");
    return Abrir(rs, sql);
} catch (...) {
    Relanzar("clsCliente_Articulo::Cargar");
}
// clang-format on

std::string clsCliente_Articulo::TextoKey() const {
    return AString(key_, Biblioteca().SeparadorDecimal());
}

bool clsCliente_Articulo::Abrir(std::unique_ptr<Recordset>& rs, std::string_view sql) {
    AbrirLectura(rs, Cnx(), sql);
    if (rs->Eof()) return false;
    CargarRegistro(*rs);
    return true;
}

void clsCliente_Articulo::CargarRegistro(Recordset& rs) {
    Cod_Articulo = ALong(rs.Fields("Cod_Articulo").Value());
    Cod_Empresa = AInteger(rs.Fields("Cod_Empresa").Value());
    Cod_Cliente = ALong(rs.Fields("Cod_Cliente").Value());
    Asignar(Descripcion, rs.Fields("Descripcion").Value());
    Fecha_Inicial = ADate(rs.Fields("Fecha_Inicial").Value());
    Fecha_Final = ADate(rs.Fields("Fecha_Final").Value());
    precio = ADouble(rs.Fields("Pvp").Value());
}

}  // namespace kv
