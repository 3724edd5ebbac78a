#include "db/odbc/ErrorOdbc.h"

#include <algorithm>
#include <array>
#include <string>

#include "base/RuntimeError.h"
#include "db/odbc/Asidero.h"
#include "db/odbc/ConexionOdbc.h"
#include "db/odbc/TextoAncho.h"

namespace kv {
namespace {

struct Registro {
    std::array<SQLWCHAR, 6> estado{};
    SQLINTEGER numero = 0;
    std::string texto;
};

// Room for the longest text that a record can have.
constexpr SQLSMALLINT kSitio = 32767;

// The record at `posicion`, from 1, with its text uncut; false past the last one.
bool LeerRegistro(SQLSMALLINT tipo, SQLHANDLE asidero, SQLSMALLINT posicion, TextoAncho& sitio, Registro& registro) {
    SQLSMALLINT unidades = 0;
    const SQLRETURN resultado = SQLGetDiagRecW(tipo, asidero, posicion, registro.estado.data(), &registro.numero,
                                               sitio.data(), kSitio, &unidades);
    if (!SQL_SUCCEEDED(resultado)) return false;
    DeAncho(sitio.data(), static_cast<std::size_t>(std::clamp<int>(unidades, 0, kSitio - 1)), registro.texto);
    return true;
}

std::string Estado(const Registro& registro) {
    std::string estado;
    DeAncho(registro.estado.data(), 5, estado);
    return estado;
}

}  // namespace

void LanzarErrorOdbc(SQLSMALLINT tipo, SQLHANDLE asidero, std::string_view sentencia) {
    TextoAncho sitio(kSitio);
    Registro registro;
    std::int32_t numero = 0;
    std::string descripcion;
    for (SQLSMALLINT i = 1; LeerRegistro(tipo, asidero, i, sitio, registro); ++i) {
        if (numero == 0) numero = registro.numero;
        if (!descripcion.empty()) descripcion += "; ";
        descripcion += "[" + Estado(registro) + "] (" + std::to_string(registro.numero) + ") " + registro.texto;
    }
    if (descripcion.empty()) descripcion = "El controlador ODBC no dice por qué ha fallado";
    if (!sentencia.empty()) descripcion += "; sentencia: " + std::string(sentencia);
    throw RuntimeError(numero != 0 ? numero : kErrOdbcSinNumero, "ODBC", std::move(descripcion));
}

void ComprobarOdbc(SQLRETURN resultado, const Asidero& asidero, std::string_view sentencia) {
    if (!SQL_SUCCEEDED(resultado)) LanzarErrorOdbc(asidero.Tipo(), asidero.Get(), sentencia);
}

std::string PrimerEstado(const Asidero& asidero) {
    TextoAncho sitio(kSitio);
    Registro registro;
    return LeerRegistro(asidero.Tipo(), asidero.Get(), 1, sitio, registro) ? Estado(registro) : std::string();
}

}  // namespace kv
