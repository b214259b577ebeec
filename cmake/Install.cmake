# SPDX-License-Identifier: MIT
# What goes where, by component: "library" to run programs, "development" to build them, "tool", "samples".
include(CMakePackageConfigHelpers)

set(KM_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/kmprofile)
set(KM_HEADERS_DIR ${CMAKE_INSTALL_INCLUDEDIR}/kmprofile)
set(KM_DOCUMENTS_DIR $<IF:$<PLATFORM_ID:Windows>,.,${CMAKE_INSTALL_DOCDIR}>)

install(TARGETS kmprofile EXPORT kmprofile
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    FILE_SET HEADERS DESTINATION ${KM_HEADERS_DIR} COMPONENT development
    INCLUDES DESTINATION ${KM_HEADERS_DIR})
if(KM_BUILD_TOOLS)
    install(TARGETS kmprofile_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
    if(TARGET kmprofile_tool_texts)
        set(printed ${PROJECT_BINARY_DIR}/tools)
        install(FILES ${printed}/kmprofile.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
        install(FILES ${printed}/kmprofile.bash RENAME kmprofile COMPONENT tool
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
        install(FILES ${printed}/_kmprofile COMPONENT tool
            DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
        install(FILES ${printed}/kmprofile.fish COMPONENT tool
            DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
    endif()
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/Profiles/ DESTINATION ${KM_PROFILES_DIR} COMPONENT samples)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${KM_DOCUMENTS_DIR} COMPONENT library)
install(FILES ${PROJECT_SOURCE_DIR}/README.md DESTINATION ${KM_DOCUMENTS_DIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${KM_DOCUMENTS_DIR} COMPONENT development
    PATTERN reference EXCLUDE)

# find_package(kmprofile CONFIG). As with the shared library's own name, the first number tells what fits.
set(KM_GENERATED ${PROJECT_BINARY_DIR}/package)
install(EXPORT kmprofile NAMESPACE kmprofile:: FILE kmprofile-targets.cmake
    DESTINATION ${KM_PACKAGE_DIR} COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/kmprofile-config.cmake.in
    ${KM_GENERATED}/kmprofile-config.cmake
    INSTALL_DESTINATION ${KM_PACKAGE_DIR}
    PATH_VARS KM_PROFILES_DIR
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${KM_GENERATED}/kmprofile-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${KM_GENERATED}/kmprofile-config.cmake ${KM_GENERATED}/kmprofile-config-version.cmake
    DESTINATION ${KM_PACKAGE_DIR} COMPONENT development)

# pkg-config. From the folder of its own file, so that an unpacked archive serves wherever it lies.
set(KM_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(ABSOLUTE_PATH KM_PKGCONFIG_DIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE from)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${from} OUTPUT_VARIABLE KM_PREFIX_FROM_PKGCONFIG)
configure_file(${PROJECT_SOURCE_DIR}/cmake/kmprofile.pc.in ${KM_GENERATED}/kmprofile.pc @ONLY)
install(FILES ${KM_GENERATED}/kmprofile.pc DESTINATION ${KM_PKGCONFIG_DIR} COMPONENT development)
