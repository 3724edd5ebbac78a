#include "kvdatosart/catalog/Comparacion.h"

#include <cmath>

#include "kvdatosart/db/ValoresSql.h"

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

TextoNumero Importe(const PrecioComparado& precio, Currency PrecioComparado::*importe) {
    return precio.conPrecio ? SqlCurrencyConPunto(precio.*importe) : TextoNumero("NULL");
}

void Insertar(Connection& mesa, const ClaveComparada& clave, const PrecioComparado& precio, std::string_view columnas) {
    mesa.Ejecutar(TextoSql("INSERT INTO Comparada (Articulo, Cliente, Unidades, ", columnas, ") VALUES (",
                           SqlEntero(clave.articulo), ", ", SqlEntero(clave.cliente), ", ",
                           SqlCurrencyConPunto(clave.unidades), ", ", Importe(precio, &PrecioComparado::pvp), ", ",
                           Importe(precio, &PrecioComparado::descuento), ", ", Importe(precio, &PrecioComparado::neto),
                           ", ", Texto(precio.situacion), ", ", Texto(precio.motivo), ", ", Texto(precio.descripcion),
                           ")"));
}

// The columns of a side end in nothing or in 2; one that is not there has no situation either.
std::optional<PrecioComparado> Leer(Recordset& rs, const std::string& lado) {
    const auto campo = [&](const std::string& nombre) -> const Valor& { return rs.Fields(nombre + lado).Value(); };
    if (EsNulo(campo("Situacion"))) return {};
    PrecioComparado precio;
    precio.conPrecio = !EsNulo(campo("Neto"));
    if (precio.conPrecio) {
        precio.pvp = ACurrency(campo("Pvp"));
        precio.descuento = ACurrency(campo("Descuento"));
        precio.neto = ACurrency(campo("Neto"));
    }
    precio.situacion = AString(campo("Situacion"), '.');
    precio.motivo = AString(campo("Motivo"), '.');
    precio.descripcion = AString(campo("Descripcion"), '.');
    return precio;
}

bool Iguales(const PrecioComparado& a, const PrecioComparado& b) {
    if (a.situacion != b.situacion || a.conPrecio != b.conPrecio) return false;
    return !a.conPrecio || (a.pvp == b.pvp && a.descuento == b.descuento && a.neto == b.neto);
}

std::optional<Currency> Diferencia(const PrecioComparado& antes, const PrecioComparado& despues) {
    if (!antes.conPrecio || !despues.conPrecio) return {};
    return despues.neto - antes.neto;
}

std::optional<double> Porcentaje(const PrecioComparado& antes, const PrecioComparado& despues) {
    const std::optional<Currency> diferencia = Diferencia(antes, despues);
    if (!diferencia || antes.neto == Currency()) return {};
    return diferencia->ADouble() * 100.0 / std::abs(antes.neto.ADouble());
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
    mesa_.Ejecutar(TextoSql("UPDATE Comparada SET Pvp2 =", Importe(precio, &PrecioComparado::pvp),
                            ", Descuento2 =", Importe(precio, &PrecioComparado::descuento), ", Neto2 =",
                            Importe(precio, &PrecioComparado::neto), ", Situacion2 =", Texto(precio.situacion),
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
        if (comparada.antes && comparada.despues) {
            comparada.diferencia = Diferencia(*comparada.antes, *comparada.despues);
            comparada.porcentaje = Porcentaje(*comparada.antes, *comparada.despues);
        }
        linea(comparada);
    }
    rs->Close();
    return recuento_;
}

}  // namespace kv
