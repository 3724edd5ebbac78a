// A recording as a script sees it, class KVPrueba.Guion: the fakes it stands on live in the script host's process.

#include "kvdatosart/tests/com/Escena.h"

namespace kv::prueba {
namespace {

constexpr GUID kClase = {0x6d0b2f51, 0x35c4, 0x4b0e, {0x9a, 0x0e, 0x27, 0x55, 0x12, 0x64, 0x8e, 0x11}};

struct GuionScript : PorNombreFalso {
    using PorNombreFalso::PorNombreFalso;
    Variante Leer(const std::string& nombre, const Valor& dado) override {
        if (nombre == "Conexion") return Variante(escena_.conexion.Get());
        if (nombre == "Empresa") return Variante(escena_.empresa.Get());
        return Variante(Dato(nombre, dado));
    }

    /// Abrir reads a recording and gives how many loads it has; Elegir takes one as what the connection answers next.
    /// The others are what was recorded. The price is NULL when it failed; otherwise what it asks comes next.
    Valor Dato(const std::string& nombre, const Valor& dado) {
        if (nombre == "Abrir") {
            casos_ = LeerGrabacion(AString(dado, '.').c_str());
            return static_cast<std::int32_t>(casos_.size());
        }
        if (nombre == "Elegir") escena_.Poner((caso_ = &casos_.at(static_cast<std::size_t>(ALong(dado))))->partes[0]);
        if (nombre == "Argumento") return caso_->Numero(static_cast<std::size_t>(ALong(dado)));
        if (nombre == "Esperado") return Decodificar(caso_->propiedades.at(AString(dado, '.')));
        if (nombre == "Estado") return Decodificar(caso_->dado.at(nombre));
        if (nombre != "Precio" || caso_->dado.at(nombre).starts_with("error")) return Nulo{};
        escena_.Poner(caso_->partes[1]);
        return Decodificar(caso_->dado.at(nombre));
    }

    Escena escena_;
    std::vector<Caso> casos_;
    const Caso* caso_ = nullptr;
};

}  // namespace
}  // namespace kv::prueba

STDAPI DllGetClassObject(REFCLSID clase, REFIID iid, void** objeto) {
    using namespace kv::prueba;
    return clase == kClase ? Nuevo<FabricaFalsa<GuionScript>>()->QueryInterface(iid, objeto)
                           : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}
