# Fails unless LIBRARY exports the five functions of PlugPlug and nothing else.
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
    OUTPUT_VARIABLE listing RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${LIBRARY}: nm failed with ${status}")
endif()
string(REGEX MATCHALL "[^ \n]+\n" exported "${listing}")
list(TRANSFORM exported STRIP)
list(SORT exported)
set(expected
    PlugPlugAddEventListener PlugPlugDispatchEvent PlugPlugLoadExtension
    PlugPlugRemoveEventListener PlugPlugUnloadExtension)
if(NOT exported STREQUAL expected)
    message(FATAL_ERROR "${LIBRARY} exports ${exported}, not ${expected}")
endif()
