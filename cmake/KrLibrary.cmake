# How each of the three libraries is made: shared, symbols hidden, one version, headers that stand alone.

include(GNUInstallDirs)
include(GenerateExportHeader)

set(KRCORE_SOVERSION 141)

# kr_library(TARGET folder ExportName PREFIX) makes the shared library TARGET from the sources that its folders add, with
# the alias KrCore::ExportName and the export macro PREFIX_API in the generated header <folder/export.h>.
function(kr_library target folder export_name prefix)
    add_library(${target} SHARED)
    add_library(KrCore::${export_name} ALIAS ${target})
    generate_export_header(
        ${target}
        BASE_NAME ${prefix}
        EXPORT_MACRO_NAME ${prefix}_API
        EXPORT_FILE_NAME ${CMAKE_BINARY_DIR}/include/${folder}/export.h
    )
    target_sources(
        ${target}
        PUBLIC FILE_SET generated TYPE HEADERS
               BASE_DIRS ${CMAKE_BINARY_DIR}/include
               FILES ${CMAKE_BINARY_DIR}/include/${folder}/export.h
    )
    target_compile_features(${target} PUBLIC cxx_std_20)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
        # A library calls its own functions directly, exported or not, and exports no templates of the standard library.
        target_link_options(
            ${target} PRIVATE LINKER:-Bsymbolic-functions LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map
        )
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    endif()
    set_target_properties(
        ${target}
        PROPERTIES EXPORT_NAME ${export_name}
                   VERSION ${PROJECT_VERSION}
                   SOVERSION ${KRCORE_SOVERSION}
                   LINKER_LANGUAGE CXX
                   CXX_EXTENSIONS OFF
                   CXX_VISIBILITY_PRESET hidden
                   VISIBILITY_INLINES_HIDDEN ON
                   VERIFY_INTERFACE_HEADER_SETS ON
    )
endfunction()

# kr_headers(TARGET header...) adds public headers of the current folder, installed under the same path.
function(kr_headers target)
    list(TRANSFORM ARGN PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${ARGN})
endfunction()
