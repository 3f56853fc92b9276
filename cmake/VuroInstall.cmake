# Installation of the library as C++ users expect it:
#   lib/libVuroISDBTUtils-2.0.so (and the platform stand-ins it needs),
#   include/VuroISDBTUtils/ (public headers, same layout as src/),
#   lib/cmake/VuroISDBTUtils/ (find_package(VuroISDBTUtils) -> Vuro::ISDBTUtils),
#   lib/pkgconfig/VuroISDBTUtils.pc.
include(CMakePackageConfigHelpers)

set(VURO_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/VuroISDBTUtils)
set(VURO_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/VuroISDBTUtils)

set_target_properties(VuroISDBTUtils PROPERTIES EXPORT_NAME ISDBTUtils INSTALL_RPATH "$ORIGIN")
target_include_directories(VuroISDBTUtils INTERFACE $<INSTALL_INTERFACE:${VURO_INSTALL_INCLUDEDIR}>)
install(TARGETS VuroISDBTUtils EXPORT VuroISDBTUtilsTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
# Every header of src/ but the parsers' internal support headers.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${VURO_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h"
    PATTERN "SectionCrc32.h" EXCLUDE
    PATTERN "VuroParseSupport.h" EXCLUDE
    PATTERN "DescriptorBodySupport.h" EXCLUDE
    PATTERN "ApplicationDescriptorSupport.h" EXCLUDE
    PATTERN "*DescriptorSlots.h" EXCLUDE)

install(EXPORT VuroISDBTUtilsTargets NAMESPACE Vuro:: DESTINATION ${VURO_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VuroISDBTUtilsConfig.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtilsConfig.cmake
    INSTALL_DESTINATION ${VURO_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtilsConfigVersion.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtilsConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtilsConfigVersion.cmake
    DESTINATION ${VURO_INSTALL_CMAKEDIR})

# The .pc file finds its prefix from its own place, so the install tree can move.
file(RELATIVE_PATH VURO_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/VuroISDBTUtils.pc.in ${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtils.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VuroISDBTUtils.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
