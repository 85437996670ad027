# What does not compile through zelm.hpp, and says why.
#   cmake -DCOMPILER=... -DSOURCE=... -DINCLUDE=... -P front_refused.cmake

set(messages
    ""
    "the matrix must have as many columns as the vector has elements"
    "the destination is read-only"
    "the operands of a call are described in different ways"
    "all operands of a call have the same type of elements"
    "matrices are multiplied by one constant"
    "the result is an array if an operand is one"
    "vectors are multiplied by dot"
    "one operand of this call is a matrix where the other is a vector"
    "a pointer needs sizes"
    "this matrix must be square"
    "the result has another type of elements"
    "nodiscard"
    "elements are float or double"
    "must be known when compiled")
set(number 0)
foreach(message IN LISTS messages)
    execute_process(
        COMMAND ${COMPILER} -std=c++17 -Wall -Wextra -Werror -Wno-unused-parameter -fsyntax-only
                -I${INCLUDE}
                -DREFUSED=${number} ${SOURCE}
        RESULT_VARIABLE status
        ERROR_VARIABLE errors)
    string(REGEX REPLACE "\"[ \n|0-9]*\"" "" errors "${errors}") # texts in two lines
    if(message STREQUAL "")
        if(NOT status EQUAL 0)
            message(SEND_ERROR "${number} does not compile:\n${errors}")
        endif()
    elseif(status EQUAL 0)
        message(SEND_ERROR "${number} compiles")
    else()
        string(FIND "${errors}" "${message}" found)
        if(found EQUAL -1)
            message(SEND_ERROR "${number} does not say '${message}':\n${errors}")
        endif()
    endif()
    math(EXPR number "${number} + 1")
endforeach()
