#include "kvdatosart/bench/LectorOdbc.h"

#include <array>
#include <stdexcept>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/odbc/ConexionOdbc.h"
#include "kvdatosart/db/odbc/Nativo.h"
#include "kvdatosart/db/odbc/TextoAncho.h"

namespace kv::bench {
namespace {

class Adaptador : public LectorOdbc {
  public:
    Adaptador(const std::string& cadena, std::vector<std::string> textos, std::vector<ColumnaMedida> columnas)
        : conexion_(cadena, DialectoOdbc::Otro), textos_(std::move(textos)), columnas_(std::move(columnas)) {}

    double Recorrer(std::size_t i) override {
        if (columnas_.empty()) return conexion_.EjecutarContando(textos_[i]);
        double suma = 0;
        AbrirLectura(rs_, conexion_, textos_[i]);
        for (; !rs_->Eof(); rs_->MoveNext())
            for (const ColumnaMedida& columna : columnas_)
                suma += Medida(columna.tipo, rs_->Fields(columna.nombre).Value());
        rs_->Close();
        return suma;
    }

  private:
    double Medida(TipoOdbc tipo, const Valor& valor) {
        switch (tipo) {
            case TipoOdbc::Corto:
                return AInteger(valor);
            case TipoOdbc::Largo:
                return ALong(valor);
            case TipoOdbc::Doble:
                return ADouble(valor);
            case TipoOdbc::Dinero:
                return static_cast<double>(ACurrency(valor).Diezmilesimas());
            case TipoOdbc::Dia:
                return ADate(valor).AOle();
            case TipoOdbc::Texto:
                texto_ = std::get<std::string>(valor);
                return static_cast<double>(texto_.size());
        }
        return 0;
    }

    ConexionOdbc conexion_;
    std::vector<std::string> textos_;
    std::vector<ColumnaMedida> columnas_;
    std::unique_ptr<Recordset> rs_;
    std::string texto_;
};

class Desnudo : public LectorOdbc {
  public:
    Desnudo(const std::string& cadena, const std::vector<std::string>& textos, std::vector<ColumnaMedida> columnas)
        : columnas_(std::move(columnas)), celdas_(columnas_.size()) {
        SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &entorno_);
        SQLSetEnvAttr(entorno_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
        SQLAllocHandle(SQL_HANDLE_DBC, entorno_, &conexion_);
        TextoAncho ancha;
        AAncho(cadena, ancha);
        Exigir(SQLDriverConnectW(conexion_, nullptr, ancha.data(), static_cast<SQLSMALLINT>(ancha.size()), nullptr, 0,
                                 nullptr, SQL_DRIVER_NOPROMPT));
        Exigir(SQLAllocHandle(SQL_HANDLE_STMT, conexion_, &sentencia_));
        for (const std::string& texto : textos) AAncho(texto, textos_.emplace_back());
        for (std::size_t c = 0; c < columnas_.size(); ++c) Enlazar(c);
    }
    ~Desnudo() override {
        SQLFreeHandle(SQL_HANDLE_STMT, sentencia_);
        SQLDisconnect(conexion_);
        SQLFreeHandle(SQL_HANDLE_DBC, conexion_);
        SQLFreeHandle(SQL_HANDLE_ENV, entorno_);
    }
    Desnudo(const Desnudo&) = delete;
    Desnudo& operator=(const Desnudo&) = delete;

    double Recorrer(std::size_t i) override {
        TextoAncho& texto = textos_[i];
        const SQLRETURN ejecutada = SQLExecDirectW(sentencia_, texto.data(), static_cast<SQLINTEGER>(texto.size()));
        if (ejecutada != SQL_NO_DATA) Exigir(ejecutada);
        double suma = 0;
        if (columnas_.empty()) {
            SQLLEN filas = 0;
            Exigir(SQLRowCount(sentencia_, &filas));
            suma = static_cast<double>(filas);
        } else {
            for (SQLRETURN fila = SQLFetch(sentencia_); fila != SQL_NO_DATA; fila = SQLFetch(sentencia_)) {
                Exigir(fila);
                for (std::size_t c = 0; c < columnas_.size(); ++c) suma += Medida(columnas_[c].tipo, celdas_[c]);
            }
        }
        SQLFreeStmt(sentencia_, SQL_CLOSE);
        return suma;
    }

