#include "kvdatosart/catalog/Historia.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "kvdatosart/catalog/ConexionMemo.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

/// Gathers the days on which something begins, or on the day before which it ends.
class Dias {
  public:
    explicit Dias(const PeticionHistoria& peticion) : peticion_(peticion) {}

    void Empieza(const Valor& valor) {
        if (!EsNulo(valor)) Anadir(ADate(valor));
    }
    void Acaba(const Valor& valor) {
        if (EsNulo(valor)) return;
        // The last day of the calendar has no next one.
        if (const Fecha ultimo = ADate(valor); ultimo < peticion_.hasta) Anadir(ultimo + 1);
    }
    void Anadir(Fecha dia) {
        if (dia > peticion_.desde && dia <= peticion_.hasta) dias_.insert(dia);
    }
    std::vector<Fecha> Lista() const { return {dias_.begin(), dias_.end()}; }

  private:
    const PeticionHistoria& peticion_;
    std::set<Fecha> dias_;
};

struct Plazo {
    const char* empieza;
    const char* acaba;
};

constexpr auto kPlazosAcuerdo = std::to_array<Plazo>({{"FechaEntrada", "FechaSalida"},
                                                      {"FechaEntrada1", "FechaSalida1"},
                                                      {"FechaEntrada2", "FechaSalida2"},
                                                      {"FechaEntrada3", "FechaSalida3"},
                                                      {"FechaEntrada4", "FechaSalida4"},
                                                      {"FechaEntrada5", "FechaSalida5"}});

void LeerCambios(Dias& dias, const Puesto& puesto, const Pregunta& linea, bool deVariante) {
    std::string sql = TextoSql("SELECT Fecha_Entrada FROM ",
                               std::string_view(deVariante ? "Tarifas_Modificacion_C" : "Tarifas_Modificacion"),
                               " WHERE Cod_Empresa =", SqlEntero(puesto.empresa->CodEmpresaArticulos()),
                               " AND Cod_Articulo =", SqlEntero(linea.articulo));
    if (deVariante) Agregar(sql, " AND CualidadX =", SqlEntero(linea.cualidadX));
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *puesto.conexion, sql);
    for (; !rs->Eof(); rs->MoveNext()) dias.Empieza(rs->Fields("Fecha_Entrada").Value());
    rs->Close();
}

void LeerPreciosCliente(Dias& dias, const Puesto& puesto, const Pregunta& linea) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *puesto.conexion,
                 TextoSql("SELECT Fecha_Inicial, Fecha_Final FROM Clientes_Art_PVP WHERE Cod_Empresa =",
                          SqlEntero(puesto.empresa->CodEmpresa()), " AND Cod_Cliente =", SqlEntero(linea.cliente),
                          " AND Cod_Articulo =", SqlEntero(linea.articulo)));
    for (; !rs->Eof(); rs->MoveNext()) {
        dias.Empieza(rs->Fields("Fecha_Inicial").Value());
        dias.Acaba(rs->Fields("Fecha_Final").Value());
    }
    rs->Close();
}

// The agreements of the article in the customer's hierarchy, whatever their node.
void LeerAcuerdos(Dias& dias, const Puesto& puesto, const Pregunta& linea) {
    const std::int16_t empresa = puesto.empresa->CodEmpresa();
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *puesto.conexion,
                 TextoSql("SELECT a.* FROM Clientes_Cadenas_ConvArt a WHERE a.Cod_Empresa =", SqlEntero(empresa),
                          " AND a.Cod_Articulo =", SqlEntero(linea.articulo),
                          " AND a.Cod_Nivel1 IN (SELECT Cad_Nivel_1 FROM Clientes WHERE Cod_Empresa =",
                          SqlEntero(empresa), " AND Codigo =", SqlEntero(linea.cliente), ")"));
    for (; !rs->Eof(); rs->MoveNext())
        for (const Plazo& plazo : kPlazosAcuerdo) {
            dias.Empieza(rs->Fields(plazo.empieza).Value());
            dias.Acaba(rs->Fields(plazo.acaba).Value());
        }
    rs->Close();
}

bool MismoPrecio(const Tasacion& a, const Tasacion& b) {
    return a.estado == b.estado && a.fallo == b.fallo && a.pvp == b.pvp && a.descuento == b.descuento &&
           a.neto == b.neto && a.motivo == b.motivo;
}

}  // namespace

std::vector<Fecha> DiasDeCambio(const Puesto& puesto, const PeticionHistoria& peticion) {
    Dias dias(peticion);
    dias.Anadir(peticion.hoy);
    dias.Anadir(peticion.hoy + 1);
    LeerCambios(dias, puesto, peticion.terminos, false);
    if (peticion.terminos.cualidadX != 0) LeerCambios(dias, puesto, peticion.terminos, true);
    LeerPreciosCliente(dias, puesto, peticion.terminos);
    LeerAcuerdos(dias, puesto, peticion.terminos);
    return dias.Lista();
}

std::vector<TramoHistoria> HacerHistoria(const Puesto& puesto, const PeticionHistoria& peticion) {
    if (peticion.hasta < peticion.desde) return {};
    const HoyFijado hoy(peticion.hoy);
    const Puesto conMemo{std::make_shared<ConexionMemo>(puesto.conexion), puesto.empresa};
    std::vector<Fecha> dias = DiasDeCambio(puesto, peticion);
    dias.insert(dias.begin(), peticion.desde);
    std::vector<TramoHistoria> tramos;
    Pregunta pregunta = peticion.terminos;
    for (const Fecha dia : dias) {
        pregunta.fecha = dia;
        TramoHistoria tramo{dia, peticion.hasta, dia < peticion.hoy, Tasar(conMemo, pregunta)};
        if (!tramos.empty()) {
            TramoHistoria& anterior = tramos.back();
            if (anterior.pasado == tramo.pasado && MismoPrecio(anterior.tasacion, tramo.tasacion)) continue;
            anterior.hasta = dia + -1;
        }
        tramos.push_back(std::move(tramo));
    }
    return tramos;
}

}  // namespace kv
