# SPDX-License-Identifier: MIT
include(${CMAKE_CURRENT_LIST_DIR}/HostHeaders.cmake)
import_host_headers(CLI11 CLI/CLI.hpp)
