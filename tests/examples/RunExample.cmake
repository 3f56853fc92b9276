# Runs PROGRAM (on INPUT when given) and checks its exit status
# (EXPECTED_STATUS, 0 by default), its standard output against the file
# EXPECTED when given, and that its standard error names EXPECTED_ERROR when
# given. The library's log lines go to standard error and are not checked.
if(NOT DEFINED EXPECTED_STATUS)
    set(EXPECTED_STATUS 0)
endif()
# EMULATOR: the command a cross build runs target programs with (may be empty).
separate_arguments(emulator UNIX_COMMAND "${EMULATOR}")
execute_process(COMMAND ${emulator} ${PROGRAM} ${INPUT} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status STREQUAL EXPECTED_STATUS)
    message(FATAL_ERROR "${PROGRAM} ${INPUT}: exit status ${status}, expected ${EXPECTED_STATUS}\n${errors}")
endif()
if(DEFINED EXPECTED)
    file(READ ${EXPECTED} expected)
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "${PROGRAM} ${INPUT} printed:\n${output}\nexpected (${EXPECTED}):\n${expected}")
    endif()
endif()
if(DEFINED EXPECTED_ERROR AND NOT errors MATCHES "${EXPECTED_ERROR}")
    message(FATAL_ERROR "${PROGRAM} ${INPUT}: no message naming ${EXPECTED_ERROR}:\n${errors}")
endif()
