# SPDX-License-Identifier: MIT
# Headers only, so those of the host serve. They are copied, because the host's folder of headers also holds
# those of its own C library.
find_path(JSON_HOST_INCLUDE_DIR nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(nlohmann_json REQUIRED_VARS JSON_HOST_INCLUDE_DIR)

if(nlohmann_json_FOUND AND NOT TARGET nlohmann_json::nlohmann_json)
    file(COPY ${JSON_HOST_INCLUDE_DIR}/nlohmann DESTINATION ${CMAKE_BINARY_DIR}/headers)
    add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
    target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${CMAKE_BINARY_DIR}/headers)
endif()
