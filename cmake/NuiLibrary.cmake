# nui_add_library(NAME SOURCES ... HEADERS ... DETAIL_HEADERS ... LINK ...): one library of libs/, with its alias nui::NAME,
#   its public headers as a header set (installed, and verified to compile alone), the libraries below it as layers.txt
#   says, and third-party targets that stay behind its sources.
# nui_add_backend(NAME SOURCES ... HEADERS ... DETAIL_HEADERS ... LINK ...): one backend of backends/, with its alias
#   nui::NAME. Its headers are included as "backends/NAME/...". It stands on the top floor, above every library.
# nui_add_test(NAME SOURCES ... LINK ... LABELS ... TIMEOUT seconds SLOW_IN_TSAN ...): one GoogleTest program. It carries
#   the label "unit" unless told other labels; the target unit_tests builds the programs of that label, and the sanitizer
#   runs take them. Tests that are named as slow are left out under the thread sanitizer.

file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/layers.txt NUI_LAYERS REGEX "^[a-z]+:")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/layers.txt)

function(nui_layers_below name result)
    foreach(line IN LISTS NUI_LAYERS)
        if(line MATCHES "^${name}:(.*)$")
            string(STRIP "${CMAKE_MATCH_1}" below)
            string(REPLACE " " ";" below "${below}")
            set(${result} ${below} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    message(FATAL_ERROR "${name} has no line in cmake/layers.txt")
endfunction()

# What libraries and backends have in common: a target whose public headers lie below `base`, exported and installed.
function(_nui_add_exported_library name base sources headers detail_headers)
    add_library(${name} ${sources} ${detail_headers})
    add_library(nui::${name} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        OUTPUT_NAME nui-${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LINKER_LANGUAGE CXX
        VERIFY_INTERFACE_HEADER_SETS ON)
    nui_configure_target(${name})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${base} FILES ${headers})
    nui_install_library(${name})
endfunction()

function(nui_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;DETAIL_HEADERS;LINK" ${ARGN})
    _nui_add_exported_library(${name} ${PROJECT_SOURCE_DIR}/libs "${ARG_SOURCES}" "${ARG_HEADERS}" "${ARG_DETAIL_HEADERS}")
    nui_layers_below(${name} below)
    target_link_libraries(${name} PUBLIC ${below})
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
endfunction()

function(nui_add_backend name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;DETAIL_HEADERS;LINK" ${ARGN})
    _nui_add_exported_library(${name} ${PROJECT_SOURCE_DIR} "${ARG_SOURCES}" "${ARG_HEADERS}" "${ARG_DETAIL_HEADERS}")
    target_link_libraries(${name} PUBLIC nui)
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
endfunction()

function(nui_add_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS;SLOW_IN_TSAN" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    nui_configure_target(${name})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} nui_test_support GTest::gtest)
    set(filter)
    if(NUI_SANITIZE STREQUAL thread AND ARG_SLOW_IN_TSAN)
        string(REPLACE ";" ":" filter "--gtest_filter=-${ARG_SLOW_IN_TSAN}")
    endif()
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1 ${filter} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
    if(NOT ARG_LABELS)
        set(ARG_LABELS unit)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 300)
    endif()
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT ${ARG_TIMEOUT})
    if("unit" IN_LIST ARG_LABELS)
        add_dependencies(unit_tests ${name})
    endif()
endfunction()
