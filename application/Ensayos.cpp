#include "kvdatosart/application/Ensayos.h"

#include <memory>
#include <stdexcept>
#include <string>

#include "kvdatosart/application/CarpetaPrivada.h"
#include "kvdatosart/application/ColumnasLista.h"
#include "kvdatosart/application/EstadoFijo.h"
#include "kvdatosart/application/Rechazo.h"
#include "kvdatosart/base/Ruta.h"
#include "kvdatosart/db/sqlite/ConexionSqlite.h"

namespace kv::aplicacion {
namespace {

PrecioComparado PrecioDe(const Tasacion& t) {
    PrecioComparado precio;
    precio.pvp = t.pvp;
    precio.descuento = t.descuento;
    precio.neto = t.neto;
    precio.conPrecio = t.fallo.empty() && !t.SinPrecio();
    precio.situacion = t.fallo.empty() ? EstadoDe(t) : "error: " + t.fallo;
    precio.motivo = t.motivo.Texto();
    precio.descripcion = t.descripcion;
    return precio;
}

/// Puts the lines of a list on one side of a comparison.
class Lado : public DestinoLista {
  public:
    using Poner = void (Comparacion::*)(const ClaveComparada&, const PrecioComparado&);

    Lado(Comparacion& comparacion, Poner poner, const std::vector<Currency>& unidades, const PasosEnsayo& pasos)
        : comparacion_(comparacion), poner_(poner), unidades_(unidades), pasos_(pasos) {}

    void Linea(const LineaLista& linea) override {
        for (std::size_t i = 0; i < unidades_.size(); ++i)
            (comparacion_.*poner_)({linea.articulo, linea.cliente, unidades_[i]}, PrecioDe(linea.tasaciones[i]));
    }
    void Progreso(std::uint64_t hechas, std::uint64_t total) override { pasos_.progreso(hechas, total); }

  private:
    Comparacion& comparacion_;
    Poner poner_;
    const std::vector<Currency>& unidades_;
    const PasosEnsayo& pasos_;
};

EstadoFijo Fijar(const PeticionEnsayo& peticion, const OrigenBase& copia) {
    return FijarEstado(copia, peticion.empresa, peticion.hoy, peticion.trabajadores);
}

PeticionLista Preparar(const EstadoFijo& estado, PeticionListaPrecios pedida) {
    pedida.todos = pedida.conCoste = true;
    pedida.omitirSinPrecio = false;
    return PrepararLista(estado, pedida);
}

}  // namespace

RespuestaEnsayo Ensayar(const PeticionEnsayo& peticion, const PasosEnsayo& pasos) {
    if (!peticion.base.odbc.empty())
        RechazarImposible("odbc",
                          "no se ensaya en un servidor: haga una copia de su base y compare en ella dos listas, la de "
                          "antes y la de después");
    const CarpetaPrivada carpeta("la copia");
    const OrigenBase copia{NombreDeRuta(carpeta.Fichero("copia.kv")), {}, {}};
    CopiarBase(peticion.base, copia.fichero, pasos.sigue);
    const std::shared_ptr<Connection> mesa = ConexionSqlite::Temporal();
    Comparacion comparacion(*mesa, 0);
    PeticionLista lista;
    {
        const EstadoFijo estado = Fijar(peticion, copia);
        lista = Preparar(estado, peticion.lista);
        Lado antes(comparacion, &Comparacion::Antes, lista.unidades, pasos);
        HacerLista(estado.puestos, lista, antes);
    }
    pasos.escribir(copia);
    {
        // What was asked for by its code may be gone now.
        const EstadoFijo estado = Fijar(peticion, copia);
        Lado despues(comparacion, &Comparacion::Despues, lista.unidades, pasos);
        HacerLista(estado.puestos, lista, despues);
    }
    RespuestaEnsayo respuesta;
    respuesta.recuento = comparacion.Recorrer([&](const LineaComparada& linea) { respuesta.lineas.push_back(linea); });
    return respuesta;
}

}  // namespace kv::aplicacion
