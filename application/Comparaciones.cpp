#include "kvdatosart/application/Comparaciones.h"

#include <cmath>

#include "kvdatosart/application/Comprobaciones.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"

namespace kv::aplicacion {
namespace {

using Lado = void (Comparacion::*)(const ClaveComparada&, const PrecioComparado&);

/// Puts the lines of a list on one side.
class DestinoLado : public DestinoLista {
  public:
    DestinoLado(Comparacion& comparacion, Lado lado, const std::vector<Currency>& unidades,
                std::optional<std::int32_t> comoCliente, std::function<void(std::uint64_t, std::uint64_t)> progreso)
        : comparacion_(comparacion),
          lado_(lado),
          unidades_(unidades),
          comoCliente_(comoCliente),
          progreso_(std::move(progreso)) {}

    void Linea(const LineaLista& linea) override {
        for (std::size_t i = 0; i < unidades_.size(); ++i)
            (comparacion_.*lado_)({linea.articulo, comoCliente_.value_or(linea.cliente), unidades_[i]},
                                  AComparar(linea.tasaciones[i]));
    }
    void Progreso(std::uint64_t hechas, std::uint64_t total) override { progreso_(hechas, total); }

  private:
    Comparacion& comparacion_;
    Lado lado_;
    const std::vector<Currency>& unidades_;
    std::optional<std::int32_t> comoCliente_;
    std::function<void(std::uint64_t, std::uint64_t)> progreso_;
};

// An earlier list that a person has put together may have a line twice.
void PonerAnterior(Comparacion& comparacion, const ClaveComparada& clave, const PrecioComparado& precio) try {
    comparacion.Antes(clave, precio);
} catch (const RuntimeError& error) {
    if (!error.descripcion.starts_with("UNIQUE constraint failed")) throw;
    RechazarImposible("con", "tiene dos veces el artículo " + std::to_string(clave.articulo) + " del cliente " +
                                 std::to_string(clave.cliente));
}

PeticionListaPrecios OtroLado(const PeticionComparacion& p) {
    PeticionListaPrecios otra = p;
    if (p.conFecha) otra.fecha = p.conFecha;
    if (p.conTarifa) otra.tarifa = p.conTarifa;
    if (p.conCliente) otra.clientes = {{*p.conCliente}, {}, {}};
    return otra;
}

void ExigirLados(const PeticionComparacion& p, bool conAnterior) {
    const bool conTerminos = p.conFecha || p.conTarifa || p.conCliente;
    if (conAnterior == conTerminos)
        RechazarImposible("", "se espera {con} FICHERO, o {conFecha}, {conTarifa} o {conCliente}");
    if (p.conCliente && p.clientes.codigos.size() != 1)
        RechazarImposible("conCliente", "solo es para la lista de un cliente");
    ExigirNoNegativo("umbral", p.umbral);
}

std::optional<std::string> Motivo(const std::optional<PrecioComparado>& lado) {
    if (!lado) return {};
    return lado->conPrecio ? lado->motivo : lado->situacion;
}

Valor Importe(const std::optional<PrecioComparado>& lado, Currency PrecioComparado::*importe) {
    if (!lado || !lado->conPrecio) return Nulo();
    return (*lado).*importe;
}

template <class T>
Valor OpcionalAValor(const std::optional<T>& valor) {
    return valor ? Valor(*valor) : Valor(Nulo());
}

Valor PorcentajeEscrito(const LineaComparada& l) {
    if (!l.porcentaje) return Nulo();
    // Beyond the range of money it is what it is.
    if (std::abs(*l.porcentaje) > 1e12) return *l.porcentaje;
    return Currency::DeDouble(*l.porcentaje).RedondearAlejando(2);
}

Valor MotivoDeAmbos(const LineaComparada& l) {
    if (!l.despues) return "solo antes: " + *Motivo(l.antes);
    if (!l.antes) return "solo después: " + *Motivo(l.despues);
    const std::string antes = *Motivo(l.antes);
    const std::string despues = *Motivo(l.despues);
    return antes == despues ? antes : antes + " → " + despues;
}

}  // namespace

struct FilasComparacion::Definicion {
    enum class Para : std::uint8_t { Todos, VariosClientes, VariasUnidades, Programas, Gente };

