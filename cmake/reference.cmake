# The API reference, where Doxygen is installed; the test holds it free of warnings.
find_program(ZELK_DOXYGEN doxygen)
if(ZELK_DOXYGEN)
    configure_file(docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
    add_custom_target(reference COMMAND ${ZELK_DOXYGEN} ${PROJECT_BINARY_DIR}/Doxyfile VERBATIM)
    add_test(NAME reference COMMAND ${ZELK_DOXYGEN} ${PROJECT_BINARY_DIR}/Doxyfile)
endif()
