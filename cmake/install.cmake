# What is installed, in two components: runtime (the shared libraries) and development (the rest).
include(CMakePackageConfigHelpers)

# Targets by the names that programs link; in this tree aliases give the same names.
set(exported_names zelk zelk brava brava zelk_simd simd
                   zelk_static zelk_static brava_static brava_static zelk_simd_static simd_static)
while(exported_names)
    list(POP_FRONT exported_names target name)
    add_library(zelk::${name} ALIAS ${target})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL STATIC_LIBRARY)
        string(REPLACE _static "" output ${target})
        set_target_properties(${target} PROPERTIES OUTPUT_NAME ${output})
    else()
        # The libraries find each other wherever the prefix is moved to.
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    endif()
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} EXPORT zelk-targets
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
            INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endwhile()
install(DIRECTORY include/zelk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(FILES runtime/brava.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(FILES docs/zelk.3 DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT development)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libzelk1 RENAME copyright COMPONENT runtime)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/libzelk-dev RENAME copyright COMPONENT development)

set(cmake_directory ${CMAKE_INSTALL_LIBDIR}/cmake/zelk)
install(EXPORT zelk-targets NAMESPACE zelk:: DESTINATION ${cmake_directory} COMPONENT development)
configure_package_config_file(cmake/zelk-config.cmake.in ${PROJECT_BINARY_DIR}/zelk-config.cmake
                              INSTALL_DESTINATION ${cmake_directory})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelk-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zelk-config.cmake ${PROJECT_BINARY_DIR}/zelk-config-version.cmake
        DESTINATION ${cmake_directory} COMPONENT development)

# pkg-config works out the prefix from where its file lies.
set(vector_flags)
if(ZELK_TARGET STREQUAL i386)
    set(vector_flags " -msse2")
endif()
file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(package zelk zelk-simd)
    configure_file(cmake/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
            COMPONENT development)
endforeach()
