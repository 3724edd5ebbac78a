# Writes component/com/Propiedades.inc from the IDL: a line KV_PROPIEDAD(name, type) for each data property, in its
# order, for whoever defines KV_PROPIEDAD and includes it. Link kv_propiedades to find it.
set(kv_idl_propiedades ${PROJECT_SOURCE_DIR}/component/com/KVDatosArt.idl)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${kv_idl_propiedades})
file(STRINGS ${kv_idl_propiedades} kv_lineas REGEX "propget.*retval")
set(kv_propiedades_inc "")
foreach(linea IN LISTS kv_lineas)
  # The one property of the interface's own type, padre, is no data.
  if(linea MATCHES "HRESULT ([A-Za-z_0-9]+)\\(\\[out, retval\\] ([A-Za-z_ ]+) \\*valor")
    set(nombre ${CMAKE_MATCH_1})
    string(REPLACE "long" "LONG" tipo "${CMAKE_MATCH_2}")
    string(APPEND kv_propiedades_inc "KV_PROPIEDAD(${nombre}, ${tipo})\n")
  endif()
endforeach()
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generado/kvdatosart/component/com/Propiedades.inc CONTENT "${kv_propiedades_inc}")
add_library(kv_propiedades INTERFACE)
target_include_directories(kv_propiedades INTERFACE ${PROJECT_BINARY_DIR}/generado)
