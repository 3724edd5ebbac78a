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

#include "db/ado/InterfacesAdo.h"

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
    EXPECT_TRUE(MismaRanura(&ado::Field::get_Name, &::Field::get_Name));
    EXPECT_TRUE(MismaRanura(&ado::Field::get_Value, &::Field::get_Value));
    EXPECT_TRUE(MismaRanura(&ado::Fields::get_Count, &::Fields::get_Count));
    EXPECT_TRUE(MismaRanura(&ado::Fields::get_Item, &::Fields::get_Item));
    EXPECT_TRUE(MismaRanura(&ado::Connection::Execute, &::_Connection::Execute));
    EXPECT_TRUE(MismaRanura(&ado::Connection::BeginTrans, &::_Connection::BeginTrans));
    EXPECT_TRUE(MismaRanura(&ado::Connection::CommitTrans, &::_Connection::CommitTrans));
    EXPECT_TRUE(MismaRanura(&ado::Connection::RollbackTrans, &::_Connection::RollbackTrans));
    EXPECT_TRUE(MismaRanura(&ado::Connection::Open, &::_Connection::Open));
    EXPECT_TRUE(MismaRanura(&ado::Connection::get_State, &::_Connection::get_State));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::get_EOF, &::_Recordset::get_EOF));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::get_Fields, &::_Recordset::get_Fields));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::Close, &::_Recordset::Close));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::MoveNext, &::_Recordset::MoveNext));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::Open, &::_Recordset::Open));
    EXPECT_TRUE(MismaRanura(&ado::Recordset::get_State, &::_Recordset::get_State));
    EXPECT_TRUE(MismaRanura(&ado::Parameter::get_Value, &::_Parameter::get_Value));
    EXPECT_TRUE(MismaRanura(&ado::Parameters::Append, &::Parameters::Append));
    EXPECT_TRUE(MismaRanura(&ado::Command::putref_ActiveConnection, &::_Command::putref_ActiveConnection));
    EXPECT_TRUE(MismaRanura(&ado::Command::put_CommandText, &::_Command::put_CommandText));
    EXPECT_TRUE(MismaRanura(&ado::Command::put_CommandTimeout, &::_Command::put_CommandTimeout));
    EXPECT_TRUE(MismaRanura(&ado::Command::Execute, &::_Command::Execute));
    EXPECT_TRUE(MismaRanura(&ado::Command::CreateParameter, &::_Command::CreateParameter));
    EXPECT_TRUE(MismaRanura(&ado::Command::get_Parameters, &::_Command::get_Parameters));
    EXPECT_TRUE(MismaRanura(&ado::Command::put_CommandType, &::_Command::put_CommandType));
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
