#include "kvdatosart/host/EscritorFilas.h"

#include "kvdatosart/host/EscribirJson.h"
#include "kvdatosart/host/Rejilla.h"

namespace kv::host {
namespace {

using aplicacion::ColumnaTabla;
using aplicacion::FilaTabla;

// What is gathered before it is handed over.
constexpr std::size_t kTrozo = 65536;
// Rows that are laid out together.
constexpr std::size_t kFilasPorBloque = 500;

/// Hands over what each row adds to the text.
class PorLineas : public EscritorFilas {
  public:
    explicit PorLineas(Vertido vertido) : vertido_(std::move(vertido)) {}

    void Fila(std::span<const Valor> fila) override {
        Anadir(texto_, fila);
        if (texto_.size() >= kTrozo) Verter();
    }
    void Acabar() override { Verter(); }

  protected:
    virtual void Anadir(std::string& texto, std::span<const Valor> fila) = 0;
    std::string texto_;

  private:
    void Verter() {
        vertido_(texto_);
        texto_.clear();
    }

    Vertido vertido_;
};

class Csv : public PorLineas {
  public:
    Csv(std::span<const ColumnaTabla> columnas, EstiloCsv estilo, Vertido vertido)
        : PorLineas(std::move(vertido)), columnas_(columnas), estilo_(estilo) {
        texto_ = CabeceraCsv(columnas, estilo);
    }

  private:
    void Anadir(std::string& texto, std::span<const Valor> fila) override { FilaCsv(texto, columnas_, fila, estilo_); }

    std::span<const ColumnaTabla> columnas_;
    EstiloCsv estilo_;
};

class Json : public PorLineas {
  public:
    Json(std::span<const ColumnaTabla> columnas, Vertido vertido)
        : PorLineas(std::move(vertido)), columnas_(columnas) {}

  private:
    void Anadir(std::string& texto, std::span<const Valor> fila) override { texto += LineaJson(columnas_, fila); }

    std::span<const ColumnaTabla> columnas_;
};

class Texto : public EscritorFilas {
  public:
    Texto(std::span<const ColumnaTabla> columnas, const Titulos& titulos, const Presentacion& presentacion,
          char separador, Vertido vertido)
        : columnas_(columnas), presentacion_(presentacion), separador_(separador), vertido_(std::move(vertido)) {
        Documento cabecera;
        for (const auto& [rotulo, texto] : titulos) cabecera.Dato("", rotulo, texto);
        texto_ = ATexto(cabecera, presentacion_);
        if (!texto_.empty()) texto_ += '\n';
    }

    void Fila(std::span<const Valor> fila) override {
        filas_.emplace_back(fila.begin(), fila.end());
        if (filas_.size() == kFilasPorBloque) Verter();
    }
    void Acabar() override { Verter(); }

  private:
    void Verter() {
        const bool primero = modelo_.empty();
        if (primero) {
            modelo_ = EnColumnas(columnas_, filas_, separador_);
            cabe_ = presentacion_.ancho == 0 || Encajar(modelo_, presentacion_.ancho);
        }
        if (cabe_)
            EnTabla(primero);
        else
            EnHojas();
        filas_.clear();
        vertido_(texto_);
        texto_.clear();
        hayAlgo_ = true;
    }

    void EnTabla(bool conCabecera) {
        const auto columnas = ComoEllas(modelo_, columnas_, filas_, separador_);
        if (conCabecera && !filas_.empty()) rejilla_.Cabecera(columnas, "");
        for (std::size_t i = 0; i < filas_.size(); ++i) rejilla_.Fila(columnas, i, "", false);
    }

    void EnHojas() {
        for (std::size_t i = 0; i < filas_.size(); ++i) {
            if (hayAlgo_ || i > 0) texto_ += '\n';
            rejilla_.Hoja(columnas_, filas_[i], separador_, "", false);
        }
    }

    std::span<const ColumnaTabla> columnas_;
    Presentacion presentacion_;
    char separador_;
    Vertido vertido_;
    std::string texto_;
    Rejilla rejilla_{texto_, presentacion_};
    std::vector<FilaTabla> filas_;
    std::vector<ColumnaRejilla> modelo_;
    bool cabe_ = true;
    bool hayAlgo_ = false;
};

}  // namespace

std::unique_ptr<EscritorFilas> EscritorCsv(std::span<const ColumnaTabla> columnas, EstiloCsv estilo, Vertido vertido) {
    return std::make_unique<Csv>(columnas, estilo, std::move(vertido));
}

std::unique_ptr<EscritorFilas> EscritorJson(std::span<const ColumnaTabla> columnas, Vertido vertido) {
    return std::make_unique<Json>(columnas, std::move(vertido));
}

std::unique_ptr<EscritorFilas> EscritorTexto(std::span<const ColumnaTabla> columnas, const Titulos& titulos,
                                             const Presentacion& presentacion, char separador, Vertido vertido) {
    return std::make_unique<Texto>(columnas, titulos, presentacion, separador, std::move(vertido));
}

}  // namespace kv::host
