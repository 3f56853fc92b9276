# 32-bit ARM, hard float (Debian armhf), as the receivers run the library:
#   cmake -S . -B build/armhf -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-armhf.cmake
# Needs g++-arm-linux-gnueabihf and qemu-user. Add -DCMAKE_C_FLAGS=-marm
# -DCMAKE_CXX_FLAGS=-marm with VURO_SANITIZE: under Thumb, UBSan takes the
# low bit of function addresses for a misalignment; and run it with
# ASAN_OPTIONS=detect_leaks=0 (LeakSanitizer cannot work under qemu-user).
set(CMAKE_SYSTEM_PROCESSOR arm)
set(VURO_CROSS_TRIPLET arm-linux-gnueabihf)
set(VURO_CROSS_QEMU qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/CrossToolchain.cmake)
