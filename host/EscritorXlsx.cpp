#include "kvdatosart/host/EscritorXlsx.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <stdexcept>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/host/Anchura.h"
#include "kvdatosart/host/Salida.h"

namespace kv::host {
namespace {

using aplicacion::ClaseDato;
using aplicacion::ColumnaTabla;

constexpr double kAnchoTexto = 36;
constexpr double kAnchoNumero = 12;
constexpr std::uint8_t kPapelA4 = 9;

class Libro : public EscritorFilas {
  public:
    Libro(std::span<const ColumnaTabla> columnas, const Titulos& titulos, std::int16_t decimales,
          const std::string& ruta)
        : columnas_(columnas), carpeta_(NombreDeRuta(std::filesystem::absolute(RutaDe(ruta)).parent_path())) {
        lxw_workbook_options opciones{};
        opciones.constant_memory = LXW_TRUE;
        opciones.tmpdir = carpeta_.data();
        libro_.reset(workbook_new_opt(ruta.c_str(), &opciones));
        if (!libro_) throw std::runtime_error("no se puede escribir el libro: no hay memoria");
        cabecera_ = Formato("");
        format_set_bold(cabecera_);
        format_set_bottom(cabecera_, LXW_BORDER_THIN);
        format_set_text_wrap(cabecera_);
        rotulo_ = Formato("");
        format_set_bold(rotulo_);
        const std::string cifras = decimales > 0 ? "." + std::string(static_cast<std::size_t>(decimales), '0') : "";
        importe_ = Formato("#,##0" + cifras);
        porcentaje_ = Formato("0.00");
        texto_ = Formato("@");
        AbrirHoja(titulos);
    }

    void Fila(std::span<const Valor> fila) override {
        if (fila_ == LXW_ROW_MAX) {
            CerrarHoja();
            AbrirHoja({});
        }
        for (std::size_t i = 0; i < fila.size(); ++i) Celda(static_cast<lxw_col_t>(i), columnas_[i].clase, fila[i]);
        ++fila_;
    }

    void Acabar() override {
        CerrarHoja();
        const lxw_error error = workbook_close(libro_.release());
        if (error != LXW_NO_ERROR) Fallar(errno != 0 ? MotivoDeEscritura(errno) : lxw_strerror(error));
    }

  private:
    [[noreturn]] static void Fallar(const std::string& motivo) {
        throw std::runtime_error("no se puede escribir el libro: " + motivo);
    }

    lxw_format* Formato(const std::string& numero) {
        lxw_format* formato = workbook_add_format(libro_.get());
        if (!numero.empty()) format_set_num_format(formato, numero.c_str());
        return formato;
    }

    void AbrirHoja(const Titulos& titulos) {
        ++hojas_;
        const std::string nombre = hojas_ == 1 ? "Lista" : "Lista " + std::to_string(hojas_);
        hoja_ = workbook_add_worksheet(libro_.get(), nombre.c_str());
        for (std::size_t i = 0; i < columnas_.size(); ++i) {
            const auto columna = static_cast<lxw_col_t>(i);
            const double ancho = columnas_[i].clase == ClaseDato::Texto ? kAnchoTexto : kAnchoNumero;
            worksheet_set_column(hoja_, columna, columna, ancho, nullptr);
        }
        fila_ = 0;
        for (const auto& [rotulo, texto] : titulos) {
            Escribir(0, rotulo, rotulo_);
            Escribir(1, texto, nullptr);
            ++fila_;
        }
        if (!titulos.empty()) ++fila_;
        cabecera0_ = fila_;
        for (std::size_t i = 0; i < columnas_.size(); ++i)
            Escribir(static_cast<lxw_col_t>(i), std::string(columnas_[i].rotulo), cabecera_);
        ++fila_;
        worksheet_freeze_panes(hoja_, fila_, 0);
        worksheet_repeat_rows(hoja_, cabecera0_, cabecera0_);
        worksheet_set_landscape(hoja_);
        worksheet_set_paper(hoja_, kPapelA4);
        worksheet_fit_to_pages(hoja_, 1, 0);
        worksheet_ignore_errors(hoja_, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576");
    }

    // What the sheet's rows have become so far lies in the library's file, which does not say that it is full.
    void CerrarHoja() {
        worksheet_autofilter(hoja_, cabecera0_, 0, std::max(fila_, cabecera0_ + 2) - 1,
                             static_cast<lxw_col_t>(columnas_.size() - 1));
        if (std::fflush(hoja_->file) != 0 || std::ferror(hoja_->file) != 0) Fallar(MotivoDeEscritura(errno));
    }

    void Celda(lxw_col_t columna, ClaseDato clase, const Valor& valor) {
        if (EsNulo(valor)) return;
        if (const auto* texto = std::get_if<std::string>(&valor)) return Escribir(columna, *texto, nullptr);
        if (clase == ClaseDato::Codigo) return Escribir(columna, AString(valor, '.'), texto_);
        lxw_format* formato = clase == ClaseDato::Importe      ? importe_
                              : clase == ClaseDato::Porcentaje ? porcentaje_
                                                               : nullptr;
        worksheet_write_number(hoja_, fila_, columna, ADouble(valor), formato);
    }

    void Escribir(lxw_col_t columna, const std::string& texto, lxw_format* formato) {
        if (texto.empty()) return;
        const bool limpio = std::all_of(texto.begin(), texto.end(), [](char c) { return c >= ' ' && c != '\x7F'; });
        worksheet_write_string(hoja_, fila_, columna, limpio ? texto.c_str() : Mostrable(texto).c_str(), formato);
    }

    struct Soltar {
        void operator()(lxw_workbook* libro) const { lxw_workbook_free(libro); }
    };

    std::span<const ColumnaTabla> columnas_;
    std::string carpeta_;
    std::unique_ptr<lxw_workbook, Soltar> libro_;
    lxw_worksheet* hoja_ = nullptr;
    lxw_format *cabecera_, *rotulo_, *importe_, *porcentaje_, *texto_;
    int hojas_ = 0;
    lxw_row_t fila_ = 0;
    lxw_row_t cabecera0_ = 0;
};

}  // namespace

std::unique_ptr<EscritorFilas> EscritorXlsx(std::span<const ColumnaTabla> columnas, const Titulos& titulos,
                                            std::int16_t decimales, const std::string& ruta) {
    return std::make_unique<Libro>(columnas, titulos, decimales, ruta);
}

}  // namespace kv::host
