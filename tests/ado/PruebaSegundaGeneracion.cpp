// The identifiers that Windows gives the interfaces since its 64-bit types were put right, as the compiler's own
// headers list them.

// clang-format off
#include <windows.h>
#include <initguid.h>
#include <adoid.h>
// clang-format on

#include "db/ado/InterfacesAdo.h"
#include "tests/ado/Informe.h"

namespace kv::prueba {

void ProbarSegundaGeneracion() {
    Exigir(ado::kConnection[1] == IID_IADOConnection && ado::kConnection[3] == IID_IADOConnection15, "conexión, 2.ª");
    Exigir(ado::kRecordset[1] == IID_IADORecordset && ado::kRecordset[3] == IID_IADORecordset15, "recordset, 2.ª");
    Exigir(ado::kCommand[1] == IID_IADOCommand && ado::kCommand[3] == IID_IADOCommand25 &&
               ado::kCommand[5] == IID_IADOCommand15,
           "orden, 2.ª");
    Exigir(ado::kClaseCommand == CLSID_CADOCommand && ado::kClaseRecordset == CLSID_CADORecordset, "clases");
}

}  // namespace kv::prueba
