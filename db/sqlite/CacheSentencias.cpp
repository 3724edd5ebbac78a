#include "kvdatosart/db/sqlite/CacheSentencias.h"

#include <algorithm>

#include "kvdatosart/db/sqlite/Traduccion.h"

namespace kv {

Sentencia& CacheSentencias::Tomar(std::string_view texto) {
    Entrada* entrada = Predicha(texto);
    if (entrada == nullptr) {
        entrada = &Hallar(texto);
        Recordar(*entrada);
    }
    anterior_ = entrada;
    Sentencia& sentencia = Libre(*entrada, texto);
    sentencia.Enlazar(literales_, entrada->destinos);
    sentencia.Tomar();
    return sentencia;
}

CacheSentencias::Entrada* CacheSentencias::Predicha(std::string_view texto) {
    if (anterior_ == nullptr) return nullptr;
    for (Entrada* candidata : anterior_->siguientes)
        if (candidata != nullptr && candidata->plantilla.Coincide(texto, literales_)) return candidata;
    return nullptr;
}

CacheSentencias::Entrada& CacheSentencias::Hallar(std::string_view texto) {
    BuscarLiterales(texto, literales_);
    const std::uint64_t huella = Plantilla::Huella(texto, literales_);
    const auto [desde, hasta] = porHuella_.equal_range(huella);
    for (auto i = desde; i != hasta; ++i) {
        if (!i->second->plantilla.Coincide(texto, literales_)) continue;
        entradas_.splice(entradas_.begin(), entradas_, i->second);
        return entradas_.front();
    }
    return Nueva(texto, huella);
}

CacheSentencias::Entrada& CacheSentencias::Nueva(std::string_view texto, std::uint64_t huella) {
    BuscarLiterales(texto, literales_);
    const Traduccion traduccion = Traducir(texto, literales_);
    Entrada entrada;
    entrada.huella = huella;
    entrada.plantilla = Plantilla(texto, literales_);
    entrada.traducida = traduccion.texto;
    for (const DestinoLiteral& destino : traduccion.destinos)
        entrada.destinos.push_back(catalogo_.Tipo(traduccion.tablas, destino.columna));
    entrada.sentencias.push_back(std::make_unique<Sentencia>(base_, entrada.traducida, std::string(texto)));
    ++preparaciones_;
    entradas_.push_front(std::move(entrada));
    porHuella_.emplace(huella, entradas_.begin());
    Recortar();
    return entradas_.front();
}

// To the front of what follows the previous statement; the one that rested longest there makes room.
void CacheSentencias::Recordar(Entrada& entrada) {
    if (anterior_ == nullptr) return;
    auto& siguientes = anterior_->siguientes;
    auto sitio = std::find(siguientes.begin(), siguientes.end(), &entrada);
    if (sitio == siguientes.end()) --sitio;
    *sitio = &entrada;
    std::rotate(siguientes.begin(), sitio, sitio + 1);
}

void CacheSentencias::Recortar() {
    for (auto i = std::prev(entradas_.end()); entradas_.size() > maximo_ && i != entradas_.begin();) {
        const auto victima = i--;
        const bool ocupada = std::any_of(victima->sentencias.begin(), victima->sentencias.end(),
                                         [](const auto& sentencia) { return sentencia->EnUso(); });
        if (!ocupada) Olvidar(victima);
    }
}

void CacheSentencias::Olvidar(Lista::iterator entrada) {
    for (Entrada& otra : entradas_)
        for (Entrada*& siguiente : otra.siguientes)
            if (siguiente == &*entrada) siguiente = nullptr;
    if (anterior_ == &*entrada) anterior_ = nullptr;
    const auto [desde, hasta] = porHuella_.equal_range(entrada->huella);
    porHuella_.erase(std::find_if(desde, hasta, [&](const auto& par) { return par.second == entrada; }));
    entradas_.erase(entrada);
}

Sentencia& CacheSentencias::Libre(Entrada& entrada, std::string_view texto) {
    for (const auto& sentencia : entrada.sentencias)
        if (!sentencia->EnUso()) return *sentencia;
    ++preparaciones_;
    return *entrada.sentencias.emplace_back(std::make_unique<Sentencia>(base_, entrada.traducida, std::string(texto)));
}

}  // namespace kv
