// Compares the declarations of db/ado with the platform's own, slot by slot: the header is the one that libwine-dev
// generates from its description of ADO.

#include <msado15_backcompat.h>

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "db/ado/InterfacesAdo.h"
#include "tests/ado/Informe.h"

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

template <class Nuestra, class Suya, class... A, class... B>
void Comparar(const char* que, HRESULT (STDMETHODCALLTYPE Nuestra::*nuestro)(A...),
              HRESULT (STDMETHODCALLTYPE Suya::*suyo)(B...)) {
    static_assert(sizeof...(A) == sizeof...(B));
    static_assert((MismaForma<A, B> && ...));
    const std::ptrdiff_t ranura = Ranura(suyo);
    Exigir(ranura >= 7 && Ranura(nuestro) == ranura,
           std::string(que) + ": ranura " + std::to_string(Ranura(nuestro)) + ", no " + std::to_string(ranura));
}

}  // namespace

void ProbarInterfaces() {
    Comparar("Field.Name", &ado::Field::get_Name, &::Field::get_Name);
    Comparar("Field.Value", &ado::Field::get_Value, &::Field::get_Value);
    Comparar("Fields.Count", &ado::Fields::get_Count, &::Fields::get_Count);
    Comparar("Fields.Item", &ado::Fields::get_Item, &::Fields::get_Item);
    Comparar("Connection.Execute", &ado::Connection::Execute, &::_Connection::Execute);
    Comparar("Connection.BeginTrans", &ado::Connection::BeginTrans, &::_Connection::BeginTrans);
    Comparar("Connection.CommitTrans", &ado::Connection::CommitTrans, &::_Connection::CommitTrans);
    Comparar("Connection.RollbackTrans", &ado::Connection::RollbackTrans, &::_Connection::RollbackTrans);
    Comparar("Connection.Open", &ado::Connection::Open, &::_Connection::Open);
    Comparar("Connection.State", &ado::Connection::get_State, &::_Connection::get_State);
    Comparar("Connection.Cancel", &ado::Connection::Cancel, &::_Connection::Cancel);
    Comparar("Recordset.EOF", &ado::Recordset::get_EOF, &::_Recordset::get_EOF);
    Comparar("Recordset.Fields", &ado::Recordset::get_Fields, &::_Recordset::get_Fields);
    Comparar("Recordset.Close", &ado::Recordset::Close, &::_Recordset::Close);
    Comparar("Recordset.MoveNext", &ado::Recordset::MoveNext, &::_Recordset::MoveNext);
    Comparar("Recordset.Open", &ado::Recordset::Open, &::_Recordset::Open);
    Comparar("Recordset.State", &ado::Recordset::get_State, &::_Recordset::get_State);
    Comparar("Parameter.Value", &ado::Parameter::get_Value, &::_Parameter::get_Value);
    Comparar("Parameters.Append", &ado::Parameters::Append, &::Parameters::Append);
    Comparar("Command.ActiveConnection", &ado::Command::putref_ActiveConnection, &::_Command::putref_ActiveConnection);
    Comparar("Command.CommandText", &ado::Command::put_CommandText, &::_Command::put_CommandText);
    Comparar("Command.CommandTimeout", &ado::Command::put_CommandTimeout, &::_Command::put_CommandTimeout);
    Comparar("Command.Execute", &ado::Command::Execute, &::_Command::Execute);
    Comparar("Command.CreateParameter", &ado::Command::CreateParameter, &::_Command::CreateParameter);
    Comparar("Command.Parameters", &ado::Command::get_Parameters, &::_Command::get_Parameters);
    Comparar("Command.CommandType", &ado::Command::put_CommandType, &::_Command::put_CommandType);

    Exigir(ado::kConnection[0] == __uuidof(::_Connection) && ado::kConnection[2] == __uuidof(::Connection15),
           "conexión");
    Exigir(ado::kRecordset[0] == __uuidof(::_Recordset) && ado::kRecordset[2] == __uuidof(::Recordset15), "recordset");
    Exigir(ado::kCommand[0] == __uuidof(::_Command) && ado::kCommand[2] == __uuidof(::Command25) &&
               ado::kCommand[4] == __uuidof(::Command15),
           "orden");
    ProbarSegundaGeneracion();
}

}  // namespace kv::prueba
