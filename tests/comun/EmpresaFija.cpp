#include "tests/comun/EmpresaFija.h"

namespace kv::prueba {

Valor EmpresaFija::Parametro(std::int16_t numero) const {
    const auto hallado = parametros.find(numero);
    return hallado == parametros.end() ? Valor(Nulo{}) : hallado->second;
}

std::string EmpresaFija::CaptionFamilia(std::int16_t indice) const {
    return captions.at(static_cast<std::size_t>(indice));
}

class BibliotecaDePrueba::Fija : public BibliotecaComun {
  public:
    Fija(Fecha hoy, char separador) : hoy_(hoy), separador_(separador) {}
    Fecha Hoy() const override { return hoy_; }
    char SeparadorDecimal() const override { return separador_; }
    void MensajeCritico(std::string_view texto, std::string_view titulo) override {
        mensajes.push_back({std::string(texto), std::string(titulo)});
    }

    std::vector<Mensaje> mensajes;

  private:
    Fecha hoy_;
    char separador_;
};

BibliotecaDePrueba::BibliotecaDePrueba(Fecha hoy, char separador)
    : fija_(std::make_shared<Fija>(hoy, separador)), anterior_(CambiarBiblioteca(fija_)) {}

BibliotecaDePrueba::~BibliotecaDePrueba() {
    CambiarBiblioteca(anterior_);
}

const std::vector<BibliotecaDePrueba::Mensaje>& BibliotecaDePrueba::Mensajes() const {
    return fija_->mensajes;
}

}  // namespace kv::prueba
