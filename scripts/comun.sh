# Shared by the scripts: where the project lies and how it is built. To be sourced.
raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$raiz"

# construir PRESET [argument of the configuration...]: configures and builds.
construir() {
    local preset=$1
    shift
    cmake --preset "$preset" "$@" --log-level=WARNING >/dev/null
    cmake --build --preset "$preset" -j "$(nproc)"
}
