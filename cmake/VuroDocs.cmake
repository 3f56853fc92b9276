# The API reference: cmake --build <dir> --target docs writes
# <dir>/reference/html/index.html with Doxygen (class graphs with graphviz's
# dot when present), then VuroDocsCheck.cmake fails the target on any Doxygen
# warning and on a public class without a comment.
find_package(Doxygen OPTIONAL_COMPONENTS dot)

set(VURO_DOCS_DIR ${PROJECT_BINARY_DIR}/reference)
if(DOXYGEN_FOUND)
    set(VURO_DOCS_HAVE_DOT NO)
    if(TARGET Doxygen::dot)
        set(VURO_DOCS_HAVE_DOT YES)
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${VURO_DOCS_DIR}/Doxyfile @ONLY)
    add_custom_target(docs
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${VURO_DOCS_DIR}/html ${VURO_DOCS_DIR}/xml
        COMMAND ${CMAKE_COMMAND} -E rm -f ${VURO_DOCS_DIR}/doxygen-warnings.log
        COMMAND Doxygen::doxygen ${VURO_DOCS_DIR}/Doxyfile
        COMMAND ${CMAKE_COMMAND} -DDOCS_DIR=${VURO_DOCS_DIR} -P ${PROJECT_SOURCE_DIR}/cmake/VuroDocsCheck.cmake
        WORKING_DIRECTORY ${VURO_DOCS_DIR}
        COMMENT "Writing the API reference to ${VURO_DOCS_DIR}/html"
        VERBATIM)
else()
    add_custom_target(docs
        COMMAND ${CMAKE_COMMAND} -E echo "docs: Doxygen is not installed (scripts/docs installs it)"
        COMMAND ${CMAKE_COMMAND} -E false
        VERBATIM)
endif()
