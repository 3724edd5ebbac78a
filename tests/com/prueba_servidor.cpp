// Runs under Wine: prueba_servidor registrado GRABACION | prueba_servidor manifiesto RUTA

#include <cstring>

#include "tests/com/Etapas.h"

namespace kv::prueba {

PunteroCom<::_clsDatosArt> Escena::Preparar(const Caso& caso) const {
    auto o = Crear();
    Exigir(o->putref_Conexion(conexion.Get()) == S_OK && o->putref_cEmpresa(empresa.Get()) == S_OK, "referencias");
    o->put_CualidadX(static_cast<unsigned char>(caso.Numero(6)));
    Global().pasos = caso.pasos;
    return o;
}

void Escena::Cargar(::_clsDatosArt& o, const Caso& caso) const {
    CURRENCY unidades;
    unidades.int64 = caso.Numero(5) * 10000LL;
    short estado = -1;
    Global().pasos = caso.pasos;
    const HRESULT hr = o.Cargar(caso.Numero(1), caso.Numero(2), static_cast<DATE>(caso.Numero(3)),
                                static_cast<short>(caso.Numero(4)), 1, 2, unidades, &estado);
    Exigir(hr == S_OK && estado == caso.estado && Global().pasos.empty(), "Cargar " + caso.argumentos[1]);
}

namespace {

int Registrado(const char* grabacion) {
    PunteroCom<FabricaFalsa<RecordsetFalso>> rs;
    PunteroCom<FabricaFalsa<ComandoFalso>> cmd;
    *rs.Recibir() = new FabricaFalsa<RecordsetFalso>(ado::kRecordset[0]);
    *cmd.Recibir() = new FabricaFalsa<ComandoFalso>(ado::kCommand[0]);
    DWORD r1 = 0;
    DWORD r2 = 0;
    CoRegisterClassObject(ado::kClaseRecordset, rs.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &r1);
    CoRegisterClassObject(ado::kClaseCommand, cmd.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &r2);
    Escena escena;
    *escena.empresa.Recibir() = new EmpresaFalsa;
    *escena.conexion.Recibir() = new ConexionFalsa(ado::kConnection[0]);
    escena.casos = LeerGrabacion(grabacion, escena.empresa->valores);
    ProbarRanuras();
    ProbarPorNombre(escena);
    ProbarObjetos(escena);
    return Resumen();
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) {
    if (argc != 3 || FAILED(CoInitialize(nullptr))) return 2;
    try {
        if (std::strcmp(argv[1], "registrado") == 0) return kv::prueba::Registrado(argv[2]);
        kv::prueba::ProbarManifiesto(argv[2]);
        return kv::prueba::Resumen();
    } catch (const std::exception& error) {
        std::cout << "FALLA: " << error.what() << std::endl;
        return 1;
    }
}
