// The cost of a load through COM against the native call on the same recording, in one run: medir_com GRABACION
// [VUELTAS]

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <deque>
#include <iostream>

#include "kvdatosart/bench/com/ConexionRepetida.h"
#include "kvdatosart/component/clsDatosArt.h"
#include "kvdatosart/db/ado/ConexionAdo.h"
#include "kvdatosart/db/ado/EmpresaDispatch.h"
#include "kvdatosart/db/ado/FabricaAdo.h"
#include "kvdatosart/tests/com/Escena.h"
#include "kvdatosart/tests/com/Llamada.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

using Reloj = std::chrono::steady_clock;

struct Escenario {
    std::vector<Caso> casos;
    PunteroCom<EmpresaFalsa> empresa;
    PunteroCom<ConexionFalsa> conexion;
    /// What the connection answers next.
    void Poner(const Pasos& pasos) const {
        repetida = std::make_unique<ConexionRepetida>(pasos);
        conexion->real = repetida.get();
    }
    mutable std::unique_ptr<ConexionRepetida> repetida = std::make_unique<ConexionRepetida>(Pasos());
};

struct Argumentos {
    explicit Argumentos(const Caso& c)
        : articulo(c.Numero(1)),
          cliente(c.Numero(2)),
          dia(static_cast<double>(c.Numero(3))),
          tarifa(static_cast<short>(c.Numero(4))),
          cualidadX(static_cast<unsigned char>(c.Numero(6))) {
        unidades.int64 = c.Numero(5) * 10000LL;
    }
    long articulo;
    long cliente;
    double dia;
    short tarifa;
    unsigned char cualidadX;
    CURRENCY unidades{};
};

template <class Funcion>
double Cronometrar(Funcion&& funcion) {
    const auto antes = Reloj::now();
    funcion();
    return std::chrono::duration<double, std::micro>(Reloj::now() - antes).count();
}

void Exigir(int estado, const Caso& c) {
    if (Decodificar(c.dado.at("Estado")) != Valor(static_cast<std::int16_t>(estado)))
        throw std::runtime_error("una carga no da el estado grabado");
}

/// The component inside this program, over a connection and a company of any kind. Microseconds of one load.
double CargaNativa(const Caso& c, std::shared_ptr<Connection> conexion, std::shared_ptr<kv::cEmpresa> empresa) {
    const Argumentos a(c);
    clsDatosArt o;
    o.Conexion(std::move(conexion));
    o.cEmpresa(std::move(empresa));
    o.CualidadX = a.cualidadX;
    int estado = 0;
    const double tiempo = Cronometrar([&] {
        estado = o.Cargar(a.articulo, a.cliente, Fecha::DeOle(a.dia), a.tarifa, 1, 2,
                          Currency::DeDiezmilesimas(a.unidades.int64));
    });
    Exigir(estado, c);
    return tiempo;
}

std::shared_ptr<EmpresaFija> EmpresaGrabada(std::map<std::string, Valor>& valores) {
    auto e = std::make_shared<EmpresaFija>();
    const std::pair<const char*, std::int16_t*> enteros[] = {
        {"CodEmpresa", &e->codEmpresa},           {"CodEmpresaArticulos", &e->codEmpresaArticulos},
        {"CodEmpresaExtra", &e->codEmpresaExtra}, {"CodEmpresaClientes", &e->codEmpresaClientes},
        {"TarifaEmpresa", &e->tarifaEmpresa},     {"DecPrecios", &e->decPrecios},
        {"DecImportes", &e->decImportes},         {"DecCostes", &e->decCostes}};
    for (const auto& [nombre, destino] : enteros) *destino = AInteger(valores[nombre]);
    e->venderSinStock = ABoolean(valores["VenderSinStock"]);
    e->costeUltimaCompra = ABoolean(valores["CosteUltimaCompra"]);
    e->parametros = {{std::int16_t{1}, valores["Parametro1"]}, {std::int16_t{2}, valores["Parametro2"]}};
    return e;
}

double Nativa(const Escenario& e, const Caso& c) {
    static const auto empresa = EmpresaGrabada(e.empresa->valores);
    return CargaNativa(c, std::make_shared<ConexionRepetida>(c.partes[0]), empresa);
}

/// The component inside this program over the ADO-shaped objects: all but the DLL's own boundary.
double ConAdaptador(const Escenario& e, const Caso& c) {
    e.Poner(c.partes[0]);
    return CargaNativa(c, std::make_shared<ConexionAdo>(e.conexion.Get()),
                       std::make_shared<EmpresaDispatch>(e.empresa.Get()));
}

PunteroCom<::_clsDatosArt> Preparado(const Escenario& e, const Caso& c, const Argumentos& a) {
    auto o = Crear();
    o->putref_Conexion(e.conexion.Get());
    o->putref_cEmpresa(e.empresa.Get());
    o->put_CualidadX(a.cualidadX);
    e.Poner(c.partes[0]);
    return o;
}

double PorRanura(const Escenario& e, const Caso& c) {
    const Argumentos a(c);
    const auto o = Preparado(e, c, a);
    short estado = -1;
    const double tiempo =
        Cronometrar([&] { o->Cargar(a.articulo, a.cliente, a.dia, a.tarifa, 1, 2, a.unidades, &estado); });
    Exigir(estado, c);
    return tiempo;
}

