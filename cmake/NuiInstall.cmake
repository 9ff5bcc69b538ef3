# Installation: libraries and backends as the targets nui::NAME, their header sets under one folder, and a package file
# that finds what a static library needs again.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(NUI_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/nui) # the include root: <prefix>/include/nui/nui/nui.h
set(NUI_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/nui)

function(nui_install_library name)
    install(TARGETS ${name} EXPORT nuiTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        FILE_SET HEADERS DESTINATION ${NUI_INSTALL_INCLUDEDIR})
endfunction()

# Called once, after the last target.
function(nui_install_package)
    install(EXPORT nuiTargets NAMESPACE nui:: DESTINATION ${NUI_INSTALL_CMAKEDIR})
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/nuiConfig.cmake.in ${PROJECT_BINARY_DIR}/nuiConfig.cmake
        INSTALL_DESTINATION ${NUI_INSTALL_CMAKEDIR} NO_SET_AND_CHECK_MACRO)
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/nuiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
    install(FILES
        ${PROJECT_BINARY_DIR}/nuiConfig.cmake
        ${PROJECT_BINARY_DIR}/nuiConfigVersion.cmake
        DESTINATION ${NUI_INSTALL_CMAKEDIR})
endfunction()
