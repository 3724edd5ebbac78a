#include "catalog/Comparacion.h"

#include <cmath>

#include "db/ValoresSql.h"

namespace kv {
namespace {

constexpr const char* kTabla =
    "CREATE TABLE Comparada (Articulo int NOT NULL, Cliente int NOT NULL, Unidades money NOT NULL,"
    " Pvp money, Descuento money, Neto money, Situacion text, Motivo text, Descripcion text,"
    " Pvp2 money, Descuento2 money, Neto2 money, Situacion2 text, Motivo2 text, Descripcion2 text, Porcentaje float,"
    " PRIMARY KEY (Articulo, Cliente, Unidades)) WITHOUT ROWID";

std::string Texto(const std::string& texto) {
    std::string literal = "'";
    for (const char c : texto) literal.append(c == '\'' ? 2 : 1, c);
    return literal + "'";
}

std::string Donde(const ClaveComparada& clave) {
    return TextoSql(" WHERE Articulo =", SqlEntero(clave.articulo), " AND Cliente =", SqlEntero(clave.cliente),
                    " AND Unidades =", SqlCurrencyConPunto(clave.unidades));
}

void Insertar(Connection& mesa, const ClaveComparada& clave, const PrecioComparado& precio, std::string_view columnas) {
    mesa.Ejecutar(TextoSql("INSERT INTO Comparada (Articulo, Cliente, Unidades, ", columnas, ") VALUES (",
                           SqlEntero(clave.articulo), ", ", SqlEntero(clave.cliente), ", ",
                           SqlCurrencyConPunto(clave.unidades), ", ", SqlCurrencyConPunto(precio.pvp), ", ",
                           SqlCurrencyConPunto(precio.descuento), ", ", SqlCurrencyConPunto(precio.neto), ", ",
                           Texto(precio.situacion), ", ", Texto(precio.motivo), ", ", Texto(precio.descripcion), ")"));
}

// The columns of a side end in nothing or in 2.
std::optional<PrecioComparado> Leer(Recordset& rs, const std::string& lado) {
    const auto campo = [&](const std::string& nombre) -> const Valor& { return rs.Fields(nombre + lado).Value(); };
    if (EsNulo(campo("Situacion"))) return {};
    return PrecioComparado{ACurrency(campo("Pvp")),       ACurrency(campo("Descuento")),
                           ACurrency(campo("Neto")),      AString(campo("Situacion"), '.'),
                           AString(campo("Motivo"), '.'), AString(campo("Descripcion"), '.')};
}

bool Iguales(const PrecioComparado& a, const PrecioComparado& b) {
    return a.situacion == b.situacion && a.pvp == b.pvp && a.descuento == b.descuento && a.neto == b.neto;
}

std::optional<double> Porcentaje(const PrecioComparado& antes, const PrecioComparado& despues) {
    if (!antes.situacion.empty() || !despues.situacion.empty() || antes.neto == Currency()) return {};
    return (despues.neto - antes.neto).ADouble() * 100.0 / std::abs(antes.neto.ADouble());
}

}  // namespace

Comparacion::Comparacion(Connection& mesa, double umbral) : mesa_(mesa), umbral_(umbral) {
    mesa_.Ejecutar(kTabla);
    mesa_.BeginTrans();
}

void Comparacion::Antes(const ClaveComparada& clave, const PrecioComparado& precio) {
    Insertar(mesa_, clave, precio, "Pvp, Descuento, Neto, Situacion, Motivo, Descripcion");
    ++recuento_.soloAntes;
}

std::optional<PrecioComparado> Comparacion::Buscar(const ClaveComparada& clave) const {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, mesa_,
                 "SELECT Pvp, Descuento, Neto, Situacion, Motivo, Descripcion FROM Comparada" + Donde(clave));
    if (rs->Eof()) return {};
    return Leer(*rs, "");
}

void Comparacion::Despues(const ClaveComparada& clave, const PrecioComparado& precio) {
    const std::optional<PrecioComparado> antes = Buscar(clave);
    if (!antes) {
        Insertar(mesa_, clave, precio, "Pvp2, Descuento2, Neto2, Situacion2, Motivo2, Descripcion2");
        ++recuento_.soloDespues;
        return;
    }
    --recuento_.soloAntes;
    const std::optional<double> porcentaje = Porcentaje(*antes, precio);
    const bool iguales = Iguales(*antes, precio);
    if (iguales || (porcentaje && std::abs(*porcentaje) < umbral_)) {
        ++(iguales ? recuento_.iguales : recuento_.menores);
        mesa_.Ejecutar("DELETE FROM Comparada" + Donde(clave));
        return;
    }
    ++recuento_.distintas;
    mesa_.Ejecutar(TextoSql("UPDATE Comparada SET Pvp2 =", SqlCurrencyConPunto(precio.pvp),
                            ", Descuento2 =", SqlCurrencyConPunto(precio.descuento),
                            ", Neto2 =", SqlCurrencyConPunto(precio.neto), ", Situacion2 =", Texto(precio.situacion),
                            ", Motivo2 =", Texto(precio.motivo), ", Descripcion2 =", Texto(precio.descripcion),
                            ", Porcentaje =", porcentaje ? SqlDoble(*porcentaje) : TextoNumero("NULL"), Donde(clave)));
}

RecuentoComparacion Comparacion::Recorrer(const std::function<void(const LineaComparada&)>& linea) {
    mesa_.CommitTrans();
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, mesa_, "SELECT * FROM Comparada ORDER BY Porcentaje DESC, Articulo, Cliente, Unidades");
    for (; !rs->Eof(); rs->MoveNext()) {
        LineaComparada comparada;
        comparada.clave = {ALong(rs->Fields("Articulo").Value()), ALong(rs->Fields("Cliente").Value()),
                           ACurrency(rs->Fields("Unidades").Value())};
        comparada.antes = Leer(*rs, "");
        comparada.despues = Leer(*rs, "2");
        if (comparada.antes && comparada.despues && comparada.antes->situacion.empty() &&
            comparada.despues->situacion.empty()) {
            comparada.diferencia = comparada.despues->neto - comparada.antes->neto;
            comparada.porcentaje = Porcentaje(*comparada.antes, *comparada.despues);
        }
        linea(comparada);
    }
    rs->Close();
    return recuento_;
}

}  // namespace kv
