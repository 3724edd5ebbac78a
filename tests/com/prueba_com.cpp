// Runs under Wine: prueba_com cargas GRABACION | prueba_com claves | prueba_com manifiesto RUTA

#include "tests/com/Etapas.h"

namespace kv::prueba {
namespace {

void ProbarRegistrada(const char* grabacion) {
    {
        Escena escena;
        escena.Abrir(grabacion);
        Exigir(escena.casos.size() >= 200, "al menos 200 cargas");
        const long antes = Global().vivos;
        ProbarRanuras();
        ProbarCargas(escena);
        ProbarObjetos(escena);
        Exigir(Global().vivos == antes, "las referencias vuelven a cero");
        std::cout << escena.casos.size() << " cargas; ";
    }
    CoFreeUnusedLibrariesEx(0, 0);
    Exigir(GetModuleHandleW(L"KVDatosArt.dll") == nullptr, "la DLL se descarga");
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) try {
    using namespace kv::prueba;
    if (argc < 2 || FAILED(CoInitialize(nullptr))) return 2;
    const std::string etapa = argv[1];
    if (etapa == "cargas" && argc == 3)
        ProbarRegistrada(argv[2]);
    else if (etapa == "claves" && argc == 2)
        ProbarClaves();
    else if (etapa == "manifiesto" && argc == 3)
        ProbarManifiesto(argv[2]);
    else
        return 2;
    return Resumen();
} catch (const std::exception& error) {
    std::cout << "FALLA: " << error.what() << std::endl;
    return 1;
}
