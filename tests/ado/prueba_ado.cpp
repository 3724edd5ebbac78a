// Runs under Wine: prueba_ado interfaces | variantes | adaptador | wine [ORIGEN] | sentencias ORIGEN

#include <windows.h>

#include "tests/ado/Informe.h"

int main(int argc, char** argv) try {
    using namespace kv::prueba;
    const std::string grupo = argc > 1 ? argv[1] : "";
    const std::string origen = argc > 2 ? argv[2] : "";
    if (FAILED(CoInitialize(nullptr))) return 2;
    if (grupo == "interfaces")
        ProbarInterfaces();
    else if (grupo == "variantes")
        ProbarVariantes();
    else if (grupo == "adaptador")
        ProbarAdaptador();
    else if (grupo == "wine")
        ProbarAdoDeWine(origen);
    else if (grupo == "sentencias" && !origen.empty())
        ProbarSentencias(origen);
    else
        return 2;
    CoUninitialize();
    std::cout << grupo << ": " << Resultado().pasadas << " passed, " << Resultado().fallidas << " failed" << std::endl;
    return Resultado().fallidas == 0 && Resultado().pasadas > 0 ? 0 : 1;
} catch (const std::exception& error) {
    std::cout << "FALLA: " << error.what() << std::endl;
    return 1;
}
