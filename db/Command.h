#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvdatosart/base/Valor.h"
#include "kvdatosart/db/Ado.h"

namespace kv {

/// One parameter of a stored procedure.
struct Parameter {
    /// Not copied: a literal, or a text that lives as long as the parameter.
    std::string_view Name;
    DataType Type = DataType::adInteger;
    ParameterDirection Direction = ParameterDirection::adParamInput;
    std::int32_t Size = 0;
    /// NULL means that the parameter carries no value yet.
    Valor Value;
};

/// The parameters of a command in the order in which they were appended.
class Parameters {
  public:
    void Append(Parameter parametro) { Append<Parameter>(std::move(parametro)); }
    /// The parameter, or what it is made of: name, type, direction, size and value.
    template <class... Partes>
    void Append(Partes&&... partes) {
        // As many as the discount procedures take: the list is one small block.
        if (lista_.empty()) lista_.reserve(14);
        lista_.push_back(Parameter{std::forward<Partes>(partes)...});
    }
    /// By name, without regard to letter case. Error 3265 when there is none.
    Parameter& Item(std::string_view nombre);

    auto begin() { return lista_.begin(); }
    auto end() { return lista_.end(); }
    auto begin() const { return lista_.begin(); }
    auto end() const { return lista_.end(); }

  private:
    std::vector<Parameter> lista_;
};

/// A stored procedure call. Made by its Connection, which is its active connection.
/// A database failure is a RuntimeError with the provider's number, source and text.
class Command {
  public:
    Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    virtual ~Command() = default;

    kv::CommandType CommandType = kv::CommandType::adOptionUnspecified;
    /// In seconds.
    std::int32_t CommandTimeout = 30;
    std::string CommandText;
    kv::Parameters Parameters;

    /// Runs it without a recordset; afterwards the output parameters and the return value hold theirs.
    virtual void Execute(kv::CommandType opciones) = 0;
};

}  // namespace kv
