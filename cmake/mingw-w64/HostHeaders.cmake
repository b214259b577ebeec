# SPDX-License-Identifier: MIT
# Makes a package of headers alone from those of the host. They are copied, because the host's folder of headers also
# holds those of its own C library. `header` is one of them, in their folder.
include(FindPackageHandleStandardArgs)

macro(import_host_headers package header)
    find_path(${package}_HOST_INCLUDE_DIR ${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)
    find_package_handle_standard_args(${package} REQUIRED_VARS ${package}_HOST_INCLUDE_DIR)
    if(${package}_FOUND AND NOT TARGET ${package}::${package})
        get_filename_component(folder ${header} DIRECTORY)
        file(COPY ${${package}_HOST_INCLUDE_DIR}/${folder} DESTINATION ${CMAKE_BINARY_DIR}/headers)
        add_library(${package}::${package} INTERFACE IMPORTED GLOBAL)
        target_include_directories(${package}::${package} INTERFACE ${CMAKE_BINARY_DIR}/headers)
    endif()
endmacro()
