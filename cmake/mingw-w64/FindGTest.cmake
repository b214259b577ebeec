# SPDX-License-Identifier: MIT
# GoogleTest from its sources.
find_path(GTEST_SOURCE_DIR src/gtest-all.cc PATHS /usr/src/googletest/googletest NO_CMAKE_FIND_ROOT_PATH)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GTest REQUIRED_VARS GTEST_SOURCE_DIR)

if(GTest_FOUND AND NOT TARGET GTest::gtest)
    add_library(gtest STATIC EXCLUDE_FROM_ALL ${GTEST_SOURCE_DIR}/src/gtest-all.cc)
    target_include_directories(gtest SYSTEM PUBLIC ${GTEST_SOURCE_DIR}/include PRIVATE ${GTEST_SOURCE_DIR})
    target_compile_options(gtest PRIVATE -w)
    add_library(gtest_main STATIC EXCLUDE_FROM_ALL ${GTEST_SOURCE_DIR}/src/gtest_main.cc)
    target_link_libraries(gtest_main PUBLIC gtest)
    add_library(GTest::gtest ALIAS gtest)
    add_library(GTest::gtest_main ALIAS gtest_main)
endif()
