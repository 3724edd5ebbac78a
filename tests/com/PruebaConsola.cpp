// The program kvdatosart.exe in a console of ours: what it leaves of it, also when Ctrl-C ends it.

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace kv::prueba {
namespace {

constexpr UINT kPaginaDeAntes = 850;
constexpr DWORD kMuchos = 60000;

BOOL WINAPI Desoir(DWORD /*que*/) {
    return TRUE;
}

/// A console of code page 850, which the programs that are started share.
class Consola : public testing::Test {
  protected:
    void SetUp() override {
        const wchar_t* const programa = _wgetenv(L"KV_PROGRAMA");
        if (programa == nullptr) GTEST_SKIP() << "KV_PROGRAMA no dice dónde está";
        programa_ = programa;
        FreeConsole();
        ASSERT_TRUE(AllocConsole());
        ASSERT_TRUE(SetConsoleOutputCP(kPaginaDeAntes));
        // Ctrl-C is for the others.
        SetConsoleCtrlHandler(nullptr, FALSE);
        SetConsoleCtrlHandler(Desoir, TRUE);
    }

    /// Starts it with its answer going into a pipe that holds next to nothing, and its errors too where `errores`.
    void Lanzar(const std::wstring& palabras, bool errores) {
        SECURITY_ATTRIBUTES heredable{sizeof heredable, nullptr, TRUE};
        ASSERT_TRUE(CreatePipe(&leer_, &escribir_, &heredable, 16));
        SetHandleInformation(leer_, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW inicio{};
        inicio.cb = sizeof inicio;
        inicio.dwFlags = STARTF_USESTDHANDLES;
        inicio.hStdOutput = errores ? GetStdHandle(STD_OUTPUT_HANDLE) : escribir_;
        inicio.hStdError = errores ? escribir_ : GetStdHandle(STD_ERROR_HANDLE);
        std::wstring orden = L"\"" + programa_ + L"\" " + palabras;
        ASSERT_TRUE(
            CreateProcessW(nullptr, orden.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &inicio, &proceso_));
        CloseHandle(escribir_);
    }
    void EsperarPagina(UINT pagina) {
        for (int i = 0; i < 600 && GetConsoleOutputCP() != pagina; ++i) Sleep(20);
        ASSERT_EQ(pagina, GetConsoleOutputCP());
    }
    /// All that it still writes, and its exit code.
    DWORD Acabar(std::string& escrito) {
        std::array<char, 4096> pieza{};
        DWORD leidos = 0;
        while (ReadFile(leer_, pieza.data(), static_cast<DWORD>(pieza.size()), &leidos, nullptr) != 0 && leidos > 0)
            escrito.append(pieza.data(), leidos);
        CloseHandle(leer_);
        DWORD codigo = 0;
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(proceso_.hProcess, kMuchos));
        GetExitCodeProcess(proceso_.hProcess, &codigo);
        CloseHandle(proceso_.hThread);
        CloseHandle(proceso_.hProcess);
        return codigo;
    }

  private:
    std::wstring programa_;
    HANDLE leer_ = nullptr;
    HANDLE escribir_ = nullptr;
    PROCESS_INFORMATION proceso_{};
};

TEST_F(Consola, QuedaComoEstaba_Acabe_OLoInterrumpan) {
    for (const bool interrumpido : {false, true}) {
        SCOPED_TRACE(interrumpido);
        // More than the pipe holds, so that it waits for a reader.
        ASSERT_NO_FATAL_FAILURE(Lanzar(L"ayuda --man", false));
        ASSERT_NO_FATAL_FAILURE(EsperarPagina(CP_UTF8));
        if (interrumpido) {
            ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
            EsperarPagina(kPaginaDeAntes);
        }
        std::string escrito;
        const DWORD codigo = Acabar(escrito);
        // Wine ends a program that Ctrl-C ends with a code of its own.
        EXPECT_TRUE(interrumpido || codigo == 0) << codigo;
        EXPECT_EQ(!interrumpido, escrito.find("existencias") != std::string::npos);
        EXPECT_EQ(kPaginaDeAntes, GetConsoleOutputCP());
    }
}

TEST_F(Consola, CtrlC_NoDejaUnaBaseAMedias) {
    namespace fs = std::filesystem;
    const fs::path carpeta = fs::temp_directory_path() / L"Año nuevo ñ";
    fs::create_directory(carpeta);
    ASSERT_NO_FATAL_FAILURE(Lanzar(L"crear-demo --traza \"" + (carpeta / L"tienda.kv").wstring() + L"\"", true));
    ASSERT_NO_FATAL_FAILURE(EsperarPagina(CP_UTF8));
    for (int i = 0; i < 600 && fs::is_empty(carpeta); ++i) Sleep(20);
    EXPECT_FALSE(fs::is_empty(carpeta));
    ASSERT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    Sleep(500);
    std::string escrito;
    EXPECT_EQ(3U, Acabar(escrito));
    EXPECT_NE(std::string::npos, escrito.find("interrumpido; no ha quedado nada a medias"));
    EXPECT_TRUE(fs::is_empty(carpeta));
    EXPECT_EQ(kPaginaDeAntes, GetConsoleOutputCP());
    fs::remove_all(carpeta);
}

}  // namespace
}  // namespace kv::prueba
