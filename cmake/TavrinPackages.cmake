# Three Debian packages for cpack: the libraries, what a host's developer needs, and the programs.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavrin-bcflib)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "The Tavrin BCFLib developers <bcflib@tavrin.invalid>"
    CACHE STRING "Who answers for the packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

# Packages that Debian itself might make of this version begin with 1 and take the place of these.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0tavrin1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libtavrin-bcflib${TAVRIN_SOVERSION})
# The trigger calls ldconfig. CPack writes scripts that call it too, unless the package has its own:
# the two names keep it from that, and as there are no such files, of which it warns, there are none.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers postinst postrm)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"issue archives of the BIM Collaboration Format
Loads, edits, validates and saves archives of issues in building models, of
versions 1.0, 2.0 and 2.1 of the format, as a tree of Qt objects.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libtavrin-bcflib-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# What the headers include; the programs that link to the library need no more.
set(qt_development_5 qtbase5-dev)
set(qt_development_6 qt6-base-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${qt_development_${TAVRIN_QT}} (>= ${TAVRIN_QT_OLDEST}), liblog4cplus-dev (>= 2), libopenscenegraph-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"issue archives of the BIM Collaboration Format - development
Headers, CMake package, pkg-config files and sample of the library that loads
and saves archives of issues in building models.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME tavrin-bcf-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
"issue archives of the BIM Collaboration Format - programs
Programs that show what stands in an archive of issues in building models,
browse it, and make one.")

# The papers that Debian wants of every package; no use to an installation without one.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/changelog.in ${PROJECT_BINARY_DIR}/packaging/changelog.Debian @ONLY)
execute_process(COMMAND gzip --best --no-name --force --keep
    ${PROJECT_BINARY_DIR}/packaging/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
foreach(component runtime development tools)
    string(TOUPPER ${component} upper)
    install(FILES
        ${PROJECT_BINARY_DIR}/packaging/changelog.Debian.gz
        packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}
        COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
install(FILES packaging/lintian-overrides
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
    RENAME ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}
    COMPONENT runtime EXCLUDE_FROM_ALL)

include(CPack)
