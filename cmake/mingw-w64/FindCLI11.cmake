# SPDX-License-Identifier: MIT
# Headers only, so those of the host serve. They are copied, because the host's folder of headers also holds
# those of its own C library.
find_path(CLI11_HOST_INCLUDE_DIR CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(CLI11 REQUIRED_VARS CLI11_HOST_INCLUDE_DIR)

if(CLI11_FOUND AND NOT TARGET CLI11::CLI11)
    file(COPY ${CLI11_HOST_INCLUDE_DIR}/CLI DESTINATION ${CMAKE_BINARY_DIR}/headers)
    add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
    target_include_directories(CLI11::CLI11 INTERFACE ${CMAKE_BINARY_DIR}/headers)
endif()
