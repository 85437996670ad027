# Programs that use the library as its users do. Included by the CMakeLists.txt of this folder.

if(ZELM_SANITIZE) # a user's program would have to be built with the sanitizers too
    return()
endif()
foreach(way installed subdirectory)
    add_test(NAME consumer_${way}
             COMMAND ${CMAKE_CURRENT_LIST_DIR}/consumer/test.sh ${way}
                     ${CMAKE_CURRENT_BINARY_DIR}/consumer_${way} ${PROJECT_BINARY_DIR}
                     ${CMAKE_COMMAND} ${CMAKE_C_COMPILER} ${CMAKE_CXX_COMPILER})
endforeach()
add_test(NAME consumer_make
         COMMAND ${CMAKE_CURRENT_LIST_DIR}/consumer/make.sh ${PROJECT_SOURCE_DIR}
                 ${PROJECT_BINARY_DIR} ${CMAKE_C_COMPILER} ${CMAKE_CXX_COMPILER})
set_tests_properties(consumer_subdirectory PROPERTIES PROCESSORS 2 COST 1000)
