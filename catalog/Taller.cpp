#include "kvdatosart/catalog/Taller.h"

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/catalog/ConexionMemo.h"
#include "kvdatosart/db/BibliotecaComun.h"
#include "kvdatosart/db/ValoresSql.h"

namespace kv {
namespace {

bool Comprado(const Puesto& puesto, const LineaLista& linea) {
    const std::int16_t empresa = puesto.empresa->CodEmpresa();
    std::unique_ptr<Recordset> rs;
    // The key begins with the warehouse: naming each of them finds the article at once.
    AbrirLectura(
        rs, *puesto.conexion,
        TextoSql("SELECT TOP 1 Cod_Articulo FROM Clientes_Articulos WHERE Cod_Empresa =", SqlEntero(empresa),
                 " AND Cod_Almacen IN (SELECT Codigo FROM Almacenes WHERE Cod_Empresa =", SqlEntero(empresa),
                 ") AND Cod_Cliente =", SqlEntero(linea.cliente), " AND Cod_Articulo =", SqlEntero(linea.articulo)));
    const bool comprado = !rs->Eof();
    rs->Close();
    return comprado;
}

void EsconderCoste(Tasacion& tasacion) {
    tasacion.coste = {};
    if (tasacion.motivo.EsCoste()) tasacion.pvp = tasacion.descuento = tasacion.neto = {};
}

// Raises when the database, and not the line, is what fails.
void ComprobarConexion(const Puesto& puesto) {
    std::unique_ptr<Recordset> rs;
    AbrirLectura(rs, *puesto.conexion,
                 TextoSql("SELECT Codigo FROM Empresas WHERE Codigo =", SqlEntero(puesto.empresa->CodEmpresa())));
    rs->Close();
}

}  // namespace

Taller::Taller(const std::vector<Puesto>& puestos, const PeticionLista& peticion)
    : puestos_(puestos), peticion_(peticion), bloques_(puestos.size() == 1 ? 1 : 4 * puestos.size()) {
    for (Puesto& puesto : puestos_) puesto.conexion = std::make_shared<ConexionMemo>(puesto.conexion);
}

bool Taller::HacerLinea(const Puesto& puesto, LineaLista& linea, RecuentoLista& recuento) const {
    if (peticion_.soloComprados && !Comprado(puesto, linea)) {
        ++recuento.noComprados;
        return false;
    }
    Pregunta pregunta = peticion_.terminos;
    pregunta.articulo = linea.articulo;
    pregunta.cliente = linea.cliente;
    linea.tasaciones.clear();
    for (const Currency unidades : peticion_.unidades) {
        pregunta.unidades = unidades;
        linea.tasaciones.push_back(Tasar(puesto, pregunta));
        if (!peticion_.conCoste) EsconderCoste(linea.tasaciones.back());
    }
    const bool conFallo = linea.ConFallo();
    if (conFallo) ComprobarConexion(puesto);
    if (!peticion_.todos && linea.tasaciones.front().bloqueado) {
        ++recuento.bloqueados;
        return false;
    }
    const bool sinPrecio = linea.SinPrecio();
    if (sinPrecio && peticion_.omitirSinPrecio) {
        ++recuento.omitidosSinPrecio;
        return false;
    }
    ++recuento.lineas;
    recuento.conFallo += conFallo ? 1 : 0;
    recuento.sinPrecio += sinPrecio ? 1 : 0;
    return true;
}

void Taller::Hacer(const Puesto& puesto, Bloque& bloque) const {
    BloqueHecho& hecho = bloque.hecho;
    hecho.lineas.resize(kLineasPorBloque);
    hecho.cuantas = 0;
    hecho.pedidas = bloque.pedidas.size();
    hecho.recuento = {};
    for (const LineaPedida& pedida : bloque.pedidas) {
        LineaLista& linea = hecho.lineas[hecho.cuantas];
        linea.articulo = pedida.articulo;
        linea.cliente = pedida.cliente;
        if (HacerLinea(puesto, linea, hecho.recuento)) ++hecho.cuantas;
    }
}

void Taller::Trabajar(const Llenar& llenar, const Entregar& entregar) {
    if (puestos_.size() == 1)
        Solo(llenar, entregar);
    else
        Repartir(llenar, entregar);
}

void Taller::Solo(const Llenar& llenar, const Entregar& entregar) {
    const HoyFijado hoy(peticion_.hoy);
    Bloque& bloque = bloques_.front();
    while (llenar(bloque.pedidas)) {
        Hacer(puestos_.front(), bloque);
        entregar(bloque.hecho);
    }
}

// Blocks go round: the one that is handed over next is always the oldest, and its room takes the next to be filled.
void Taller::Repartir(const Llenar& llenar, const Entregar& entregar) {
    std::vector<std::jthread> hilos;
    for (std::size_t i = 1; i < puestos_.size(); ++i)
        hilos.emplace_back([this, i](const std::stop_token& fin) { Obrar(puestos_[i], fin); });
    bool quedan = true;
    for (std::size_t llenos = 0, entregados = 0; quedan || entregados < llenos;) {
        for (; quedan && llenos - entregados < bloques_.size(); llenos += quedan ? 1 : 0) {
            Bloque& bloque = bloques_[llenos % bloques_.size()];
            quedan = llenar(bloque.pedidas);
            if (!quedan) break;
            const std::lock_guard guarda(cerrojo_);
            bloque.listo = false;
            cola_.push_back(&bloque);
            hayTrabajo_.notify_one();
        }
        if (entregados < llenos) entregar(Esperar(entregados++).hecho);
    }
}

Taller::Bloque& Taller::Esperar(std::size_t orden) {
    Bloque& bloque = bloques_[orden % bloques_.size()];
    std::unique_lock guarda(cerrojo_);
    hayHecho_.wait(guarda, [&] { return bloque.listo; });
    if (bloque.fallo) std::rethrow_exception(bloque.fallo);
    return bloque;
}

void Taller::Obrar(const Puesto& puesto, const std::stop_token& fin) {
    const HoyFijado hoy(peticion_.hoy);
    std::unique_lock guarda(cerrojo_);
    while (hayTrabajo_.wait(guarda, fin, [&] { return !cola_.empty(); }) && !fin.stop_requested()) {
        Bloque& bloque = *cola_.front();
        cola_.pop_front();
        guarda.unlock();
        try {
            Hacer(puesto, bloque);
        } catch (...) {
            bloque.fallo = std::current_exception();
        }
        guarda.lock();
        bloque.listo = true;
        hayHecho_.notify_one();
    }
}

}  // namespace kv
