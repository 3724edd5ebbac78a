#pragma once

#include <oaidl.h>
#include <windows.h>

// ADO's documented interfaces, as far as the component calls them. Every slot up to the last one used stands in its
// documented order; those that are never called carry their name only.

namespace kv::ado {

/// Properties of a provider, in front of most interfaces.
struct Base : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Properties() { return E_NOTIMPL; }
};

struct Fields;
struct Recordset;

struct Field : Base {
    virtual HRESULT STDMETHODCALLTYPE get_ActualSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Attributes() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_DefinedSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Name(BSTR* nombre) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Type() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Value(VARIANT* valor) = 0;
};

struct Collection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_Count(long* cuantos) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_NewEnum() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Refresh() { return E_NOTIMPL; }
};

struct Fields : Collection {
    virtual HRESULT STDMETHODCALLTYPE get_Item(VARIANT indice, Field** campo) = 0;
};

struct Connection : Base {
    virtual HRESULT STDMETHODCALLTYPE get_ConnectionString() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_ConnectionString() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_CommandTimeout() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CommandTimeout() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_ConnectionTimeout() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_ConnectionTimeout() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Version() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Close() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Execute(BSTR texto, VARIANT* afectados, long opciones, Recordset** rs) = 0;
    virtual HRESULT STDMETHODCALLTYPE BeginTrans(long* nivel) = 0;
    virtual HRESULT STDMETHODCALLTYPE CommitTrans() = 0;
    virtual HRESULT STDMETHODCALLTYPE RollbackTrans() = 0;
    virtual HRESULT STDMETHODCALLTYPE Open(BSTR cadena, BSTR usuario, BSTR clave, long opciones) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Errors() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_DefaultDatabase() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_DefaultDatabase() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_IsolationLevel() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_IsolationLevel() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Attributes() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Attributes() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_CursorLocation() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CursorLocation() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Mode() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Mode() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Provider() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Provider() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_State(long* estado) = 0;
    virtual HRESULT STDMETHODCALLTYPE OpenSchema() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Cancel() { return E_NOTIMPL; }
};

struct Recordset : Base {
    virtual HRESULT STDMETHODCALLTYPE get_AbsolutePosition() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_AbsolutePosition() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE putref_ActiveConnection() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_ActiveConnection() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_ActiveConnection() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_BOF() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Bookmark() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Bookmark() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_CacheSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CacheSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_CursorType() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CursorType() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_EOF(VARIANT_BOOL* fin) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Fields(Fields** campos) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LockType() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_LockType() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_MaxRecords() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_MaxRecords() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_RecordCount() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE putref_Source() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Source() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Source() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE AddNew() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE CancelUpdate() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Close() = 0;
    virtual HRESULT STDMETHODCALLTYPE Delete() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE GetRows() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Move() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE MoveNext() = 0;
    virtual HRESULT STDMETHODCALLTYPE MovePrevious() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE MoveFirst() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE MoveLast() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Open(VARIANT origen, VARIANT conexion, int cursor, int bloqueo,
                                           long opciones) = 0;
    virtual HRESULT STDMETHODCALLTYPE Requery() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE xResync() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Update() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_AbsolutePage() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_AbsolutePage() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_EditMode() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Filter() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Filter() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_PageCount() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_PageSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_PageSize() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Sort() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Sort() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Status() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_State(long* estado) = 0;
};

struct Parameter : Base {
    virtual HRESULT STDMETHODCALLTYPE get_Name() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Name() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_Value(VARIANT* valor) = 0;
};

/// The collection of a command's parameters.
struct Parameters : Collection {
    virtual HRESULT STDMETHODCALLTYPE Append(IDispatch* parametro) = 0;
};

struct Command : Base {
    virtual HRESULT STDMETHODCALLTYPE get_ActiveConnection() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE putref_ActiveConnection(Connection* conexion) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ActiveConnection() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE get_CommandText() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CommandText(BSTR texto) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CommandTimeout() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_CommandTimeout(long segundos) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Prepared() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE put_Prepared() { return E_NOTIMPL; }
    virtual HRESULT STDMETHODCALLTYPE Execute(VARIANT* afectados, VARIANT* parametros, long opciones,
                                              Recordset** rs) = 0;
    virtual HRESULT STDMETHODCALLTYPE CreateParameter(BSTR nombre, int tipo, int direccion, LONG_PTR tamano,
                                                      VARIANT valor, Parameter** parametro) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_Parameters(Parameters** parametros) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_CommandType(int tipo) = 0;
};

/// Identifier of an ADO interface by its number.
constexpr GUID Identificador(unsigned long numero) {
    return {numero, 0, 0x10, {0x80, 0, 0, 0xAA, 0, 0x6D, 0x2E, 0xA4}};
}

// The identifiers of each interface that share the slots above, in the order in which they are asked for: the
// interface itself in both generations, then the older ones that it extends.
inline constexpr GUID kConnection[] = {Identificador(0x550), Identificador(0x1550), Identificador(0x515),
                                       Identificador(0x1515)};
inline constexpr GUID kRecordset[] = {Identificador(0x556), Identificador(0x1556), Identificador(0x50E),
                                      Identificador(0x150E)};
inline constexpr GUID kCommand[] = {{0xB08400BD, 0xF9D1, 0x4D02, {0xB8, 0x56, 0x71, 0xD5, 0xDB, 0xA1, 0x23, 0xE9}},
                                    {0x986761E8, 0x7269, 0x4890, {0xAA, 0x65, 0xAD, 0x7C, 0x03, 0x69, 0x7A, 0x6D}},
                                    Identificador(0x54E),
                                    Identificador(0x154E),
                                    Identificador(0x508),
                                    Identificador(0x1508)};

inline constexpr GUID kClaseCommand = Identificador(0x507);
inline constexpr GUID kClaseRecordset = Identificador(0x535);

}  // namespace kv::ado