  private:
    struct Celda {
        SQLLEN indicador = 0;
        SQLSMALLINT corto = 0;
        SQLINTEGER largo = 0;
        SQLDOUBLE doble = 0;
        SQL_DATE_STRUCT dia{};
        std::array<char, 48> cifras{};
        std::array<SQLWCHAR, 128> ancho{};
    };

    static void Exigir(SQLRETURN resultado) {
        if (!SQL_SUCCEEDED(resultado)) throw std::runtime_error("falla una llamada ODBC");
    }

    void Enlazar(std::size_t c) {
        Celda& celda = celdas_[c];
        const auto enlazar = [&](SQLSMALLINT tipo, SQLPOINTER donde, std::size_t sitio) {
            Exigir(SQLBindCol(sentencia_, static_cast<SQLUSMALLINT>(c + 1), tipo, donde, static_cast<SQLLEN>(sitio),
                              &celda.indicador));
        };
        switch (columnas_[c].tipo) {
            case TipoOdbc::Corto:
                return enlazar(SQL_C_SSHORT, &celda.corto, 0);
            case TipoOdbc::Largo:
                return enlazar(SQL_C_SLONG, &celda.largo, 0);
            case TipoOdbc::Doble:
                return enlazar(SQL_C_DOUBLE, &celda.doble, 0);
            case TipoOdbc::Dinero:
                return enlazar(SQL_C_CHAR, celda.cifras.data(), celda.cifras.size());
            case TipoOdbc::Dia:
                return enlazar(SQL_C_TYPE_DATE, &celda.dia, 0);
            case TipoOdbc::Texto:
                return enlazar(SQL_C_WCHAR, celda.ancho.data(), sizeof celda.ancho);
        }
    }

    double Medida(TipoOdbc tipo, const Celda& celda) {
        const auto largo = static_cast<std::size_t>(celda.indicador);
        switch (tipo) {
            case TipoOdbc::Corto:
                return celda.corto;
            case TipoOdbc::Largo:
                return celda.largo;
            case TipoOdbc::Doble:
                return celda.doble;
            case TipoOdbc::Dinero:
                return static_cast<double>(Currency::DeTexto({celda.cifras.data(), largo}).Diezmilesimas());
            case TipoOdbc::Dia:
                return Fecha::DeAmd(celda.dia.year, celda.dia.month, celda.dia.day).AOle();
            case TipoOdbc::Texto:
                DeAncho(celda.ancho.data(), largo / sizeof(SQLWCHAR), texto_);
                return static_cast<double>(texto_.size());
        }
        return 0;
    }

    SQLHENV entorno_ = nullptr;
    SQLHDBC conexion_ = nullptr;
    SQLHSTMT sentencia_ = nullptr;
    std::vector<TextoAncho> textos_;
    std::vector<ColumnaMedida> columnas_;
    std::vector<Celda> celdas_;
    std::string texto_;
};

}  // namespace

std::unique_ptr<LectorOdbc> LectorAdaptador(const std::string& cadena, const std::vector<std::string>& textos,
                                            const std::vector<ColumnaMedida>& columnas) {
    return std::make_unique<Adaptador>(cadena, textos, columnas);
}
std::unique_ptr<LectorOdbc> LectorDesnudo(const std::string& cadena, const std::vector<std::string>& textos,
                                          const std::vector<ColumnaMedida>& columnas) {
    return std::make_unique<Desnudo>(cadena, textos, columnas);
}

}  // namespace kv::bench
