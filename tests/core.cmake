# Tests of the companion library, of the public headers and of the files made from the member
# table. Included by the CMakeLists.txt of this folder.

set(root ${CMAKE_CURRENT_LIST_DIR}/..)

if(NOT TARGET GTest::gtest)
    find_package(GTest REQUIRED)
endif()
add_executable(core_test ${CMAKE_CURRENT_LIST_DIR}/core_test.cpp)
target_compile_features(core_test PRIVATE cxx_std_20)
target_link_libraries(core_test PRIVATE zelcore GTest::gtest OpenMP::OpenMP_CXX)
add_test(NAME core_test COMMAND core_test)

set(header_warnings -Wall -Wextra -pedantic -Wshadow -Wconversion -Wsign-conversion -Wundef -Werror)
function(add_header_test name compiler)
    add_test(NAME header_${name}
             COMMAND ${compiler} ${ARGN} ${header_warnings} -I${root}/include -fsyntax-only
                     ${root}/tests/header_test.c)
endfunction()
foreach(standard c89 c99)
    add_header_test(${standard} ${CMAKE_C_COMPILER} -std=${standard} -Wstrict-prototypes)
endforeach()
foreach(standard 98 17)
    add_header_test(cxx${standard} ${CMAKE_CXX_COMPILER} -x c++ -std=c++${standard})
endforeach()

find_program(PYTHON3 python3)
if(PYTHON3)
    add_test(NAME made_files COMMAND ${PYTHON3} ${root}/api/generate.py --check)
else()
    add_test(NAME made_files COMMAND ${CMAKE_COMMAND} -E false)
    set_tests_properties(made_files PROPERTIES DISABLED TRUE)
endif()
