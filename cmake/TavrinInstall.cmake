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

# What a desktop needs to know the archives and to open them by a click.
if(TARGET issue-browser)
    install(FILES packaging/desktop/issue-browser.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT tools)
    install(FILES packaging/desktop/issue-browser.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT tools)
    install(FILES packaging/desktop/tavrin-bcf.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT tools)
endif()

# The pages stand as they do here, so that their links hold; those to what stays behind become plain text.
set(TAVRIN_PAGES README.md CHANGELOG.md SECURITY.md
    Docs/ForHosts.md Docs/Performance.md Docs/VariantForm.md)
set(page_files Docs/bcf-inspect.schema.json Docs/growth.svg Docs/issue-browser.png)
list(JOIN TAVRIN_PAGES " " pages)
list(JOIN page_files " " there)
find_program(AWK awk REQUIRED)
foreach(page ${TAVRIN_PAGES})
    set(installed ${PROJECT_BINARY_DIR}/pages/${page})
    get_filename_component(folder ${page} DIRECTORY)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/pages/${folder})
    execute_process(
        COMMAND ${AWK} -v page=${page} "-v" "there=${pages} ${there} Examples/" -f cmake/page.awk ${page}
        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
        OUTPUT_FILE ${installed}
        COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${page} cmake/page.awk)
    install(FILES ${installed}
        DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder} COMPONENT development)
endforeach()
install(FILES ${page_files}
    DESTINATION ${CMAKE_INSTALL_DOCDIR}/Docs COMPONENT development)
install(DIRECTORY Examples
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development
    FILES_MATCHING PATTERN *.bcf PATTERN *.bcfzip PATTERN *.cpp PATTERN *.h)
