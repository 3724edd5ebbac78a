#include "kvdatosart/tests/com/Registrada.h"

// Every recorded load, by slot and by name in each way of passing the arguments.
namespace kv::prueba {
namespace {

constexpr std::size_t kPorRanura = 4;

/// In the odd forms the last three go by name, out of order, the optional one among them; a quantity of 0 is marked as
/// missing in the first two forms and not there in the others.
Llamada CargarPorNombre(::_clsDatosArt& o, const Caso& c, std::size_t forma) {
    const Valor unidades = c.Numero(5) == 0 ? Valor{} : Valor{c.Numero(5)};
    const bool fuera = forma > 1 && EsNulo(unidades);
    std::vector<Valor> seis = {c.Numero(1), c.Numero(2), Fecha::DeOle(c.Numero(3)), c.Numero(4), 1, 2};
    std::vector<std::pair<DISPID, Valor>> nombrados;
    if (forma % 2 == 1) {
        seis.resize(4);
        nombrados = {{5, 2}, {6, unidades}, {4, 1}};
        if (fuera) nombrados.erase(nombrados.begin() + 1);
    } else if (!fuera) {
        seis.push_back(unidades);
    }
    return PorNombre(o, "Cargar", DISPATCH_METHOD, seis, nombrados);
}

/// False is marked as missing or not there.
std::string DarPrecio(::_clsDatosArt& o, const Caso& c, std::size_t forma) {
    const bool forzar = c.Numero(7) != 0;
    std::vector<Valor> argumentos = {c.Numero(4), Fecha::DeOle(c.Numero(3))};
    if (forzar || forma % 2 == 0) argumentos.push_back(forzar ? Valor{-1} : Valor{});
    const Llamada precio = PorNombre(o, "DevPvp", DISPATCH_METHOD, argumentos);
    return precio.hr == S_OK ? precio.valor : "error " + std::to_string(precio.Fallo() - 0x800A0000L);
}

void ExigirPropiedades(::_clsDatosArt& o, const Caso& c) {
    for (const auto& [nombre, valor] : c.propiedades) EXPECT_EQ(valor, Leer(o, nombre)) << nombre;
}

PunteroCom<::_clsDatosArt> ProbarCaso(Escena& escena, const Caso& c, std::size_t i) {
    const std::size_t forma = i % (kPorRanura + 1);
    const auto conexion = Nuevo<ConexionFalsa>(escena.guion, ado::kConnection[i % 4]);
    auto o = Preparar(escena, c);
    std::map<std::string, std::string> dado;
    EXPECT_EQ(S_OK, o->putref_Conexion(conexion.Get()));
    escena.empresa->preguntas.clear();
    const Llamada carga = forma == kPorRanura ? CargarPorRanura(*o.Get(), c) : CargarPorNombre(*o.Get(), c, forma);
    dado["Estado"] = carga.hr == S_OK ? carga.valor : carga.error;
    escena.guion.Terminar();
    ExigirPropiedades(*o.Get(), c);
    escena.Poner(c.partes[1]);
    dado["Precio"] = DarPrecio(*o.Get(), c, forma);
    escena.guion.Terminar();
    escena.Poner(c.partes[2]);
    PunteroCom<::_clsDatosArt> padre;
    EXPECT_EQ(S_OK, o->get_padre(padre.Recibir()));
    if (padre) dado["Padre"] = Leer(*padre.Get(), "Codigo") + " " + Leer(*padre.Get(), "Pvp");
    escena.guion.Terminar();
    EXPECT_EQ(c.dado, dado);
    for (const auto& [nombre, veces] : escena.empresa->preguntas) EXPECT_EQ(1, veces) << nombre;
    return o;
}

TEST_F(Registrada, ArgumentosQueNoSirven) {
    const auto o = Crear();
    constexpr WORD kMetodo = DISPATCH_METHOD;
    constexpr WORD kLeer = DISPATCH_PROPERTYGET;
    constexpr WORD kPoner = DISPATCH_PROPERTYPUT;
    const Valor mal = std::string("doce");
    const Valor dia = Fecha::DeAmd(2025, 12, 9);
    const struct {
        const char* que;
        const char* miembro;
        WORD clase;
        HRESULT hr;
        std::vector<Valor> argumentos;
        std::vector<std::pair<DISPID, Valor>> nombrados;
    } malos[] = {
        {"texto por código", "Cargar", kMetodo, DISP_E_TYPEMISMATCH, {mal, 1, dia, 1, 1, 2}, {}},
        {"decimales nombrados", "Cargar", kMetodo, DISP_E_TYPEMISMATCH, {1, 1, dia, 1, 1}, {{5, mal}}},
        {"tarifa desbordada", "Cargar", kMetodo, DISP_E_OVERFLOW, {1, 1, dia, 40000, 1, 2}, {}},
        {"ocho argumentos", "Cargar", kMetodo, DISP_E_BADPARAMCOUNT, {1, 1, dia, 1, 1, 2, 3, 4}, {}},
        {"cinco argumentos", "Cargar", kMetodo, DISP_E_BADPARAMCOUNT, {1, 1, dia, 1, 1}, {}},
        {"cliente ausente", "Cargar", kMetodo, DISP_E_TYPEMISMATCH, {1, Valor{}, dia, 1, 1, 2}, {}},
        {"cuatro para DevPvp", "DevPvp", kMetodo, DISP_E_BADPARAMCOUNT, {1, dia, 0, 0}, {}},
        {"un método leído", "Cargar", kLeer, DISP_E_MEMBERNOTFOUND, {}, {}},
        {"sólo de escritura", "Conexion", kLeer, DISP_E_MEMBERNOTFOUND, {}, {}},
        {"nombre ajeno", "Cargarr", kMetodo, DISP_E_UNKNOWNNAME, {}, {}},
        {"texto por número", "Codigo", kPoner, DISP_E_TYPEMISMATCH, {}, {{DISPID_PROPERTYPUT, mal}}},
        {"cifras por número", "Codigo", kPoner, S_OK, {}, {{DISPID_PROPERTYPUT, Valor{std::string("12")}}}},
        {"byte desbordado", "Impuesto", kPoner, DISP_E_OVERFLOW, {}, {{DISPID_PROPERTYPUT, 256}}},
        {"número por objeto", "Conexion", kPoner, DISP_E_TYPEMISMATCH, {}, {{DISPID_PROPERTYPUT, 1}}},
    };
    for (const auto& c : malos)
        EXPECT_EQ(c.hr, PorNombre(*o.Get(), c.miembro, c.clase, c.argumentos, c.nombrados).hr) << c.que;
    EXPECT_EQ("4:12", Leer(*o.Get(), "codigo")) << "sin distinguir mayúsculas";
}

TEST_F(Registrada, CadaCargaDaLoGrabado) {
    ASSERT_GE(casos.size(), 200U);
    PunteroCom<::_clsDatosArt> anterior;
    for (std::size_t i = 0; i < casos.size(); ++i) {
        SCOPED_TRACE("carga " + casos[i].argumentos[1] + "," + casos[i].argumentos[2]);
        auto o = ProbarCaso(escena, casos[i], i);
        // A price leaves its tariff in the object.
        if (anterior && casos[i - 1].dado.at("Precio").starts_with("error"))
            ExigirPropiedades(*anterior.Get(), casos[i - 1]);
        anterior = std::move(o);
    }
}

}  // namespace
}  // namespace kv::prueba
