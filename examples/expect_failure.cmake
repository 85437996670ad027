# Runs a program that must fail with a message.
#   cmake -DSTATUS=1 -DMESSAGE=regex -P expect_failure.cmake -- program [argument...]
# A crash is no failure in this sense: the exit status has to be STATUS.
include(${CMAKE_CURRENT_LIST_DIR}/command_line.cmake)

execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_QUIET ERROR_VARIABLE message)
if(NOT status STREQUAL "${STATUS}")
    message(FATAL_ERROR "exit status '${status}', expected ${STATUS}\n${message}")
elseif(NOT message MATCHES "${MESSAGE}")
    message(FATAL_ERROR "the message does not match '${MESSAGE}'\n${message}")
endif()
