# What `cmake --install` puts where. Nothing of it knows the prefix: the tree may be moved.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(
    TARGETS zelm zelmsafe zelcore
    EXPORT zelm
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/include/zelm.h ${PROJECT_SOURCE_DIR}/include/zelmsafe.h
              ${PROJECT_SOURCE_DIR}/include/zelcore.h ${PROJECT_SOURCE_DIR}/include/zelm.hpp
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zelm DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
set_target_properties(zelm zelmsafe PROPERTIES INSTALL_RPATH "$ORIGIN")

# -lzelm names all libraries. Linkers look for them beside libzelm.so.
file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/libzelm.so
     "/* GNU ld script */\nINPUT(libzelmy8.so AS_NEEDED(libzelmsafe.so libzelcore.so))\n")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/libzelm.so DESTINATION ${CMAKE_INSTALL_LIBDIR})

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/zelm)
install(EXPORT zelm NAMESPACE zelm:: FILE zelmTargets.cmake DESTINATION ${package})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/zelmConfig.cmake.in zelmConfig.cmake
                              INSTALL_DESTINATION ${package} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(zelmConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zelmConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/zelmConfigVersion.cmake DESTINATION ${package})

# Paths in zelm.pc start at the place of zelm.pc, unless they were configured as absolute.
set(pc_directory ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pc_to_prefix /prefix/${pc_directory} /prefix)
foreach(directory LIBDIR INCLUDEDIR)
    if(IS_ABSOLUTE ${CMAKE_INSTALL_${directory}})
        set(pc_${directory} ${CMAKE_INSTALL_${directory}})
    else()
        set(pc_${directory} "\${prefix}/${CMAKE_INSTALL_${directory}}")
    endif()
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/zelm.pc.in zelm.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zelm.pc DESTINATION ${pc_directory})

# The Debian package: configure with -DCMAKE_INSTALL_PREFIX=/usr, then run cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libzelm)
set(CPACK_PACKAGE_CONTACT "The libzelm authors")
set(CPACK_PACKAGE_DESCRIPTION "Libraries, headers, CMake package and pkg-config file.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libgomp1")
include(CPack)
