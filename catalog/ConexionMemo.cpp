#include "kvdatosart/catalog/ConexionMemo.h"

#include <functional>

namespace kv {

/// Answers from a memory, or from the database while it keeps what is read.
class ConexionMemo::RecordsetMemo : public Recordset {
  public:
    explicit RecordsetMemo(ConexionMemo& conexion) : conexion_(conexion) {}
    ~RecordsetMemo() override { Soltar(false); }

    void Open(std::string_view source, Connection& /*conexion*/, CursorType cursor, LockType bloqueo,
              CommandType opciones) override {
        if (abierto_) LanzarError(kErrObjetoAbierto);
        Recuerdo& lugar = conexion_.Lugar(source);
        const bool simple = cursor == CursorType::adOpenForwardOnly && bloqueo == LockType::adLockReadOnly;
        recordando_ = simple && lugar.completo && lugar.texto == source;
        if (!recordando_) AbrirReal(source, cursor, bloqueo, opciones);
        abierto_ = true;
        pasada_ = false;
        lectura_ = 0;
        recuerdo_ = recordando_ || (simple && lugar.enUso == 0) ? &lugar : nullptr;
        if (recuerdo_ == nullptr) return;
        ++recuerdo_->enUso;
        if (!recordando_) Anotar(source);
    }

    bool Eof() override {
        ExigirAbierto();
        return recordando_ ? pasada_ || !recuerdo_->hayFila : real_->Eof();
    }

    void MoveNext() override {
        ExigirAbierto();
        if (!recordando_) {
            real_->MoveNext();
            // A second row is not remembered.
            if (!real_->Eof()) Soltar(false);
            pasada_ = true;
            return;
        }
        if (Eof()) LanzarError(kErrSinRegistro);
        pasada_ = true;
    }

    void Close() override {
        ExigirAbierto();
        Soltar(true);
        if (real_ && real_->State() == ObjectState::adStateOpen) real_->Close();
        abierto_ = recordando_ = false;
    }

    ObjectState State() const override { return abierto_ ? ObjectState::adStateOpen : ObjectState::adStateClosed; }
    std::int32_t NumeroCampos() override { return Real().NumeroCampos(); }
    std::string_view NombreCampo(std::int32_t posicion) override { return Real().NombreCampo(posicion); }

  protected:
    const Valor& LeerCampo(std::string_view nombre) override {
        ExigirAbierto();
        if (recordando_) {
            if (Eof()) LanzarError(kErrSinRegistro);
            const Valor* valor = Buscar(nombre);
            return valor != nullptr ? *valor : Real().Fields(nombre).Value();
        }
        const Valor& valor = real_->Fields(nombre).Value();
        if (recuerdo_ != nullptr && !pasada_) Guardar(nombre, valor);
        return valor;
    }

  private:
    void ExigirAbierto() const {
        if (!abierto_) LanzarError(kErrObjetoCerrado);
    }

    void AbrirReal(std::string_view source, CursorType cursor, LockType bloqueo, CommandType opciones) {
        if (!real_) real_ = conexion_.interior_->CrearRecordset();
        real_->Open(source, *conexion_.interior_, cursor, bloqueo, opciones);
    }

    // The query itself, asked again for what was not read when it was remembered.
    Recordset& Real() {
        ExigirAbierto();
        if (!real_ || real_->State() == ObjectState::adStateClosed)
            AbrirReal(recuerdo_->texto, CursorType::adOpenForwardOnly, LockType::adLockReadOnly,
                      CommandType::adCmdText);
        return *real_;
    }

    void Anotar(std::string_view texto) {
        recuerdo_->texto.assign(texto);
        recuerdo_->completo = false;
        recuerdo_->hayFila = !real_->Eof();
        recuerdo_->cuantos = 0;
    }

    void Guardar(std::string_view nombre, const Valor& valor) {
        auto& campos = recuerdo_->campos;
        if (recuerdo_->cuantos == campos.size()) campos.emplace_back();
        auto& campo = campos[recuerdo_->cuantos++];
        campo.first.assign(nombre);
        campo.second = valor;
    }

    // Every reader reads its columns in its own fixed order.
    const Valor* Buscar(std::string_view nombre) {
        for (std::size_t i = 0; i < recuerdo_->cuantos; ++i, ++lectura_) {
            if (lectura_ >= recuerdo_->cuantos) lectura_ = 0;
            const auto& campo = recuerdo_->campos[lectura_];
            if (campo.first == nombre) {
                ++lectura_;
                return &campo.second;
            }
        }
        return nullptr;
    }

    // Lets the memory go; what was being written is of use only when it was read to its end.
    void Soltar(bool entera) {
        if (recuerdo_ == nullptr) return;
        --recuerdo_->enUso;
        if (!recordando_) recuerdo_->completo = entera;
        recuerdo_ = nullptr;
    }

    ConexionMemo& conexion_;
    std::unique_ptr<Recordset> real_;
    Recuerdo* recuerdo_ = nullptr;
    std::size_t lectura_ = 0;
    bool abierto_ = false;
    // The answer comes from the memory.
    bool recordando_ = false;
    bool pasada_ = false;
};

ConexionMemo::Recuerdo& ConexionMemo::Lugar(std::string_view texto) {
    return recuerdos_[std::hash<std::string_view>{}(texto) % recuerdos_.size()];
}

std::unique_ptr<Recordset> ConexionMemo::CrearRecordset() {
    return std::make_unique<RecordsetMemo>(*this);
}

}  // namespace kv
