// Replays the seeds: every file of a folder through one fuzzer's case, without the fuzzer.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "kvdatosart/fuzz/Exigir.h"

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    int casos = 0;
    for (const auto& fichero : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream entrada(fichero.path(), std::ios::binary);
        const std::string texto{std::istreambuf_iterator<char>(entrada), {}};
        std::fprintf(stderr, "%s\n", fichero.path().c_str());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(texto.data()), texto.size());
        ++casos;
    }
    if (casos < 5) std::fprintf(stderr, "%s: faltan casos\n", argv[1]);
    return casos < 5 ? 1 : 0;
}
