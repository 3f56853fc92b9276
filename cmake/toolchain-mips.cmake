# 32-bit big-endian MIPS (Debian mips), the big-endian check of every
# byte-order assumption:
#   cmake -S . -B build/mips -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mips.cmake
# Needs g++-mips-linux-gnu and qemu-user.
set(CMAKE_SYSTEM_PROCESSOR mips)
set(VURO_CROSS_TRIPLET mips-linux-gnu)
set(VURO_CROSS_QEMU qemu-mips)
include(${CMAKE_CURRENT_LIST_DIR}/CrossToolchain.cmake)
