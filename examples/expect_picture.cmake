# Runs a program that must succeed and write a PNG.
#   cmake -DPICTURE=file -DSIZE=widthxheight -DLEAST_BYTES=n -DOUTPUT=regex
#         -P expect_picture.cmake -- program [argument...]
include(${CMAKE_CURRENT_LIST_DIR}/command_line.cmake)

file(REMOVE "${PICTURE}")
execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE output
                ERROR_VARIABLE message)
if(NOT status STREQUAL "0")
    message(FATAL_ERROR "exit status '${status}'\n${message}")
elseif(NOT output MATCHES "${OUTPUT}")
    message(FATAL_ERROR "the output does not match '${OUTPUT}'\n${output}")
endif()

# Eight bytes of signature, then the header chunk: length, name, width and height.
file(SIZE "${PICTURE}" bytes)
file(READ "${PICTURE}" start LIMIT 24 HEX)
string(REGEX MATCH "^89504e470d0a1a0a0000000d49484452(........)(........)$" header "${start}")
math(EXPR width "0x0${CMAKE_MATCH_1}")
math(EXPR height "0x0${CMAKE_MATCH_2}")
if(NOT "${width}x${height}" STREQUAL SIZE OR bytes LESS LEAST_BYTES)
    message(FATAL_ERROR "${PICTURE}: ${width}x${height} in ${bytes} bytes, "
                        "expected ${SIZE} in at least ${LEAST_BYTES}")
endif()
