# Installs the kit into a folder of its own and builds the template there, as somebody without these sources does.
foreach(command IN ITEMS
        "${CMAKE_COMMAND};--install;${BUILD};--component;kit;--prefix;${FOLDER}/kit"
        "${CMAKE_COMMAND};-S;${FOLDER}/kit/${DATA}/zelvane/plugin;-B;${FOLDER}/modele;-G;${GENERATOR};-DCMAKE_PREFIX_PATH=${FOLDER}/kit;-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror"
        "${CMAKE_COMMAND};--build;${FOLDER}/modele")
    execute_process(COMMAND ${command} RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${command}: ${said}")
    endif()
endforeach()
execute_process(COMMAND ${PROGRAM} ${FOLDER}/modele/Modele.dll RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the program does not take the template's library")
endif()
