# Debian packages: cpack -G DEB in the build directory makes libzelk1 and libzelk-dev.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelk)
set(CPACK_PACKAGE_CONTACT "the libzelk developers <libzelk@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
if(ZELK_TARGET STREQUAL x86_64)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
else()
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
endif()

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzelk1)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Short-vector elementary functions for x86
One call computes one function on every lane of a 128-bit vector. This package
holds the shared libraries.")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzelk-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libzelk1 (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Short-vector elementary functions for x86: development files
Headers, static libraries, CMake package and pkg-config files of libzelk.")
include(CPack)
