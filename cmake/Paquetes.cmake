# What CPack makes of an installation: a Debian package with the program and one for development.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "KVDatosArt <kvdatosart@kvdatosart.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL programa desarrollo)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# What was written when is the version's day, so that the same source makes the same package.
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/Fechas.cmake)

set(CPACK_DEBIAN_PROGRAMA_PACKAGE_NAME kvdatosart)
set(CPACK_DEBIAN_PROGRAMA_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAMA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMA_PACKAGE_SUGGESTS "tdsodbc, xdg-utils")
set(CPACK_COMPONENT_PROGRAMA_DESCRIPTION "prices, discounts and stock of a sales line
The price of an article for a customer on a day, and why; price lists, stock,
agreements and discounts, over a file of its own or a SQL Server database.")

set(CPACK_DEBIAN_DESARROLLO_PACKAGE_NAME libkvdatosart-dev)
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_DEPENDS libstdc++-12-dev)
set(CPACK_DEBIAN_DESARROLLO_PACKAGE_RECOMMENDS "libsqlite3-dev, unixodbc-dev")
set(CPACK_COMPONENT_DESARROLLO_DESCRIPTION "prices, discounts and stock of a sales line (C++ libraries)
Static libraries, headers and the CMake package for programs that price the
lines of their own documents.")

# The licences of what is linked into the program follow our own words, as the packages that brought it state them.
file(READ ${PROJECT_SOURCE_DIR}/paquetes/copyright derechos)
foreach(paquete IN ITEMS libcli11-dev nlohmann-json3-dev libcpp-httplib-dev libgcc-s1)
  set(suyo /usr/share/doc/${paquete}/copyright)
  if(EXISTS ${suyo})
    file(READ ${suyo} texto)
    string(APPEND derechos "\n\n===== ${paquete} =====\n\n${texto}")
  endif()
endforeach()
file(WRITE ${PROJECT_BINARY_DIR}/paquetes/copyright "${derechos}")
