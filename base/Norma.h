#pragma once

// Visual C++ tells its standard elsewhere.
#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) < 202002L
#error "KVDatosArt necesita C++20: -std=c++20, /std:c++20, o en CMake target_compile_features(... cxx_std_20)"
#endif
