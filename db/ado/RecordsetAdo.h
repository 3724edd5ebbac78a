#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "kvdatosart/db/Recordset.h"
#include "kvdatosart/db/ado/InterfacesAdo.h"
#include "kvdatosart/db/ado/PunteroCom.h"

namespace kv {

/// An ADO recordset, created when it is opened for the first time.
class RecordsetAdo : public Recordset {
  public:
    void Open(std::string_view source, Connection& conexion, CursorType cursor, LockType bloqueo,
              CommandType opciones) override;
    bool Eof() override;
    void MoveNext() override;
    void Close() override;
    ObjectState State() const override;
    std::int32_t NumeroCampos() override;
    std::string_view NombreCampo(std::int32_t posicion) override;

  protected:
    const Valor& LeerCampo(std::string_view nombre) override;

  private:
    ado::Recordset& Abierto() const;
    ado::Fields& Campos();
    PunteroCom<ado::Field> Campo(VARIANT indice);

    PunteroCom<ado::Recordset> rs_;
    PunteroCom<ado::Fields> campos_;
    std::map<std::string, Valor, std::less<>> valores_;
    std::string nombre_;
};

}  // namespace kv
