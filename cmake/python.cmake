# The Python package, in the build tree, below the prefix and in a wheel.

option(ZELM_PYTHON_WHEEL "Install component python as a wheel has it, libraries inside" OFF)

# The first python3 that has NumPy: the one in PATH may lack it.
if(NOT Python3_EXECUTABLE)
    foreach(candidate python3 /usr/bin/python3)
        execute_process(COMMAND ${candidate} -c "import sys, numpy; print(sys.executable)"
                        RESULT_VARIABLE failed OUTPUT_VARIABLE executable ERROR_QUIET
                        OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(failed EQUAL 0)
            set(Python3_EXECUTABLE ${executable} CACHE FILEPATH "The interpreter, with NumPy")
            break()
        endif()
    endforeach()
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter Development.Module NumPy)

set(python_build ${PROJECT_BINARY_DIR}/python) # a PYTHONPATH
set(python_files __init__.py __init__.pyi _zelm.pyi py.typed)
foreach(file ${python_files})
    configure_file(${PROJECT_SOURCE_DIR}/python/zelm/${file} ${python_build}/zelm/${file} COPYONLY)
endforeach()

set(python_source ${PROJECT_SOURCE_DIR}/python/src)
Python3_add_library(zelm_python MODULE WITH_SOABI ${python_source}/module.cpp
                    ${python_source}/products.cpp ${python_source}/solvers.cpp)
target_compile_features(zelm_python PRIVATE cxx_std_20)
target_compile_options(zelm_python PRIVATE -fno-exceptions -fno-rtti)
target_link_libraries(zelm_python PRIVATE zelm zelmsafe zelcore zelm_warnings Python3::NumPy)
set_target_properties(zelm_python PROPERTIES OUTPUT_NAME _zelm
                                             CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON
                                             LINKER_LANGUAGE C
                                             LIBRARY_OUTPUT_DIRECTORY ${python_build}/zelm)

# Debian's interpreter looks in dist-packages: below /usr in one for all versions, below /usr/local
# in one of its own.
include(GNUInstallDirs)
execute_process(COMMAND ${Python3_EXECUTABLE} -c
                        "import sysconfig; print(sysconfig.get_path('platlib').split('/')[-1])"
                OUTPUT_VARIABLE python_packages OUTPUT_STRIP_TRAILING_WHITESPACE)
set(python_version ${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR})
set(ZELM_PYTHON_DIR "" CACHE STRING "Where below the prefix the package goes, if not there")
if(ZELM_PYTHON_DIR)
    set(python_packages ${ZELM_PYTHON_DIR})
elseif(CMAKE_INSTALL_PREFIX STREQUAL /usr AND python_packages STREQUAL dist-packages)
    set(python_packages lib/python3/dist-packages)
else()
    set(python_packages lib/python${python_version}/${python_packages})
endif()

if(ZELM_PYTHON_WHEEL)
    set(python_directory zelm)
    set(python_libraries zelm)
    install(TARGETS zelm zelmsafe zelcore LIBRARY DESTINATION ${python_libraries}
            COMPONENT python NAMELINK_SKIP)
else()
    set(python_directory ${python_packages}/zelm)
    set(python_libraries ${CMAKE_INSTALL_LIBDIR})
    install(CODE "message(\"-- PYTHONPATH: \${CMAKE_INSTALL_PREFIX}/${python_packages}\")"
            COMPONENT python)
endif()
file(RELATIVE_PATH python_to_libraries /prefix/${python_directory} /prefix/${python_libraries})
set_target_properties(zelm_python PROPERTIES INSTALL_RPATH "$ORIGIN/${python_to_libraries}")
install(TARGETS zelm_python LIBRARY DESTINATION ${python_directory} COMPONENT python)
foreach(file ${python_files})
    install(FILES python/zelm/${file} DESTINATION ${python_directory} COMPONENT python)
endforeach()

# Two Debian packages instead of one.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME libzelm)
set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-zelm)
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION "Libraries, headers, CMake package and pkg-config file.")
set(CPACK_COMPONENT_PYTHON_DESCRIPTION "Linear algebra of stacks of small matrices for NumPy.")
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
math(EXPR python_next "${Python3_VERSION_MINOR} + 1")
string(CONCAT CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
       "libzelm (= ${PROJECT_VERSION}), python3 (>= ${python_version}), "
       "python3 (<< ${Python3_VERSION_MAJOR}.${python_next}), python3-numpy (>= 1:1.23)")

if(ZELM_BUILD_TESTS)
    set(python_tests ${PROJECT_SOURCE_DIR}/python/tests)
    add_test(NAME python_test COMMAND ${Python3_EXECUTABLE} -m unittest discover -s ${python_tests})
    set_tests_properties(
        python_test
        PROPERTIES ENVIRONMENT
                   "PYTHONPATH=${python_build};PYTHONDONTWRITEBYTECODE=1;OMP_WAIT_POLICY=passive"
                   WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
    if(ZELM_INSTALL AND NOT ZELM_PYTHON_WHEEL)
        add_test(NAME python_installed_test
                 COMMAND ${python_tests}/installed.sh ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR}
                         ${PROJECT_BINARY_DIR}/python_installed ${Python3_EXECUTABLE})
    endif()
endif()
