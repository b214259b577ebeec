# SPDX-License-Identifier: MIT
include(${CMAKE_CURRENT_LIST_DIR}/HostHeaders.cmake)
import_host_headers(nlohmann_json nlohmann/json.hpp)