    ColumnaTabla columna;
    Valor (*dato)(const LineaComparada&);
    Para para = Para::Todos;
};

PrecioComparado AComparar(const Tasacion& t) {
    PrecioComparado precio{t.pvp, t.descuento, t.neto, t.fallo.empty() && !t.SinPrecio(), {}, {}, t.descripcion};
    if (precio.conPrecio)
        precio.motivo = t.motivo.Texto();
    else
        precio.situacion = t.fallo.empty() ? "sin precio" : "error: " + t.fallo;
    return precio;
}

RecuentoComparacion CompararListas(const EstadoFijo& estado, const PeticionComparacion& p,
                                   const ListaAnterior& anterior, const DestinoComparacion& destino) {
    ExigirLados(p, anterior != nullptr);
    const PeticionLista lista = PrepararLista(estado, p);
    const PeticionLista otra = anterior ? PeticionLista() : PrepararLista(estado, OtroLado(p));
    const auto mesa = ConexionSqlite::Temporal();
    Comparacion comparacion(*mesa, p.umbral.ADouble());
    const std::uint64_t pasadas = anterior ? 1 : 2;
    if (anterior) {
        ClaveComparada clave;
        PrecioComparado precio;
        while (anterior(clave, precio)) PonerAnterior(comparacion, clave, precio);
    }
    DestinoLado una(comparacion, anterior ? &Comparacion::Despues : &Comparacion::Antes, lista.unidades, {},
                    [&](std::uint64_t hechas, std::uint64_t total) { destino.progreso(hechas, total * pasadas); });
    HacerLista(estado.puestos, lista, una);
    if (!anterior) {
        const auto comoCliente = p.conCliente ? std::optional(p.clientes.codigos[0]) : std::nullopt;
        DestinoLado despues(
            comparacion, &Comparacion::Despues, otra.unidades, comoCliente,
            [&](std::uint64_t hechas, std::uint64_t total) { destino.progreso(total + hechas, total * pasadas); });
        HacerLista(estado.puestos, otra, despues);
    }
    return comparacion.Recorrer(destino.linea);
}

std::string TextoOtroLado(const PeticionComparacion& p) {
    std::string texto;
    if (p.conFecha) texto += ", el día " + p.conFecha->ATexto().Cadena();
    if (p.conTarifa) texto += ", la tarifa " + std::to_string(*p.conTarifa);
    if (p.conCliente) texto += ", el cliente " + std::to_string(*p.conCliente);
    return texto.empty() ? texto : texto.substr(2);
}

FilasComparacion::FilasComparacion(const PeticionListaPrecios& peticion, bool paraGente) {
    using C = ClaseDato;
    using L = const LineaComparada&;
    using P = Definicion::Para;
    static constexpr Definicion kDefiniciones[] = {
        {{"", "articulo", "Artículo", C::Codigo}, [](L l) -> Valor { return l.clave.articulo; }},
        {{"", "descripcion", "Descripción"},
         [](L l) -> Valor { return (l.despues ? l.despues : l.antes)->descripcion; }},
        {{"", "cliente", "Cliente", C::Codigo}, [](L l) -> Valor { return l.clave.cliente; }, P::VariosClientes},
        {{"", "unidades", "Unidades", C::Cantidad}, [](L l) -> Valor { return l.clave.unidades; }, P::VariasUnidades},
        {{"", "precioAntes", "Precio antes", C::Importe},
         [](L l) { return Importe(l.antes, &PrecioComparado::pvp); },
         P::Programas},
        {{"", "precioDespues", "Precio después", C::Importe},
         [](L l) { return Importe(l.despues, &PrecioComparado::pvp); },
         P::Programas},
        {{"", "descuentoAntes", "Dto.% antes", C::Porcentaje},
         [](L l) { return Importe(l.antes, &PrecioComparado::descuento); },
         P::Programas},
        {{"", "descuentoDespues", "Dto.% después", C::Porcentaje},
         [](L l) { return Importe(l.despues, &PrecioComparado::descuento); },
         P::Programas},
        {{"", "netoAntes", "Antes", C::Importe}, [](L l) { return Importe(l.antes, &PrecioComparado::neto); }},
        {{"", "netoDespues", "Después", C::Importe}, [](L l) { return Importe(l.despues, &PrecioComparado::neto); }},
        {{"", "diferencia", "Diferencia", C::Importe}, [](L l) { return OpcionalAValor(l.diferencia); }},
        {{"", "porcentaje", "%", C::Porcentaje}, PorcentajeEscrito},
        {{"", "motivoAntes", "Antes sale de"}, [](L l) { return OpcionalAValor(Motivo(l.antes)); }, P::Programas},
        {{"", "motivoDespues", "Después sale de"}, [](L l) { return OpcionalAValor(Motivo(l.despues)); }, P::Programas},
        {{"", "motivo", "De dónde sale"}, MotivoDeAmbos, P::Gente},
    };
    const auto haceFalta = [&](P para) {
        if (para == P::Todos) return true;
        if (para == P::Gente) return paraGente;
        if (!paraGente) return true;
        return para == P::VariosClientes ? peticion.clientes.codigos.size() != 1
                                         : para == P::VariasUnidades && peticion.unidades.size() > 1;
    };
    for (const Definicion& definicion : kDefiniciones) {
        if (!haceFalta(definicion.para)) continue;
        columnas_.push_back(definicion.columna);
        definiciones_.push_back(&definicion);
    }
}

std::span<const Valor> FilasComparacion::Fila(const LineaComparada& linea) {
    fila_.clear();
    for (const Definicion* definicion : definiciones_) fila_.push_back(definicion->dato(linea));
    return fila_;
}

}  // namespace kv::aplicacion
