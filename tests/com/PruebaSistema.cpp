// What Windows gives a program that links the libraries and sets nothing: date, decimal separator and message box.

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "kvdatosart/customers/clsCliente.h"
#include "kvdatosart/db/BibliotecaConsola.h"
#include "kvdatosart/db/ValoresSql.h"
#include "kvdatosart/db/ado/Variante.h"
#include "kvdatosart/tests/comun/ConexionGuion.h"
#include "kvdatosart/tests/comun/EmpresaFija.h"

namespace kv::prueba {
namespace {

constexpr const wchar_t* kTitulo = L"¡Atención!";
const std::string kTexto = "El cliente no se puede eliminar porque tiene dependencias";

TEST(Sistema, ElSeparadorEsElDelUsuario) {
    std::array<wchar_t, 8> antes{};
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, antes.data(), static_cast<int>(antes.size()));
    for (const auto& [separador, esperado] : {std::pair(L",", "12,5"), {L".", "12.5"}, {L"'", "12.5"}}) {
        ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separador));
        EXPECT_EQ(esperado, SqlCurrency(Currency::DeDouble(12.5)).Cadena());
    }
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, antes.data());
}

TEST(Sistema, LaFechaEsLaDeAqui) {
    const char* hoy = std::getenv("KV_HOY");
    if (hoy == nullptr) GTEST_SKIP() << "KV_HOY no dice qué día es";
    EXPECT_EQ(hoy, Biblioteca().Hoy().ATexto().Cadena());
}

BOOL CALLBACK CopiarTexto(HWND ventana, LPARAM destino) {
    std::array<wchar_t, 200> texto{};
    GetWindowTextW(ventana, texto.data(), static_cast<int>(texto.size()));
    const BSTR copia = SysAllocString(texto.data());
    *reinterpret_cast<std::string*>(destino) += Utf8(copia) + "|";  // NOLINT: as the system hands it on.
    SysFreeString(copia);
    return TRUE;
}

// Waits for the box, keeps the texts in it and accepts it.
DWORD CALLBACK AceptarVentana(void* textos) {
    HWND ventana = nullptr;
    for (int i = 0; i < 200 && ventana == nullptr; ++i, Sleep(100)) ventana = FindWindowW(L"#32770", kTitulo);
    EnumChildWindows(ventana, CopiarTexto, reinterpret_cast<LPARAM>(textos));  // NOLINT: as the system wants it.
    PostMessageW(ventana, WM_COMMAND, IDOK, 0);
    return 0;
}

// A customer that another one has as its parent.
bool Eliminar() {
    const auto guion = std::make_shared<ConexionGuion>();
    guion->EsperaConsulta("SELECT TOP 1 Codigo FROM Clientes WHERE Cod_Empresa =3 AND Padre =77", {"Codigo"}, {{78}});
    clsCliente cliente;
    cliente.Conexion(guion);
    cliente.cEmpresa(std::make_shared<EmpresaFija>());
    cliente.Codigo = 77;
    return cliente.Eliminar(false);
}

TEST(Sistema, ElAvisoEsUnaVentana_YEnLaConsolaSeEscribe) {
    std::string textos = "|";
    const HANDLE hilo = CreateThread(nullptr, 0, AceptarVentana, &textos, 0, nullptr);
    EXPECT_FALSE(Eliminar());
    WaitForSingleObject(hilo, INFINITE);
    CloseHandle(hilo);
    EXPECT_NE(std::string::npos, textos.find("|" + kTexto + "|")) << textos;

    const auto antes = CambiarBiblioteca(std::make_shared<BibliotecaConsola>());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(Eliminar());
    EXPECT_EQ("¡Atención! " + kTexto + "\n", testing::internal::GetCapturedStderr());
    CambiarBiblioteca(antes);
}

}  // namespace
}  // namespace kv::prueba
