#include "kvdatosart/catalog/Seleccion.h"

#include <algorithm>

#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

constexpr std::string_view kTop = "SELECT TOP 4096 ";
constexpr std::size_t kPagina = 4096;
// Codes that one statement names.
constexpr std::size_t kCodigosPorParte = 200;

std::string DeEmpresa(std::int16_t empresa) {
    return TextoSql(" WHERE Cod_Empresa =", SqlEntero(empresa));
}

std::string CondicionFamilia(const CodigosFamilia& familia, bool entera) {
    std::string sql = TextoSql("Familia_1 =", SqlEntero(familia[0]));
    if (entera || familia[1] != 0) Agregar(sql, " AND Familia_2 =", SqlEntero(familia[1]));
    if (entera || familia[2] != 0) Agregar(sql, " AND Familia_3 =", SqlEntero(familia[2]));
    return sql;
}

std::string CondicionFamilias(const std::vector<CodigosFamilia>& familias) {
    std::string sql;
    for (const CodigosFamilia& familia : familias)
        sql += (sql.empty() ? " AND ((" : ") OR (") + CondicionFamilia(familia, false);
    return sql.empty() ? sql : sql + "))";
}

std::string CondicionCodigos(const std::int32_t* desde, const std::int32_t* hasta) {
    std::string sql = " AND Codigo IN (";
    for (const std::int32_t* codigo = desde; codigo != hasta; ++codigo)
        Agregar(sql, std::string_view(codigo == desde ? "" : ","), SqlEntero(*codigo));
    return sql + ")";
}

void Ordenar(std::vector<std::int32_t>& codigos) {
    std::sort(codigos.begin(), codigos.end());
    codigos.erase(std::unique(codigos.begin(), codigos.end()), codigos.end());
}

}  // namespace

FuenteCodigos FuenteCodigos::DeArticulos(const Puesto& puesto, const SeleccionArticulos& seleccion, bool porFamilia) {
    FuenteCodigos fuente(puesto.conexion, "Articulos", DeEmpresa(puesto.empresa->CodEmpresaArticulos()));
    if (!seleccion.codigos.empty()) {
        fuente.PorCodigos(seleccion.codigos);
    } else {
        fuente.donde_ += CondicionFamilias(seleccion.familias);
        fuente.busca_ = seleccion.busca;
    }
    if (porFamilia) fuente.PorFamilias();
    return fuente;
}

FuenteCodigos FuenteCodigos::DeClientes(const Puesto& puesto, const SeleccionClientes& seleccion) {
    FuenteCodigos fuente(puesto.conexion, "Clientes", DeEmpresa(puesto.empresa->CodEmpresaClientes()));
    if (!seleccion.codigos.empty()) {
        fuente.PorCodigos(seleccion.codigos);
        return fuente;
    }
    if (seleccion.grupo) Agregar(fuente.donde_, " AND Grupo_Dto =", SqlEntero(*seleccion.grupo));
    if (!seleccion.nodo) return fuente;
    for (std::size_t i = 0; i < seleccion.nodo->size() && (*seleccion.nodo)[i] != 0; ++i)
        Agregar(fuente.donde_, " AND Cad_Nivel_", SqlEntero(static_cast<std::int32_t>(i) + 1), " =",
                SqlEntero((*seleccion.nodo)[i]));
    return fuente;
}

void FuenteCodigos::PorCodigos(std::vector<std::int32_t> codigos) {
    Ordenar(codigos);
    partes_.clear();
    for (std::size_t i = 0; i < codigos.size(); i += kCodigosPorParte)
        partes_.push_back(
            CondicionCodigos(codigos.data() + i, codigos.data() + std::min(i + kCodigosPorParte, codigos.size())));
}

// Each part becomes one for each family that it has, all the parts of a family together.
void FuenteCodigos::PorFamilias() {
    std::vector<std::pair<CodigosFamilia, std::size_t>> familias;
    std::unique_ptr<Recordset> rs;
    for (std::size_t parte = 0; parte < partes_.size(); ++parte) {
        AbrirLectura(rs, *conexion_,
                     TextoSql("SELECT DISTINCT Familia_1, Familia_2, Familia_3 FROM ", tabla_, donde_, partes_[parte]));
        for (; !rs->Eof(); rs->MoveNext()) {
            const CodigosFamilia familia = {AInteger(rs->Fields("Familia_1").Value()),
                                            AInteger(rs->Fields("Familia_2").Value()),
                                            AInteger(rs->Fields("Familia_3").Value())};
            familias.emplace_back(familia, parte);
        }
        rs->Close();
    }
    std::sort(familias.begin(), familias.end());
    std::vector<std::string> partes;
    partes.reserve(familias.size());
    for (const auto& [familia, parte] : familias)
        partes.push_back(partes_[parte] + " AND " + CondicionFamilia(familia, true));
    partes_ = std::move(partes);
}

std::uint64_t FuenteCodigos::Contar() {
    std::uint64_t cuantos = 0;
    if (busca_) {
        while (Siguiente()) ++cuantos;
        return cuantos;
    }
    std::unique_ptr<Recordset> rs;
    for (const std::string& parte : partes_) {
        AbrirLectura(rs, *conexion_, TextoSql("SELECT COUNT(*) AS Cuantos FROM ", tabla_, donde_, parte));
        cuantos += static_cast<std::uint64_t>(ALong(rs->Fields("Cuantos").Value()));
        rs->Close();
    }
    return cuantos;
}

// The next page that is not empty; false when there is none.
bool FuenteCodigos::LeerPagina() {
    const bool conTexto = busca_ != nullptr;
    std::unique_ptr<Recordset> rs;
    pagina_.clear();
    lugar_ = 0;
    while (pagina_.empty() && parte_ < partes_.size()) {
        const bool primera = ultimo_ == INT32_MIN;
        AbrirLectura(rs, *conexion_,
                     TextoSql(kTop, std::string_view(conTexto ? "Codigo, Descripcion" : "Codigo"), " FROM ", tabla_,
                              donde_, partes_[parte_], " AND Codigo >", SqlEntero(ultimo_), " ORDER BY Codigo"));
        std::size_t leidos = 0;
        for (; !rs->Eof(); rs->MoveNext(), ++leidos) {
            ultimo_ = ALong(rs->Fields("Codigo").Value());
            if (!conTexto || busca_(ultimo_, AString(rs->Fields("Descripcion").Value(), '.')))
                pagina_.push_back(ultimo_);
        }
        rs->Close();
        if (leidos == kPagina) continue;
        entera_ = primera && partes_.size() == 1;
        ++parte_;
        ultimo_ = INT32_MIN;
    }
    return !pagina_.empty();
}

std::optional<std::int32_t> FuenteCodigos::Siguiente() {
    while (lugar_ == pagina_.size()) {
        const bool alFinal = entera_ || !LeerPagina();
        if (!alFinal) continue;
        lugar_ = parte_ = 0;
        return {};
    }
    return pagina_[lugar_++];
}

}  // namespace kv
