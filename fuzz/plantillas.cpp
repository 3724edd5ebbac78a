// Two texts that differ in their literals only: the second finds the statement that the first left prepared, and gives
// the rows that it gives where nothing was prepared before.
#include <vector>

#include "kvdatosart/base/RuntimeError.h"
#include "kvdatosart/db/sqlite/CacheSentencias.h"
#include "kvdatosart/fuzz/BaseProbada.h"
#include "kvdatosart/fuzz/Exigir.h"

namespace kv::difuso {
namespace {

struct Resultado {
    std::vector<std::vector<Valor>> filas;
    std::int32_t error = 0;
    friend bool operator==(const Resultado&, const Resultado&) = default;
};

// What the text gives and does, taken back afterwards.
Resultado Ejecutar(const BaseProbada& base, CacheSentencias& cache, const std::string& texto) {
    Resultado resultado;
    sqlite3_exec(base.Get(), "SAVEPOINT antes", nullptr, nullptr, nullptr);
    Sentencia* sentencia = nullptr;
    try {
        sentencia = &cache.Tomar(texto);
        while (sentencia->Avanzar() && resultado.filas.size() < 100) {
            auto& fila = resultado.filas.emplace_back();
            for (std::int32_t i = 0; i < sentencia->NumeroColumnas(); ++i)
                fila.push_back(sentencia->Leer(static_cast<std::size_t>(i)));
        }
    } catch (const RuntimeError& error) {
        resultado.error = error.numero;
    }
    if (sentencia != nullptr) sentencia->Soltar();
    sqlite3_exec(base.Get(), "ROLLBACK TO antes; RELEASE antes", nullptr, nullptr, nullptr);
    return resultado;
}

// The text with other literals of the same kinds; `limpia` when each stands apart from what follows it.
std::string ConOtrosLiterales(const std::string& texto, std::uint8_t cuales, bool& limpia) {
    static const char* const numeros[] = {"0", "-7", "3", "1.5", "12345678901", "2E3", "+5", ".5"};
    static const char* const cadenas[] = {"''", "'x'", "'it''s'", "'05/03/2026'", "'O''Brien; --'", "'ñ'", "'1.5'"};
    std::vector<Literal> literales;
    BuscarLiterales(texto, literales);
    std::string otro;
    std::size_t pos = 0;
    limpia = true;
    for (const Literal& literal : literales) {
        const auto donde = static_cast<std::size_t>(literal.texto.data() - texto.data());
        otro.append(texto, pos, donde - pos);
        otro += literal.cadena ? cadenas[cuales % std::size(cadenas)] : numeros[cuales % std::size(numeros)];
        cuales = static_cast<std::uint8_t>(cuales * 5 + 1);
        pos = donde + literal.texto.size();
        limpia = limpia && (pos == texto.size() || texto[pos] == ' ' || texto[pos] == ')' || texto[pos] == ',');
    }
    return otro.append(texto, pos);
}

}  // namespace
}  // namespace kv::difuso

int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    using namespace kv::difuso;
    if (largo < 2) return 0;
    static const BaseProbada base;
    const std::string uno = Texto(datos + 1, largo - 1);
    bool limpia = false;
    const std::string otro = ConOtrosLiterales(uno, datos[0], limpia);
    kv::CacheSentencias usada(base.Get(), 8);
    kv::CacheSentencias nueva(base.Get(), 8);
    const Resultado primera = Ejecutar(base, usada, uno);
    const auto preparadas = usada.Preparaciones();
    const Resultado segunda = Ejecutar(base, usada, otro);
    Exigir(!limpia || preparadas == 0 || usada.Preparaciones() == preparadas, "otros literales, la misma plantilla",
           uno + "\n" + otro);
    Exigir(segunda == Ejecutar(base, nueva, otro), "las filas de la sentencia nueva", uno + "\n" + otro);
    Exigir(primera == Ejecutar(base, usada, uno), "el primer texto otra vez", uno + "\n" + otro);
    return 0;
}
