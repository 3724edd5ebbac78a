#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/EmpresaFija.h"

namespace kv::prueba {

/// A company whose codes all differ, so that a statement that takes the wrong one is seen; it keeps the numbers of the
/// parameters that were asked for.
class EmpresaFija : public kv::EmpresaFija {
  public:
    EmpresaFija() : kv::EmpresaFija(1) {
        codEmpresaArticulos = 2;
        codEmpresaClientes = 3;
        codEmpresaExtra = 4;
        tarifaEmpresa = 5;
        decImportes = 1;
        captions = {"Sección", "Familia", "Subfamilia"};
    }
    std::int16_t CodEmpresaExtra() const override {
        pedidos.push_back(0);
        return codEmpresaExtra;
    }
    std::int16_t DecPrecios() const override {
        ++vecesDecPrecios;
        return decPrecios;
    }
    Valor Parametro(std::int16_t numero) const override {
        pedidos.push_back(numero);
        return kv::EmpresaFija::Parametro(numero);
    }

    mutable std::vector<int> pedidos;  // the parameters asked for, the extra company as 0
    mutable int vecesDecPrecios = 0;   // how often it was asked for
};

/// Fixed today and decimal separator for the scope of a test; keeps the critical messages instead of showing them.
/// With marks, a text tells the routine that it came from: 'd' stands before a date literal, 'n' before a number for a
/// statement and 'p' before one for people.
class BibliotecaDePrueba : public BibliotecaComun {
  public:
    struct Mensaje {
        std::string texto, titulo;
    };

    explicit BibliotecaDePrueba(Fecha hoy, char separador = '.', bool marcas = false)
        : hoy_(hoy), separador_(separador), marcas_(marcas), anterior_(CambiarBiblioteca({this, [](auto*) {}})) {}
    ~BibliotecaDePrueba() override { CambiarBiblioteca(anterior_); }
    BibliotecaDePrueba(const BibliotecaDePrueba&) = delete;
    BibliotecaDePrueba& operator=(const BibliotecaDePrueba&) = delete;

    TextoNumero LiteralFecha(Fecha fecha) const override { return Marcado("d", BibliotecaComun::LiteralFecha(fecha)); }
    TextoNumero FormatoSql(Currency valor) const override { return Marcado("n", BibliotecaComun::FormatoSql(valor)); }
    TextoNumero FormatoSql(double valor) const override { return Marcado("n", BibliotecaComun::FormatoSql(valor)); }
    std::string FormatoPantalla(Currency valor, std::int16_t decimales) const override {
        return (marcas_ ? "p" : "") + BibliotecaComun::FormatoPantalla(valor, decimales);
    }
    Currency Redondear(Currency valor, std::int16_t decimales) const override {
        return BibliotecaComun::Redondear(valor, decimales) + masAlRedondear;
    }
    Fecha Hoy() const override { return hoy_; }
    char SeparadorDecimal() const override { return separador_; }
    void MensajeCritico(std::string_view texto, std::string_view titulo) override {
        mensajes_.push_back({std::string(texto), std::string(titulo)});
    }
    const std::vector<Mensaje>& Mensajes() const { return mensajes_; }

    /// Added to whatever is rounded here, so that what is rounded elsewhere is seen.
    Currency masAlRedondear;

  private:
    TextoNumero Marcado(std::string_view marca, TextoNumero texto) const {
        TextoNumero marcado;
        if (marcas_) marcado.Agregar(marca);
        marcado.Agregar(texto);
        return marcado;
    }

    const Fecha hoy_;
    const char separador_;
    const bool marcas_;
    std::vector<Mensaje> mensajes_;
    const std::shared_ptr<BibliotecaComun> anterior_;
};

}  // namespace kv::prueba
