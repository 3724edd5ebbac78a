#include "kvdatosart/application/ColumnasLista.h"

#include <algorithm>

#include "kvdatosart/application/Rechazo.h"

namespace kv::aplicacion {
namespace {

struct Celda {
    const LineaLista& linea;
    const Tasacion& tasacion;
    Currency unidades;
};

bool ConPrecio(const Tasacion& t) {
    return t.fallo.empty() && !t.SinPrecio();
}

Valor Importe(const Celda& c, Currency Tasacion::*importe) {
    if (!ConPrecio(c.tasacion)) return Nulo();
    return c.tasacion.*importe;
}

template <std::size_t nivel>
Valor Familia(const Celda& c) {
    return c.tasacion.familia[nivel];
}

Valor Tarifa(const Celda& c) {
    if (!ConPrecio(c.tasacion) || c.tasacion.motivo.tarifa == 0) return Nulo();
    return c.tasacion.motivo.tarifa;
}

Valor Motivo(const Celda& c) {
    const Tasacion& t = c.tasacion;
    return t.fallo.empty() ? t.motivo.Texto() : "error: " + t.fallo;
}

Valor Estado(const Celda& c) {
    return std::string(EstadoDe(c.tasacion));
}

// What is left of the net price over the cost, in percent of it.
Valor Margen(const Celda& c) {
    const Tasacion& t = c.tasacion;
    if (!ConPrecio(t) || t.neto == Currency()) return Nulo();
    const double margen = (t.neto.ADouble() - t.coste.ADouble()) * 100.0 / t.neto.ADouble();
    // A net of a hundredth beside a great cost leaves the range of money.
    if (margen < -1e12) return margen;
    return Currency::DeDouble(margen).RedondearAlejando(2);
}

}  // namespace

const char* EstadoDe(const Tasacion& tasacion) {
    if (tasacion.bloqueado) return "bloqueado o de baja";
    return tasacion.estado == kSinStock ? "sin existencias" : "disponible";
}

struct FilasLista::Definicion {
    ColumnaTabla columna;
    Valor (*dato)(const Celda&);
    bool habitual = true;
    bool porCantidad = false;
    bool deCoste = false;
};

std::span<const FilasLista::Definicion> FilasLista::Definiciones() {
    using C = ClaseDato;
    static constexpr Definicion kDefiniciones[] = {
        {{"", "articulo", "Artículo", C::Codigo}, [](const Celda& c) -> Valor { return c.linea.articulo; }},
        {{"", "descripcion", "Descripción"}, [](const Celda& c) -> Valor { return c.tasacion.descripcion; }},
        {{"", "familia1", "Familia 1", C::Codigo}, Familia<0>, false},
        {{"", "familia2", "Familia 2", C::Codigo}, Familia<1>, false},
        {{"", "familia3", "Familia 3", C::Codigo}, Familia<2>, false},
        {{"", "unidadesPorCaja", "Unidades por caja", C::Cantidad},
         [](const Celda& c) -> Valor { return c.tasacion.uxb; },
         false},
        {{"", "cliente", "Cliente", C::Codigo}, [](const Celda& c) -> Valor { return c.linea.cliente; }},
        {{"", "unidades", "Unidades", C::Cantidad}, [](const Celda& c) -> Valor { return c.unidades; }, false, true},
        {{"", "precio", "Precio", C::Importe}, [](const Celda& c) { return Importe(c, &Tasacion::pvp); }, true, true},
        {{"", "descuento", "Dto.%", C::Porcentaje},
         [](const Celda& c) { return Importe(c, &Tasacion::descuento); },
         true,
         true},
        {{"", "neto", "Neto", C::Importe}, [](const Celda& c) { return Importe(c, &Tasacion::neto); }, true, true},
        {{"", "tarifa", "Tarifa", C::Codigo}, Tarifa, false},
        {{"", "motivo", "De dónde sale"}, Motivo, true, true},
        {{"", "convenio", "Convenio"}, [](const Celda& c) -> Valor { return c.tasacion.convenio; }, false},
        {{"", "estado", "Estado"}, Estado, false},
        {{"", "existencias", "Existencias", C::Cantidad},
         [](const Celda& c) -> Valor { return c.tasacion.existencias; },
         false},
        {{"", "coste", "Coste", C::Importe},
         [](const Celda& c) -> Valor { return c.tasacion.coste; },
         true,
         false,
         true},
        {{"", "margen", "Margen %", C::Porcentaje}, Margen, true, true, true},
    };
    return kDefiniciones;
}

std::vector<ColumnaPosible> FilasLista::Posibles(bool conCoste) {
    std::vector<ColumnaPosible> columnas;
    for (const Definicion& definicion : Definiciones())
        if (conCoste || !definicion.deCoste) columnas.push_back({definicion.columna, definicion.habitual});
    return columnas;
}

FilasLista::FilasLista(const PeticionListaPrecios& peticion, const std::vector<std::string>& columnas, Forma forma)
    : forma_(forma), unidades_(peticion.unidades) {
    if (unidades_.empty()) unidades_.push_back(Currency::DeEntero(1));
    if (columnas.empty()) {
        for (const Definicion& definicion : Definiciones())
            if ((definicion.habitual || forma == Forma::Alta) && (peticion.conCoste || !definicion.deCoste))
                Anadir(definicion);
        return;
    }
    for (const std::string& clave : columnas) Anadir(Buscar(clave, peticion.conCoste));
    for (auto una = columnas.begin(); una != columnas.end(); ++una)
        if (std::find(columnas.begin(), una, *una) != una)
            RechazarImposible("columnas", "«" + *una + "» está dos veces");
}

const FilasLista::Definicion& FilasLista::Buscar(const std::string& clave, bool conCoste) {
    std::string claves;
    for (const Definicion& definicion : Definiciones()) {
        if (!conCoste && definicion.deCoste) {
            if (definicion.columna.clave == clave)
                RechazarImposible("columnas", "«" + clave + "» solo sale con {conCoste}");
            continue;
        }
        if (definicion.columna.clave == clave) return definicion;
        claves += (claves.empty() ? "" : ", ") + std::string(definicion.columna.clave);
    }
    RechazarImposible("columnas", "«" + clave + "» no vale; las que hay: " + claves);
}

void FilasLista::Anadir(const Definicion& definicion) {
    const bool varias = definicion.porCantidad && forma_ == Forma::Ancha && unidades_.size() > 1;
    for (std::size_t i = 0; i < (varias ? unidades_.size() : 1); ++i) {
        lugares_.push_back({&definicion, i});
        ColumnaTabla& columna = columnas_.emplace_back(definicion.columna);
        if (!varias) continue;
        std::string cantidad = unidades_[i].ATexto('.').Cadena();
        columna.rotulo = nombres_.emplace_back(std::string(columna.rotulo) + " " + cantidad + " u.");
        std::replace(cantidad.begin(), cantidad.end(), '.', '_');
        columna.clave = nombres_.emplace_back(std::string(columna.clave) + cantidad);
    }
}

void FilasLista::Poner(const LineaLista& linea, const AlRecibir& recibe) {
    for (std::size_t fila = 0; fila < (forma_ == Forma::Alta ? unidades_.size() : 1); ++fila) {
        fila_.clear();
        for (const Lugar& lugar : lugares_) {
            const std::size_t cual = fila + lugar.cantidad;
            fila_.push_back(lugar.definicion->dato({linea, linea.tasaciones[cual], unidades_[cual]}));
        }
        recibe(fila_);
    }
}

}  // namespace kv::aplicacion
