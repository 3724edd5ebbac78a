#include "kvdatosart/tests/comun/ConexionGuion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>

#include "kvdatosart/db/Nombres.h"

namespace kv::prueba {
namespace {

[[noreturn]] void Discrepancia(const std::string& que) {
    ADD_FAILURE() << que;
    throw RuntimeError(-1, "ConexionGuion", "el guion no esperaba esta operación");
}

std::string Entre(std::string_view operacion, std::string_view texto) {
    return std::string(operacion) + " |" + std::string(texto) + "|";
}

std::vector<std::string> Describir(const auto& parametros) {
    std::vector<std::string> textos;
    for (const Parameter& p : parametros)
        textos.push_back(std::string(p.Name) + " tipo " + std::to_string(static_cast<int>(p.Type)) + " dirección " +
                         std::to_string(static_cast<int>(p.Direction)) + " tamaño " + std::to_string(p.Size) +
                         " valor " + (EsNulo(p.Value) ? "NULL" : AString(p.Value, '.')) + " (clase " +
                         std::to_string(p.Value.index()) + ")");
    return textos;
}

}  // namespace

class ConexionGuion::RecordsetGuion : public Recordset {
  public:
    explicit RecordsetGuion(ConexionGuion& conexion) : conexion_(conexion) {}
    ~RecordsetGuion() override {
        // Only a failure may leave rows unread.
        if (paso_ && std::uncaught_exceptions() == 0) ADD_FAILURE() << "recordset sin cerrar: " << paso_->texto;
    }

    void Open(std::string_view source, Connection& conexion, CursorType cursor, LockType bloqueo,
              CommandType opciones) override {
        if (paso_) Discrepancia("Open sobre un recordset abierto: " + Entre("Open", source));
        if (&conexion != &conexion_) Discrepancia("Open con otra conexión");
        paso_ = conexion_.Tomar("Open", source);
        EXPECT_EQ(paso_->cursor, static_cast<int>(cursor)) << "CursorType de " << source;
        EXPECT_EQ(paso_->bloqueo, static_cast<int>(bloqueo)) << "LockType de " << source;
        EXPECT_EQ(paso_->opciones, static_cast<int>(opciones)) << "Options de " << source;
        fila_ = 0;
    }
    bool Eof() override { return fila_ >= Abierto().filas.size(); }
    void MoveNext() override {
        Abierto();
        ++fila_;
    }
    void Close() override {
        Abierto();
        paso_.reset();
    }
    ObjectState State() const override { return paso_ ? ObjectState::adStateOpen : ObjectState::adStateClosed; }
    std::int32_t NumeroCampos() override { return static_cast<std::int32_t>(Abierto().columnas.size()); }
    std::string_view NombreCampo(std::int32_t posicion) override {
        return Abierto().columnas.at(static_cast<std::size_t>(posicion));
    }

  protected:
    const Valor& LeerCampo(std::string_view nombre) override {
        if (Eof()) LanzarError(kErrSinRegistro);
        const auto& columnas = paso_->columnas;
        const auto columna = std::find_if(columnas.begin(), columnas.end(),
                                          [&](const std::string& c) { return MismoNombre(c, nombre); });
        if (columna == columnas.end()) LanzarError(kErrElementoNoEncontrado, std::string(nombre));
        return paso_->filas[fila_].at(static_cast<std::size_t>(columna - columnas.begin()));
    }

  private:
    const Paso& Abierto() const {
        if (!paso_) LanzarError(kErrObjetoCerrado);
        return *paso_;
    }

    ConexionGuion& conexion_;
    std::optional<Paso> paso_;  // while it is open
    std::size_t fila_ = 0;
};

class ConexionGuion::CommandGuion : public Command {
  public:
    explicit CommandGuion(ConexionGuion& conexion) : conexion_(conexion) {}

    void Execute(kv::CommandType opciones) override {
        const Paso paso = conexion_.Tomar("Command", CommandText);
        EXPECT_EQ(4, static_cast<int>(CommandType)) << "CommandType de " << CommandText;
        EXPECT_EQ(paso.espera, CommandTimeout) << "CommandTimeout de " << CommandText;
        EXPECT_EQ(paso.opciones, static_cast<int>(opciones)) << "Options de " << CommandText;
        EXPECT_EQ(Describir(paso.parametros), Describir(Parameters)) << "parámetros de " << CommandText;
        for (const Parameter& salida : paso.salidas) Parameters.Item(salida.Name).Value = salida.Value;
    }

  private:
    ConexionGuion& conexion_;
};

ConexionGuion::Paso& ConexionGuion::EsperaProcedimiento(std::string_view nombre, std::vector<Parameter> parametros,
                                                        std::vector<Parameter> salidas) {
    return Anadir({.operacion = "Command",
                   .texto = std::string(nombre),
                   .opciones = -1,
                   .espera = 500,
                   .parametros = std::move(parametros),
                   .salidas = std::move(salidas)});
}

void ConexionGuion::Terminar() {
    for (const Paso& paso : pasos_) ADD_FAILURE() << "paso sin ejecutar: " << Entre(paso.operacion, paso.texto);
    pasos_.clear();
}

ConexionGuion::Paso ConexionGuion::Tomar(std::string_view operacion, std::string_view texto) {
    const std::string recibido = Entre(operacion, texto);
    if (pasos_.empty()) Discrepancia("operación inesperada tras el guion:\n  " + recibido);
    const std::string esperado = Entre(pasos_.front().operacion, pasos_.front().texto);
    if (esperado != recibido)
        Discrepancia("paso " + std::to_string(hechos_ + 1) + ":\n  esperado " + esperado + "\n  recibido " + recibido);
    Paso paso = std::move(pasos_.front());
    pasos_.pop_front();
    ++hechos_;
    if (paso.fallo) throw RuntimeError(*paso.fallo);
    return paso;
}

void ConexionGuion::Execute(std::string_view texto, std::int32_t* afectados, CommandType opciones) {
    const Paso paso = Tomar("Execute", texto);
    EXPECT_EQ(paso.opciones, static_cast<int>(opciones)) << "Options de " << texto;
    EXPECT_EQ(paso.cuenta, afectados != nullptr) << "petición de registros afectados de " << texto;
    if (afectados != nullptr) *afectados = paso.afectados;
}

std::unique_ptr<Recordset> ConexionGuion::CrearRecordset() {
    return std::make_unique<RecordsetGuion>(*this);
}
std::unique_ptr<Command> ConexionGuion::CrearCommand() {
    return std::make_unique<CommandGuion>(*this);
}

}  // namespace kv::prueba
