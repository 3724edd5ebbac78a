// The contract over the ADO adapter: ADO-shaped objects lead to the system's odbc32 and a real driver, whose values
// travel through VARIANTs and back.

#include <cstdlib>

#include "db/ado/ConexionAdo.h"
#include "db/odbc/ConexionOdbc.h"
#include "tests/ado/ClaseFalsa.h"
#include "tests/comun/LeerValor.h"
#include "tests/odbc/ContratoSqlite.h"

namespace kv::prueba {
namespace {

/// Runs `f`; a failure goes out as a provider's does, with its number and text.
template <class F>
HRESULT Contestar(F f) try {
    f();
    return S_OK;
} catch (const RuntimeError& error) {
    return Quejarse(error.descripcion,
                    error.numero < 0 ? error.numero : MAKE_HRESULT(1, FACILITY_CONTROL, error.numero));
}

class CamposFachada : public Falso<ado::Fields> {
  public:
    explicit CamposFachada(kv::Recordset& rs) : Falso(IID_NULL), rs_(rs) {}
    HRESULT STDMETHODCALLTYPE get_Count(long* cuantos) override {
        return Contestar([&] { *cuantos = rs_.NumeroCampos(); });
    }
    /// By name its value, by place its name.
    HRESULT STDMETHODCALLTYPE get_Item(VARIANT indice, ado::Field** campo) override {
        return Contestar([&] {
            *campo = indice.vt == VT_BSTR ? new CampoFalso(rs_.Fields(Utf8(indice.bstrVal)).Value())
                                          : new CampoFalso(Nulo{}, rs_.NombreCampo(indice.lVal));
        });
    }

  private:
    kv::Recordset& rs_;
};

class ConexionFachada : public ConexionFalsa {
  public:
    explicit ConexionFachada(kv::Connection& real_) : ConexionFalsa(ado::kConnection[1]), real(real_) {}
    HRESULT STDMETHODCALLTYPE Execute(BSTR texto, VARIANT* afectados, long opciones, ado::Recordset** rs) override {
        *rs = nullptr;
        std::int32_t cuantos = 0;
        const auto ejecutar = [&] { real.Execute(Utf8(texto), &cuantos, static_cast<CommandType>(opciones)); };
        const HRESULT hr = Contestar(ejecutar);
        *afectados = Variante(Valor{cuantos}).Soltar();
        return hr;
    }
    HRESULT STDMETHODCALLTYPE BeginTrans(long* nivel) override {
        *nivel = 1;
        return Contestar([&] { real.BeginTrans(); });
    }
    HRESULT STDMETHODCALLTYPE CommitTrans() override {
        return Contestar([&] { real.CommitTrans(); });
    }
    HRESULT STDMETHODCALLTYPE RollbackTrans() override {
        return Contestar([&] { real.RollbackTrans(); });
    }
    kv::Connection& real;
};

class RecordsetFachada : public RecordsetFalso {
  public:
    using RecordsetFalso::RecordsetFalso;
    HRESULT STDMETHODCALLTYPE Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo, long opciones) override {
        return Contestar([&] {
            kv::Connection& real = static_cast<ConexionFachada*>(conexion.pdispVal)->real;
            if (!rs_) rs_ = real.CrearRecordset();
            rs_->Open(Utf8(origen.bstrVal), real, static_cast<CursorType>(cursor), static_cast<LockType>(bloqueo),
                      static_cast<CommandType>(opciones));
        });
    }
    HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* fin) override {
        return Contestar([&] { *fin = rs_->Eof() ? VARIANT_TRUE : VARIANT_FALSE; });
    }
    HRESULT STDMETHODCALLTYPE get_Fields(ado::Fields** campos) override {
        *campos = new CamposFachada(*rs_);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE MoveNext() override {
        return Contestar([&] { rs_->MoveNext(); });
    }
    HRESULT STDMETHODCALLTYPE Close() override {
        return Contestar([&] { rs_->Close(); });
    }
    HRESULT STDMETHODCALLTYPE get_State(long* estado) override {
        *estado = static_cast<long>(rs_->State());
        return S_OK;
    }

  private:
    std::unique_ptr<kv::Recordset> rs_;
};

struct Montaje {
    ClaseFalsa<RecordsetFachada> clase{ado::kClaseRecordset, ado::kRecordset[1]};
    ConexionOdbc real{"DSN=" + std::string(std::getenv("KV_ORIGEN")), DialectoOdbc::Otro};
    PunteroCom<ConexionFachada> fachada = Nuevo<ConexionFachada>(real);
    ConexionAdo cn{fachada.Get()};
};

std::shared_ptr<Connection> Conectar() {
    const auto montaje = std::make_shared<Montaje>();
    montaje->real.EjecutarLote("DROP TABLE IF EXISTS Contrato");
    CrearContratoSqlite(montaje->cn);
    // The driver brings no wide text back, but what went in is whole.
    EXPECT_EQ(Valor(std::string("C3B120E282AC207820")),
              LeerValor(montaje->cn, "SELECT HEX(Texto) AS Bytes FROM Contrato WHERE Codigo =1"));
    return {montaje, &montaje->cn};
}

const AdaptadorProbado kAdo{
    "ado", Conectar, kNoPuedeSqliteOdbc,
    std::getenv("KV_ORIGEN") == nullptr ? "KV_ORIGEN no dice qué origen de datos ODBC se prueba" : "",
    MAKE_HRESULT(1, FACILITY_CONTROL, 0)};

INSTANTIATE_TEST_SUITE_P(Ado, ContratoAdaptador, testing::Values(kAdo));

}  // namespace
}  // namespace kv::prueba
