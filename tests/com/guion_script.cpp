// A recording as a script sees it, class KVPrueba.Guion: the fakes it stands on live in the script host's process.

#include <cstring>
#include <iterator>

#include "tests/com/ComandoFalso.h"

namespace kv::prueba {
namespace {

constexpr GUID kClase = {0x6d0b2f51, 0x35c4, 0x4b0e, {0x9a, 0x0e, 0x27, 0x55, 0x12, 0x64, 0x8e, 0x11}};

class GuionScript : public Falso<IDispatch> {
  public:
    explicit GuionScript(const GUID& clase) : Falso(clase) {
        *empresa_.Recibir() = new EmpresaFalsa;
        *conexion_.Recibir() = new ConexionFalsa(ado::kConnection[0]);
        *rs_.Recibir() = new FabricaFalsa<RecordsetFalso>(ado::kRecordset[0]);
        *cmd_.Recibir() = new FabricaFalsa<ComandoFalso>(ado::kCommand[0]);
        CoRegisterClassObject(ado::kClaseRecordset, rs_.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &marcas_[0]);
        CoRegisterClassObject(ado::kClaseCommand, cmd_.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &marcas_[1]);
    }
    ~GuionScript() override {
        for (DWORD marca : marcas_) CoRevokeClassObject(marca);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* nombres, UINT, LCID, DISPID* ids) override {
        for (std::size_t i = 0; i < std::size(kMiembros); ++i)
            if (lstrcmpiW(nombres[0], Cadena(kMiembros[i].nombre).Get()) == 0)
                return ids[0] = static_cast<DISPID>(i), S_OK;
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* a, VARIANT* resultado, EXCEPINFO*,
                                     UINT*) override {
        Variante argumento;
        if (a->cArgs > 0) VariantCopyInd(&argumento.Get(), &a->rgvarg[0]);
        Variante valor;
        (this->*kMiembros[id].funcion)(argumento, valor.Get());
        if (resultado != nullptr) *resultado = valor.Soltar();
        return S_OK;
    }

  private:
    using Funcion = void (GuionScript::*)(const Variante& argumento, VARIANT& resultado);
    struct Miembro {
        const char* nombre;
        Funcion funcion;
    };
    static const Miembro kMiembros[10];

    static void Dar(VARIANT& resultado, const Valor& valor) { resultado = Variante(valor).Soltar(); }
    const Caso& Actual() const { return casos_[caso_]; }

    /// Reads a recording; how many loads it has.
    void Abrir(const Variante& ruta, VARIANT& resultado) {
        casos_ = LeerGrabacion(AString(ruta.AValor(), '.').c_str(), empresa_->valores);
        Dar(resultado, static_cast<std::int32_t>(casos_.size()));
    }
    /// Takes a load as what the connection answers next.
    void Elegir(const Variante& cual, VARIANT&) {
        caso_ = static_cast<std::size_t>(ALong(cual.AValor()));
        Global().pasos = Actual().pasos;
    }
    void ElegirPrecio(const Variante&, VARIANT&) { Global().pasos = Actual().pasosPrecio; }
    void Argumento(const Variante& i, VARIANT& resultado) {
        Dar(resultado, static_cast<std::int32_t>(Actual().Numero(static_cast<std::size_t>(ALong(i.AValor())))));
    }
    void Conexion(const Variante&, VARIANT& resultado) { resultado = Variante(conexion_.Get()).Soltar(); }
    void Empresa(const Variante&, VARIANT& resultado) { resultado = Variante(empresa_.Get()).Soltar(); }
    /// The native value of a property after the load.
    void Esperado(const Variante& nombre, VARIANT& resultado) {
        for (const auto& [propiedad, valor] : Actual().propiedades)
            if (propiedad == AString(nombre.AValor(), '.')) Dar(resultado, Decodificar(valor));
    }
    void Estado(const Variante&, VARIANT& resultado) { Dar(resultado, static_cast<std::int16_t>(Actual().estado)); }
    /// The native tariff price, NULL when it fails.
    void Precio(const Variante&, VARIANT& resultado) {
        if (Actual().precio.empty()) return Dar(resultado, Nulo{});
        Dar(resultado, Currency::DeDiezmilesimas(std::stoll(Actual().precio)));
    }
    void Pendientes(const Variante&, VARIANT& resultado) {
        Dar(resultado, static_cast<std::int32_t>(Global().pasos.size()));
    }

    std::vector<Caso> casos_;
    std::size_t caso_ = 0;
    PunteroCom<EmpresaFalsa> empresa_;
    PunteroCom<ConexionFalsa> conexion_;
    PunteroCom<FabricaFalsa<RecordsetFalso>> rs_;
    PunteroCom<FabricaFalsa<ComandoFalso>> cmd_;
    DWORD marcas_[2] = {};
};

const GuionScript::Miembro GuionScript::kMiembros[10] = {
    {"Abrir", &GuionScript::Abrir},
    {"Elegir", &GuionScript::Elegir},
    {"ElegirPrecio", &GuionScript::ElegirPrecio},
    {"Argumento", &GuionScript::Argumento},
    {"Conexion", &GuionScript::Conexion},
    {"Empresa", &GuionScript::Empresa},
    {"Esperado", &GuionScript::Esperado},
    {"Estado", &GuionScript::Estado},
    {"Precio", &GuionScript::Precio},
    {"Pendientes", &GuionScript::Pendientes},
};

}  // namespace
}  // namespace kv::prueba

STDAPI DllGetClassObject(REFCLSID clase, REFIID iid, void** objeto) {
    using namespace kv::prueba;
    if (clase != kClase) return CLASS_E_CLASSNOTAVAILABLE;
    kv::PunteroCom<IClassFactory> fabrica;
    *fabrica.Recibir() = new FabricaFalsa<GuionScript>(IID_NULL);
    return fabrica->QueryInterface(iid, objeto);
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
