# SPDX-License-Identifier: MIT
# Runs PROGRAM on a copy of SAMPLES in SCRATCH, and fails unless it prints the content of EXPECTED.
file(REMOVE_RECURSE ${SCRATCH})
file(COPY ${SAMPLES} DESTINATION ${SCRATCH})
execute_process(
    COMMAND ${PROGRAM} Profiles
    WORKING_DIRECTORY ${SCRATCH}
    OUTPUT_VARIABLE printed
    RESULT_VARIABLE status
    ENCODING UTF-8)
string(REPLACE "\r\n" "\n" printed "${printed}")
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0 OR NOT printed STREQUAL expected)
    message(FATAL_ERROR "${PROGRAM}\nstatus: ${status}\nexpected:\n${expected}\nprinted:\n${printed}")
endif()
