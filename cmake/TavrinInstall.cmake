# What is installed beside the libraries: the CMake package, the programs, documents and samples.
include(CMakePackageConfigHelpers)

set(package_config TavrinBCFLibConfig.cmake TavrinBCFLibConfigVersion.cmake)
list(TRANSFORM package_config PREPEND ${PROJECT_BINARY_DIR}/)

set(translations ${TAVRIN_TRANSLATIONSDIR})
configure_package_config_file(cmake/TavrinBCFLibConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TavrinBCFLibConfig.cmake
    INSTALL_DESTINATION ${TAVRIN_CMAKEDIR}
    PATH_VARS translations)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TavrinBCFLibConfigVersion.cmake
    COMPATIBILITY ${TAVRIN_COMPATIBILITY})

install(FILES ${package_config} cmake/FindOpenSceneGraphHeaders.cmake
    DESTINATION ${TAVRIN_CMAKEDIR} COMPONENT development)
install(EXPORT TavrinBCFLibTargets NAMESPACE Tavrin::
    DESTINATION ${TAVRIN_CMAKEDIR} COMPONENT development)

foreach(program bcf-create bcf-inspect issue-browser)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)

        set(page ${PROJECT_BINARY_DIR}/man/${program}.1)
        get_target_property(folder ${program} SOURCE_DIR)
        configure_file(${folder}/${program}.1 ${page} @ONLY)
        execute_process(COMMAND gzip --best --no-name --force --keep ${page} COMMAND_ERROR_IS_FATAL ANY)
        install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tools)
    endif()
endforeach()

install(FILES README.md CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(DIRECTORY Examples/
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples COMPONENT development
    FILES_MATCHING PATTERN *.bcf PATTERN *.bcfzip PATTERN *.cpp PATTERN *.h)
