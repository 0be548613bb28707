# The target "docs": the API reference in <build>/docs/html, which any gap in the headers fails.
find_package(Doxygen QUIET COMPONENTS dot)
if(NOT DOXYGEN_FOUND)
    return()
endif()

set(doxygen_pages Docs/mainpage.md Docs/ForHosts.md Docs/VariantForm.md SECURITY.md Docs/Performance.md)
list(JOIN doxygen_pages " " doxygen_there)
set(doxygen_input ${doxygen_pages} Docs/namespaces.dox)
foreach(library Utility QtCoreTools BCFLib)
    get_target_property(headers ${library} HEADER_SET)
    get_target_property(folder ${library} SOURCE_DIR)
    list(TRANSFORM headers PREPEND ${folder}/ REGEX "^[^/]")
    list(APPEND doxygen_input ${headers})
endforeach()
list(TRANSFORM doxygen_input REPLACE "(.+)" "\"\\1\"")
list(JOIN doxygen_input " \\\n    " doxygen_input)

configure_file(Docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/docs
    COMMAND ${PROJECT_SOURCE_DIR}/Scripts/check-includes.py --draw ${PROJECT_BINARY_DIR}/docs/folders.dot
    COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    COMMENT "API reference in ${PROJECT_BINARY_DIR}/docs/html"
    VERBATIM)