double PorNombreMedida(const Escenario& e, const Caso& c) {
    const Argumentos a(c);
    const auto o = Preparado(e, c, a);
    VARIANT v[7]{};
    v[0].vt = VT_CY, v[0].cyVal = a.unidades;
    v[1].vt = VT_I2, v[1].iVal = 2;
    v[2].vt = VT_I2, v[2].iVal = 1;
    v[3].vt = VT_I2, v[3].iVal = a.tarifa;
    v[4].vt = VT_DATE, v[4].date = a.dia;
    v[5].vt = VT_I4, v[5].lVal = a.cliente;
    v[6].vt = VT_I4, v[6].lVal = a.articulo;
    DISPPARAMS pasados{v, nullptr, 7, 0};
    VARIANT resultado{};
    const double tiempo = Cronometrar(
        [&] { o->Invoke(33, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &pasados, &resultado, nullptr, nullptr); });
    Exigir(resultado.iVal, c);
    return tiempo;
}

PunteroCom<ado::Recordset> CrearRecordset() {
    static FabricaAdo<ado::Recordset> recordsets(ado::kClaseRecordset, ado::kRecordset);
    return recordsets.Crear();
}

/// One query asked of the ADO-shaped objects directly.
void Consultar(const ConexionGuion::Paso& paso, VARIANT activa, VARIANT texto, std::deque<Variante>::iterator& nombre) {
    const PunteroCom<ado::Recordset> rs = CrearRecordset();
    PunteroCom<ado::Fields> campos;
    VARIANT_BOOL fin = VARIANT_FALSE;
    rs->Open(texto, activa, 0, 1, 1);
    rs->get_EOF(&fin);
    if (!paso.filas.empty()) rs->get_Fields(campos.Recibir());
    for (std::size_t i = 0; i < paso.columnas.size(); ++i) {
        PunteroCom<ado::Field> campo;
        Variante valor;
        campos->get_Item((nombre++)->Get(), campo.Recibir());
        campo->get_Value(valor.Recibir());
    }
    rs->Close();
}

/// The queries of a load asked with wide strings made beforehand: what the objects cost by themselves. Procedures, of
/// which a load calls two at most, are left out.
double ObjetosSolos(const Escenario& e, const Caso& c) {
    Pasos consultas;
    std::deque<Variante> textos;
    std::deque<Variante> nombres;
    for (const ConexionGuion::Paso& p : c.partes[0]) {
        if (p.operacion != "Open") continue;
        consultas.push_back(p);
        textos.emplace_back(std::string_view(p.texto));
        for (const auto& columna : p.columnas)
            if (!p.filas.empty()) nombres.emplace_back(std::string_view(columna));
    }
    e.Poner(consultas);
    Variante activa(static_cast<IDispatch*>(e.conexion.Get()));
    return Cronometrar([&] {
        auto nombre = nombres.begin();
        auto texto = textos.begin();
        for (const ConexionGuion::Paso& p : consultas) Consultar(p, activa.Get(), (texto++)->Get(), nombre);
    });
}

double Mediana(std::vector<double> valores) {
    std::sort(valores.begin(), valores.end());
    return valores[valores.size() / 2];
}

constexpr struct {
    const char* nombre;
    double (*carga)(const Escenario&, const Caso&);
} kFormas[] = {{"nativa, desde la memoria", Nativa},
               {"objetos de prueba, solos", ObjetosSolos},
               {"componente y adaptador, sin la DLL", ConAdaptador},
               {"DLL, por ranura", PorRanura},
               {"DLL, por nombre", PorNombreMedida}};

/// Microseconds of one load, the mean over all of them.
double Media(const Escenario& e, double (*carga)(const Escenario&, const Caso&)) {
    double total = 0;
    for (const Caso& c : e.casos) total += carga(e, c);
    return total / static_cast<double>(e.casos.size());
}

void Medir(const Escenario& e, int vueltas) {
    llamadas = 0;
    Media(e, PorRanura);
    const double n = static_cast<double>(e.casos.size());
    const double porCarga = static_cast<double>(llamadas) / n;
    std::vector<double> medias[std::size(kFormas)];
    for (int vuelta = 0; vuelta < vueltas; ++vuelta)
        for (std::size_t f = 0; f < std::size(kFormas); ++f) medias[f].push_back(Media(e, kFormas[f].carga));
    const double nativa = Mediana(medias[0]);
    std::printf("Cargar, mediana de %d vueltas de %zu cargas\n", vueltas, e.casos.size());
    for (std::size_t f = 0; f < std::size(kFormas); ++f)
        std::printf("  %-36s %8.2f us %7.2f x\n", kFormas[f].nombre, Mediana(medias[f]), Mediana(medias[f]) / nativa);
    std::printf("  por carga: %.1f llamadas a los objetos\n", porCarga);
    std::fflush(stdout);
}

int Principal(const char* grabacion, int vueltas) {
    const ClaseFalsa<RecordsetFalso> filas(ado::kClaseRecordset, ado::kRecordset[0]);
    const ClaseFalsa<ComandoFalso> ordenes(ado::kClaseCommand, ado::kCommand[0]);
    Escenario e;
    *e.empresa.Recibir() = new EmpresaFalsa;
    *e.conexion.Recibir() = new ConexionFalsa(*e.repetida, ado::kConnection[0]);
    e.casos = LeerGrabacion(grabacion);
    const auto retenida = Crear();  // keeps the DLL loaded
    Medir(e, vueltas);
    return 0;
}

}  // namespace
}  // namespace kv::prueba

int main(int argc, char** argv) {
    if (argc < 2 || FAILED(CoInitialize(nullptr))) return 2;
    try {
        return kv::prueba::Principal(argv[1], argc > 2 ? std::atoi(argv[2]) : 15);
    } catch (const std::exception& error) {
        std::cout << "FALLA: " << error.what() << std::endl;
        return 1;
    }
}
