#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/rules/DescuentosAcuerdo.h"
#include "kvdatosart/rules/clsClientes_Cadenas_ConvArt.h"

namespace kv {

std::size_t clsClientes_Cadenas_ConvArt::Casilla(std::int16_t indice) {
    if (indice < 0 || indice > 4) LanzarError(kErrSubindice, "descuento " + std::to_string(indice));
    return static_cast<std::size_t>(indice);
}

// clang-format off
std::string clsClientes_Cadenas_ConvArt::CondicionClave() const {
    return TextoSql(
        " WHERE Cod_Empresa =", SqlEntero(Emp().CodEmpresa()),
        " AND Cod_Nivel1 =", SqlEntero(Cod_Nivel1),
        " AND Cod_Nivel2 =", SqlEntero(Cod_Nivel2),
        " AND Cod_Nivel3 =", SqlEntero(Cod_Nivel3),
        " AND Cod_Nivel4 =", SqlEntero(Cod_Nivel4),
        " AND Cod_Nivel5 =", SqlEntero(Cod_Nivel5),
        " AND Cod_Nivel6 =", SqlEntero(Cod_Nivel6),
        " AND Cod_Nivel7 =", SqlEntero(Cod_Nivel7),
        " AND Cod_Nivel8 =", SqlEntero(Cod_Nivel8),
        " AND Cod_Nivel9 =", SqlEntero(Cod_Nivel9),
        " AND Cod_Nivel10 =", SqlEntero(Cod_Nivel10),
        " AND Cod_Articulo =", SqlEntero(Cod_Articulo));
}

bool clsClientes_Cadenas_ConvArt::Cargar() {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, Cnx(), TextoSql(
        "SELECT * FROM Clientes_Cadenas_ConvArt", CondicionClave(),
        " AND FechaEntrada ='", SqlFechaLiteral(FechaEntrada), "'"));
    if (!rs->Eof()) {
        FechaEntrada = ADate(rs->Fields("FechaEntrada").Value());
        FechaSalida = ADate(rs->Fields("FechaSalida").Value());
        DtoPadre = ABoolean(rs->Fields("Dto_Padre").Value());
        for (std::size_t i = 0; i < kDescuentosAcuerdo.size(); ++i) {
            const ColumnasDescuento& columnas = kDescuentosAcuerdo[i];
            tipos_[i] = AInteger(rs->Fields(columnas.tipo).Value());
            importes_[i] = ACurrency(rs->Fields(columnas.importe).Value());
            unidades_[i] = AInteger(rs->Fields(columnas.cantidad).Value());
            cascadas_[i] = ABoolean(rs->Fields(columnas.cascada).Value());
            iniciales_[i] = ADate(rs->Fields(columnas.entrada).Value());
            finales_[i] = ADate(rs->Fields(columnas.salida).Value());
        }
    }
    rs->Close();
    // Quirk (0013): the result is never set; callers look at the loaded values.
    return false;
}

void clsClientes_Cadenas_ConvArt::Insertar() try {
    std::string sql = TextoSql(
        "INSERT INTO Clientes_Cadenas_ConvArt (Cod_Empresa, Cod_Articulo,",
        " Cod_Nivel1, Cod_Nivel2, Cod_Nivel3, Cod_Nivel4, Cod_Nivel5,",
        " Cod_Nivel6, Cod_Nivel7, Cod_Nivel8, Cod_Nivel9, Cod_Nivel10,",
        " TDto1, ImporteDto1, CantidadDto1, Aplicar_Cascada1,",
        " TDto2, ImporteDto2, CantidadDto2, Aplicar_Cascada2,",
        " TDto3, ImporteDto3, CantidadDto3, Aplicar_Cascada3,",
        " TDto4, ImporteDto4, CantidadDto4, Aplicar_Cascada4,",
        " TDto5, ImporteDto5, CantidadDto5, Aplicar_Cascada5,",
        " Dto_Padre, Nivel, Enviado) VALUES (",
        SqlEntero(Emp().CodEmpresa()), ", ", SqlEntero(Cod_Articulo));
    for (const std::int16_t nivel : Niveles()) Agregar(sql, ", ", SqlEntero(nivel));
    for (std::size_t i = 0; i < tipos_.size(); ++i)
        Agregar(sql, ", ", SqlEntero(tipos_[i]), ", ", SqlCurrencyConPunto(importes_[i]), ", ",
                SqlEntero(unidades_[i]), ", ", SqlBooleano(cascadas_[i]));
    Agregar(sql, ", ", SqlBooleano(DtoPadre), ", ", SqlEntero(Nivel), ", 0)");
    Cnx().Ejecutar(sql);
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Insertar");
}

void clsClientes_Cadenas_ConvArt::Modificar() try {
    Cnx().Ejecutar(TextoSql(
        "UPDATE Clientes_Cadenas_ConvArt SET",
        " TDto1=", SqlEntero(tipos_[0]),
        ", TDto2=", SqlEntero(tipos_[1]),
        ", TDto3=", SqlEntero(tipos_[2]),
        ", TDto4=", SqlEntero(tipos_[3]),
        ", TDto5=", SqlEntero(tipos_[4]),
        ", ImporteDto1=", SqlCurrencyConPunto(importes_[0]),
        ", ImporteDto2=", SqlCurrencyConPunto(importes_[1]),
        ", ImporteDto3=", SqlCurrencyConPunto(importes_[2]),
        ", ImporteDto4=", SqlCurrencyConPunto(importes_[3]),
        ", ImporteDto5=", SqlCurrencyConPunto(importes_[4]),
        ", CantidadDto1=", SqlEntero(unidades_[0]),
        ", CantidadDto2=", SqlEntero(unidades_[1]),
        ", CantidadDto3=", SqlEntero(unidades_[2]),
        ", CantidadDto4=", SqlEntero(unidades_[3]),
        ", CantidadDto5=", SqlEntero(unidades_[4]),
        ", Aplicar_Cascada1=", SqlBooleano(cascadas_[0]),
        ", Aplicar_Cascada2=", SqlBooleano(cascadas_[1]),
        ", Aplicar_Cascada3=", SqlBooleano(cascadas_[2]),
        ", Aplicar_Cascada4=", SqlBooleano(cascadas_[3]),
        ", Aplicar_Cascada5=", SqlBooleano(cascadas_[4]),
        ", Dto_Padre=", SqlBooleano(DtoPadre),
        ", Enviado = 0", CondicionClave()));
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Modificar");
}

void clsClientes_Cadenas_ConvArt::Eliminar() try {
    Cnx().Ejecutar(TextoSql("DELETE FROM Clientes_Cadenas_ConvArt", CondicionClave()));
} catch (...) {
    Relanzar("clsClientes_Cadenas_ConvArt::Eliminar");
}
// clang-format on

}  // namespace kv
