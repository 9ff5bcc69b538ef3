# Installs what was built into an empty folder, builds a project of its own against it, and runs that project's programs.
function(run_step what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${what} failed (${status}):\n${output}")
    endif()
    message(STATUS "${what}")
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_output program expected)
    run_step("running ${program}" ${WORK_FOLDER}/build/${program})
    if(NOT output STREQUAL expected)
        message(FATAL_ERROR "${program} printed\n${output}instead of\n${expected}")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK_FOLDER})
set(prefix ${WORK_FOLDER}/prefix)
run_step("installing" ${CMAKE_COMMAND} --install ${BUILD_FOLDER} --config ${CONFIGURATION} --prefix ${prefix})

file(GLOB_RECURSE hidden ${prefix}/include/*/detail/*)
if(hidden)
    message(FATAL_ERROR "headers that nobody may include were installed: ${hidden}")
endif()

foreach(asset dialogs/dialog.ui dialogs/dialog-icon-body.ui gallery/gallery.ui style/light.css style/light/card.png
        screens/settings.ui)
    if(NOT EXISTS ${prefix}/share/nui/${asset})
        message(FATAL_ERROR "${asset} was not installed")
    endif()
endforeach()

run_step("drawing the installed gallery" ${prefix}/bin/nui-gallery --size 320x200 --png-dir ${WORK_FOLDER}/pictures)
if(NOT EXISTS ${WORK_FOLDER}/pictures/dialogs-dark.png)
    message(FATAL_ERROR "the gallery drew no dialogs-dark.png but\n${output}")
endif()

run_step("configuring the project" ${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK_FOLDER}/build -G ${GENERATOR}
    -D CMAKE_BUILD_TYPE=${CONFIGURATION} -D CMAKE_CXX_COMPILER=${COMPILER}
    -D CMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -D CMAKE_PREFIX_PATH=${prefix})
run_step("building the project" ${CMAKE_COMMAND} --build ${WORK_FOLDER}/build)

expect_output(screen "label 'greeting' says Hello\n1 frame submitted\n")
expect_output(backends "gles egl sdl, window of 1280x720\n")
