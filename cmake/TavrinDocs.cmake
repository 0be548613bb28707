# The target "docs": the API reference in <build>/docs/html, which any gap in the headers fails.
find_package(Doxygen QUIET COMPONENTS dot)
if(NOT DOXYGEN_FOUND)
    return()
endif()

configure_file(Docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/docs
    COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "API reference in ${PROJECT_BINARY_DIR}/docs/html"
    VERBATIM)
