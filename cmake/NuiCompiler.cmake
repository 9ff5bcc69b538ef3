# Flags of the project's own targets. Nothing is set globally, so that a project which adds this one keeps its own flags.
set(NUI_WARNINGS
    -Wall              # the usual suspects
    -Wextra            # and a few more
    -Wshadow           # a local that hides a member or another local
    -Wconversion       # silent narrowing
    -Wold-style-cast   # casts that cannot be searched for
    -Wpedantic         # extensions of one compiler
)

function(nui_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
        INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}") # shared libraries are found beside or from bin
    target_compile_options(${target} PRIVATE ${NUI_WARNINGS} $<$<BOOL:${NUI_WERROR}>:-Werror>)
    if(NUI_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${NUI_SANITIZE} -fno-sanitize-recover=all
            -fno-omit-frame-pointer)
        target_link_options(${target} PUBLIC -fsanitize=${NUI_SANITIZE})
    endif()
    if(NUI_BUILD_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined
            -fno-sanitize-recover=all)
        target_link_options(${target} PUBLIC -fsanitize=address,undefined)
    endif()
endfunction()
