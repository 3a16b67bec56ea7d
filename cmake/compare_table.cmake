# Runs a table generator and compares what it prints with the committed table.
execute_process(COMMAND ${generator} ${argument} OUTPUT_VARIABLE generated RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${generator} failed: ${status}")
endif()
file(READ ${committed} expected)
if(NOT generated STREQUAL expected)
    message(FATAL_ERROR "${committed} is not what ${generator} ${argument} prints")
endif()
