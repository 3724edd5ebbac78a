// Compares the declarations of db/ado with the platform's own, slot by slot: the header is the one that libwine-dev
// generates from its description of ADO.

// clang-format off
#include <gtest/gtest.h>
#include <windows.h>
#include <msado15_backcompat.h>
#include <initguid.h>
#include <adoid.h>
// clang-format on

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "kvdatosart/db/ado/InterfacesAdo.h"

namespace kv::prueba {
namespace {

template <class Uno, class Otro>
constexpr bool MismaForma = sizeof(Uno) == sizeof(Otro) &&
                            std::is_pointer_v<Uno> == std::is_pointer_v<Otro>&& std::is_class_v<Uno> ==
                                std::is_class_v<Otro>&& std::is_floating_point_v<Uno> == std::is_floating_point_v<Otro>;

// The compiler keeps the offset in the table of virtual functions, plus one, in a pointer to a virtual member.
template <class Miembro>
std::ptrdiff_t Ranura(Miembro miembro) {
    std::ptrdiff_t desplazamiento = 0;
    std::memcpy(&desplazamiento, &miembro, sizeof desplazamiento);
    return (desplazamiento - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// True when both members stand in the same slot and take arguments of the same shape.
template <class Nuestra, class Suya, class... A, class... B>
bool MismaRanura(HRESULT (STDMETHODCALLTYPE Nuestra::*nuestro)(A...), HRESULT (STDMETHODCALLTYPE Suya::*suyo)(B...)) {
    static_assert(sizeof...(A) == sizeof...(B));
    static_assert((MismaForma<A, B> && ...));
    return Ranura(suyo) >= 7 && Ranura(nuestro) == Ranura(suyo);
}

TEST(InterfacesAdo, CadaRanuraEsLaDeLaPlataforma) {
#define IGUAL(nuestra, suya, miembro) \
    { #nuestra "::" #miembro, MismaRanura(&ado::nuestra::miembro, &::suya::miembro) }
    // clang-format off
    const std::pair<const char*, bool> ranuras[] = {
        IGUAL(Field, Field, get_Name), IGUAL(Field, Field, get_Value), IGUAL(Fields, Fields, get_Count),
        IGUAL(Fields, Fields, get_Item), IGUAL(Connection, _Connection, Execute),
        IGUAL(Connection, _Connection, BeginTrans), IGUAL(Connection, _Connection, CommitTrans),
        IGUAL(Connection, _Connection, RollbackTrans), IGUAL(Connection, _Connection, Open),
        IGUAL(Connection, _Connection, get_State), IGUAL(Recordset, _Recordset, get_EOF),
        IGUAL(Recordset, _Recordset, get_Fields), IGUAL(Recordset, _Recordset, Close),
        IGUAL(Recordset, _Recordset, MoveNext), IGUAL(Recordset, _Recordset, Open),
        IGUAL(Recordset, _Recordset, get_State), IGUAL(Parameter, _Parameter, get_Value),
        IGUAL(Parameters, Parameters, Append), IGUAL(Command, _Command, putref_ActiveConnection),
        IGUAL(Command, _Command, put_CommandText), IGUAL(Command, _Command, put_CommandTimeout),
        IGUAL(Command, _Command, Execute), IGUAL(Command, _Command, CreateParameter),
        IGUAL(Command, _Command, get_Parameters), IGUAL(Command, _Command, put_CommandType)};
    // clang-format on
#undef IGUAL
    for (const auto& [ranura, igual] : ranuras) EXPECT_TRUE(igual) << ranura;
}

// Every second one is what Windows gives the interface since its 64-bit types were put right, as the compiler's own
// headers list them.
TEST(InterfacesAdo, CadaIdentificadorEsElDeLaPlataforma) {
    const GUID conexion[] = {__uuidof(::_Connection), IID_IADOConnection, __uuidof(::Connection15),
                             IID_IADOConnection15};
    const GUID recordset[] = {__uuidof(::_Recordset), IID_IADORecordset, __uuidof(::Recordset15), IID_IADORecordset15};
    const GUID orden[] = {__uuidof(::_Command), IID_IADOCommand,       __uuidof(::Command25),
                          IID_IADOCommand25,    __uuidof(::Command15), IID_IADOCommand15};
    EXPECT_TRUE(std::ranges::equal(ado::kConnection, conexion));
    EXPECT_TRUE(std::ranges::equal(ado::kRecordset, recordset));
    EXPECT_TRUE(std::ranges::equal(ado::kCommand, orden));
    EXPECT_TRUE(ado::kClaseCommand == CLSID_CADOCommand);
    EXPECT_TRUE(ado::kClaseRecordset == CLSID_CADORecordset);
}

}  // namespace
}  // namespace kv::prueba
