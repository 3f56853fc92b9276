# Shared part of the cross toolchain files (cmake/toolchain-*.cmake), which
# set VURO_CROSS_TRIPLET (Debian's cross compiler prefix) and
# VURO_CROSS_QEMU (the qemu-user program for the target) first.
#
# Debian's cross compilers with the target's libraries from /usr/<triplet>;
# programs the build runs (tests, the sample generator, test discovery) go
# through qemu-user with that root, so nothing is registered system-wide.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${VURO_CROSS_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${VURO_CROSS_TRIPLET}-g++)

set(VURO_CROSS_ROOT /usr/${VURO_CROSS_TRIPLET})
find_program(VURO_CROSS_QEMU_PROGRAM ${VURO_CROSS_QEMU} REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR ${VURO_CROSS_QEMU_PROGRAM} -L ${VURO_CROSS_ROOT})

# CLI11 and nlohmann_json are header-only, so the host's packages serve any
# target. They are reached through a root that holds only them, so that no
# other host header, library or package can enter the build.
set(VURO_HOST_HEADERS ${CMAKE_BINARY_DIR}/host-header-packages)
foreach(path include/CLI include/nlohmann share/cmake/CLI11 share/cmake/nlohmann_json)
    if(EXISTS /usr/${path} AND NOT EXISTS ${VURO_HOST_HEADERS}/usr/${path})
        get_filename_component(parent ${VURO_HOST_HEADERS}/usr/${path} DIRECTORY)
        file(MAKE_DIRECTORY ${parent})
        file(CREATE_LINK /usr/${path} ${VURO_HOST_HEADERS}/usr/${path} SYMBOLIC)
    endif()
endforeach()

# pkg-config sees only the target's packages (cross root, then multiarch).
set(ENV{PKG_CONFIG_LIBDIR} ${VURO_CROSS_ROOT}/lib/pkgconfig:/usr/lib/${VURO_CROSS_TRIPLET}/pkgconfig)

set(CMAKE_FIND_ROOT_PATH ${VURO_CROSS_ROOT} ${VURO_HOST_HEADERS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
