include(CheckLinkerFlag)

# Which names go out of a shared library the visibility of its classes decides; the linkers that know this
# option keep those in that other libraries' templates leave behind.
set(TAVRIN_EXPORTS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
set(TAVRIN_HIDE LINKER:--version-script=${TAVRIN_EXPORTS})
check_linker_flag(CXX ${TAVRIN_HIDE} TAVRIN_LINKER_HIDES)

# tavrin_add_library(<name>
#     DESCRIPTION <one line>
#     PUBLIC_HEADERS <header>...
#     SOURCES <source or internal header>...
#     [PC_REQUIRES <pkg-config module>...]
#     [PC_REQUIRES_PRIVATE <pkg-config module of which only headers are used>...]
#     [PC_REQUIRES_INSIDE <pkg-config module that only the library itself is linked to>...])
#
# A library Tavrin.Core.Utils.<name>, shared or static as BUILD_SHARED_LIBS says, known to this build and to
# hosts as Tavrin::<name>. Its headers can be included by their path below the root of the project or by
# their bare name, also where it is installed; pkg-config knows it as tavrin-<name in lower case>.
function(tavrin_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 pc "" "DESCRIPTION"
        "PUBLIC_HEADERS;SOURCES;PC_REQUIRES;PC_REQUIRES_PRIVATE;PC_REQUIRES_INSIDE")
    string(TOUPPER ${name} upper)
    string(TOLOWER ${name} lower)
    set(folder Core/Utils/${name})

    add_library(${name} ${pc_SOURCES})
    add_library(Tavrin::${name} ALIAS ${name})
    target_sources(${name} PUBLIC
        FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${pc_PUBLIC_HEADERS})
    set_target_properties(${name} PROPERTIES
        OUTPUT_NAME Tavrin.Core.Utils.${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${TAVRIN_SOVERSION})
    target_compile_definitions(${name} PRIVATE ${upper}_LIBRARY)
    if(BUILD_SHARED_LIBS AND TAVRIN_LINKER_HIDES)
        target_link_options(${name} PRIVATE ${TAVRIN_HIDE})
        set_property(TARGET ${name} PROPERTY LINK_DEPENDS ${TAVRIN_EXPORTS})
    endif()
    target_compile_features(${name} PUBLIC cxx_std_17)
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
        $<INSTALL_INTERFACE:${TAVRIN_INCLUDEDIR}/${folder}>)

    install(TARGETS ${name} EXPORT TavrinBCFLibTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        FILE_SET HEADERS DESTINATION ${TAVRIN_INCLUDEDIR} COMPONENT development)

    set(pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    file(RELATIVE_PATH prefix_from_pc /prefix/${pkgconfig} /prefix)
    string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
    list(JOIN pc_PC_REQUIRES " " pc_REQUIRES)
    # Hosts of a static library have to link to what is inside it.
    if(NOT BUILD_SHARED_LIBS)
        list(APPEND pc_PC_REQUIRES_PRIVATE ${pc_PC_REQUIRES_INSIDE})
    endif()
    list(JOIN pc_PC_REQUIRES_PRIVATE " " pc_REQUIRES_PRIVATE)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/tavrin.pc.in tavrin-${lower}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tavrin-${lower}.pc
        DESTINATION ${pkgconfig} COMPONENT development)
endfunction()
