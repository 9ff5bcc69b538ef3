# nui_add_library(NAME SOURCES ... HEADERS ... DETAIL_HEADERS ... LINK ...): one library of libs/, with its alias nui::NAME,
#   its public headers as a header set (installed, and verified to compile alone), the libraries below it as layers.txt
#   says, and third-party targets that stay behind its sources.
# nui_add_test(NAME SOURCES ... LINK ...): one test program.

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

function(nui_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;DETAIL_HEADERS;LINK" ${ARGN})
    if(NOT ARG_SOURCES) # GUARD-BEGIN
        add_library(${name} INTERFACE)
        add_library(nui::${name} ALIAS ${name})
        return()
    endif() # GUARD-END
    add_library(${name} ${ARG_SOURCES} ${ARG_DETAIL_HEADERS})
    add_library(nui::${name} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        OUTPUT_NAME nui-${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        LINKER_LANGUAGE CXX
        VERIFY_INTERFACE_HEADER_SETS ON)
    nui_configure_target(${name})
    target_sources(${name} PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}/libs FILES ${ARG_HEADERS})
    nui_layers_below(${name} below)
    foreach(lower IN LISTS below)
        target_link_libraries(${name} PUBLIC ${lower})
    endforeach()
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
endfunction()

function(nui_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    nui_configure_target(${name})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} nui_test_support GTest::gtest)
    add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
endfunction()
