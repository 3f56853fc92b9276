# Installs the build tree into a fresh prefix, then builds and runs a small
# consumer against it, once through the CMake package and once through
# pkg-config. Run with cmake -P; the variables come from the test definition:
# BUILD_DIR, WORK_DIR, SOURCE_DIR, CXX, GENERATOR, CXX_FLAGS, and for a cross
# build TOOLCHAIN (the toolchain file) and EMULATOR (the command running the
# target's programs).
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
    endif()
    set(LAST_OUTPUT "${out}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK_DIR}/prefix)
separate_arguments(emulator UNIX_COMMAND "${EMULATOR}")
set(cross "")
if(TOOLCHAIN)
    # The toolchain confines package searches to the target's root: the
    # package is named by its folder.
    set(cross -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DVuroISDBTUtils_DIR=${prefix}/lib/cmake/VuroISDBTUtils)
endif()
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# What the prefix must hold, and what it must not.
foreach(path lib/libVuroISDBTUtils-2.0.so lib/liblog.so lib/libVuroPal-2.0.so
        include/VuroISDBTUtils/VuroISDBT.h include/VuroISDBTUtils/pat/TPATTable.h
        include/VuroISDBTUtils/android/log.h include/VuroISDBTUtils/android/log_host.h
        include/VuroISDBTUtils/VuroPal.h lib/cmake/VuroISDBTUtils/VuroISDBTUtilsConfig.cmake
        lib/pkgconfig/VuroISDBTUtils.pc)
    if(NOT EXISTS ${prefix}/${path})
        message(FATAL_ERROR "not installed: ${path}")
    endif()
endforeach()
if(EXISTS ${prefix}/include/VuroISDBTUtils/utils/VuroParseSupport.h)
    message(FATAL_ERROR "the internal VuroParseSupport.h was installed")
endif()
find_program(READELF readelf)
if(READELF)
    run(${READELF} -d ${prefix}/lib/libVuroISDBTUtils-2.0.so)
    if(NOT LAST_OUTPUT MATCHES "Library soname: \\[libVuroISDBTUtils-2\\.0\\.so\\]")
        message(FATAL_ERROR "wrong SONAME:\n${LAST_OUTPUT}")
    endif()
endif()

# 1. find_package(VuroISDBTUtils) and Vuro::ISDBTUtils.
run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/tools/consumer -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} ${cross} -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_EXE_LINKER_FLAGS=${CXX_FLAGS}" -DVURO_EXAMPLE_SOURCE=${SOURCE_DIR}/examples/parse_pat.cpp)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${emulator} ${WORK_DIR}/consumer/parse-pat-example)
if(NOT LAST_OUTPUT MATCHES "program 0xE580 -> PMT PID 0x01F0")
    message(FATAL_ERROR "unexpected output of the consumer:\n${LAST_OUTPUT}")
endif()

# 2. pkg-config.
find_program(PKG_CONFIG pkg-config)
if(PKG_CONFIG)
    set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
    run(${PKG_CONFIG} --cflags --libs VuroISDBTUtils)
    string(STRIP "${LAST_OUTPUT}" flags)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    separate_arguments(extra UNIX_COMMAND "${CXX_FLAGS}")
    run(${CXX} -std=c++17 ${extra} ${SOURCE_DIR}/examples/parse_pat.cpp ${flags} -o ${WORK_DIR}/pc-consumer)
    run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib ${emulator} ${WORK_DIR}/pc-consumer)
    if(NOT LAST_OUTPUT MATCHES "program 0xE598 -> PMT PID 0x1FC8")
        message(FATAL_ERROR "unexpected output of the pkg-config consumer:\n${LAST_OUTPUT}")
    endif()
endif()
