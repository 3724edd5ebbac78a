# Build rules shared by every folder.

# Headers are included as "kvdatosart/base/Currency.h", in this tree as in a host's that has installed them.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
file(CREATE_LINK ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include/kvdatosart SYMBOLIC)

add_library(kv_avisos INTERFACE)
target_compile_features(kv_avisos INTERFACE cxx_std_20)
target_include_directories(kv_avisos INTERFACE ${PROJECT_BINARY_DIR}/include)
target_compile_options(kv_avisos INTERFACE
  $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow>)
# GCC 12 warns of an overlap in std::string's own operator+ when it optimises; for Windows of more, so that what builds
# the program there takes warnings for what they are.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(kv_avisos INTERFACE -Wno-restrict)
endif()
if(KV_AVISOS_ERROR)
  target_compile_options(kv_avisos INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang>:-Werror>)
endif()
if(KV_SANEADORES)
  target_compile_options(kv_avisos INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kv_avisos INTERFACE -fsanitize=address,undefined)
endif()
# A product and a sum that the processor fuses are rounded once, which changes averages in their last place.
target_compile_options(kv_avisos INTERFACE $<$<COMPILE_LANG_AND_ID:CXX,GNU,Clang>:-ffp-contract=off>)
# A 32-bit x87 build rounds twice and would change monetary ties.
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(kv_avisos INTERFACE -msse2 -mfpmath=sse)
endif()

# kv_biblioteca(name FUENTES a.cpp ... USA kv_base ... PRIVADO SQLite::SQLite3 ... PAQUETE a.h ... PARTE sqlite): one
# static library per folder. The headers after PAQUETE (TODAS: every one of the folder) make it part of the installed
# package, in the part of that name (component, when it is not said), without which it can be found.
function(kv_biblioteca nombre)
  cmake_parse_arguments(KV "" "PARTE" "FUENTES;USA;PRIVADO;PAQUETE" ${ARGN})
  add_library(${nombre} STATIC ${KV_FUENTES})
  target_link_libraries(${nombre} PUBLIC ${KV_USA} PRIVATE $<BUILD_INTERFACE:kv_avisos> ${KV_PRIVADO})
  target_compile_features(${nombre} PUBLIC cxx_std_20)
  target_include_directories(${nombre} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include> $<INSTALL_INTERFACE:include>)
  set_target_properties(${nombre} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
  if(KV_PAQUETE)
    if(KV_PAQUETE STREQUAL "TODAS")
      file(GLOB KV_PAQUETE CONFIGURE_DEPENDS *.h)
    endif()
    file(RELATIVE_PATH carpeta ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
    if(NOT KV_PARTE)
      set(KV_PARTE component)
    endif()
    set_property(GLOBAL APPEND PROPERTY kv_partes ${KV_PARTE})
    string(REGEX REPLACE "^kv_" "" corto ${nombre})
    set_target_properties(${nombre} PROPERTIES EXPORT_NAME ${corto})
    install(FILES ${KV_PAQUETE} DESTINATION include/kvdatosart/${carpeta} COMPONENT desarrollo)
    install(TARGETS ${nombre} EXPORT KVDatosArt-${KV_PARTE} COMPONENT desarrollo)
  endif()
endfunction()

# kv_incrustar(VARIABLE file): the file's text as raw strings, which travels inside the program; in pieces, since
# compilers limit the length of one.
function(kv_incrustar variable fichero)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${fichero})
  file(READ ${fichero} texto)
  string(LENGTH "${texto}" largo)
  set(piezas "")
  set(desde 0)
  while(desde LESS largo)
    string(SUBSTRING "${texto}" ${desde} 8000 pieza)
    string(APPEND piezas "    R\"kv(${pieza})kv\",\n")
    math(EXPR desde "${desde} + 8000")
  endwhile()
  set(${variable} "${piezas}" PARENT_SCOPE)
endfunction()

# kv_instalar_paquete(): what find_package(KVDatosArt) reads. After every library.
function(kv_instalar_paquete)
  include(CMakePackageConfigHelpers)
  set(destino lib/cmake/KVDatosArt)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KVDatosArtConfig.cmake.in KVDatosArtConfig.cmake
    INSTALL_DESTINATION ${destino} NO_SET_AND_CHECK_MACRO)
  write_basic_package_version_file(KVDatosArtConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KVDatosArtConfig.cmake
                ${CMAKE_CURRENT_BINARY_DIR}/KVDatosArtConfigVersion.cmake
          DESTINATION ${destino} COMPONENT desarrollo)
  get_property(partes GLOBAL PROPERTY kv_partes)
  list(REMOVE_DUPLICATES partes)
  foreach(parte IN LISTS partes)
    install(EXPORT KVDatosArt-${parte} NAMESPACE KVDatosArt:: DESTINATION ${destino} COMPONENT desarrollo)
  endforeach()
endfunction()

# kv_prueba(name FUENTES a.cpp ... USA kv_rules ...): one GoogleTest program, run by ctest.
function(kv_prueba nombre)
  cmake_parse_arguments(KV "" "" "FUENTES;USA" ${ARGN})
  add_executable(${nombre} ${KV_FUENTES})
  target_link_libraries(${nombre} PRIVATE kv_avisos kv_prueba_comun ${KV_USA} GTest::gtest_main)
  target_precompile_headers(${nombre} REUSE_FROM kv_prueba_comun)
  set_target_properties(${nombre} PROPERTIES CXX_EXTENSIONS OFF)
  add_test(NAME ${nombre} COMMAND ${nombre})
  set_tests_properties(${nombre} PROPERTIES TIMEOUT 300)
endfunction()
