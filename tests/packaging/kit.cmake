# Installs the kit into a folder of its own and builds with it, as somebody without the program's sources does: the
# template, and the plug-ins that come with the program.
file(REMOVE_RECURSE ${FOLDER}) # what an earlier run has left could hide what is missing
find_program(ccache ccache)
if(ccache)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} ${ccache})
endif()
foreach(command IN ITEMS
        "${CMAKE_COMMAND};--install;${BUILD};--component;kit;--prefix;${FOLDER}/kit"
        "${CMAKE_COMMAND};-S;${FOLDER}/kit/${DATA}/zelvane/plugin;-B;${FOLDER}/modele;-G;${GENERATOR};-DCMAKE_PREFIX_PATH=${FOLDER}/kit;-DCMAKE_CXX_FLAGS=-Wall -Wextra -Werror"
        "${CMAKE_COMMAND};--build;${FOLDER}/modele"
        "${CMAKE_COMMAND};-S;${PLUGINS};-B;${FOLDER}/plugins;-G;${GENERATOR};-DCMAKE_PREFIX_PATH=${FOLDER}/kit"
        "${CMAKE_COMMAND};--build;${FOLDER}/plugins")
    execute_process(COMMAND ${command} RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${command}: ${said}")
    endif()
endforeach()
foreach(library IN ITEMS
        "modele/Modele autre ouvreur exporteur"
        "plugins/exports/ExporterJson exporteur"
        "plugins/exports/ExporterOds exporteur"
        "plugins/csv/ImporterCsv ouvreur"
        "plugins/doublons/Doublons autre")
    separate_arguments(kinds UNIX_COMMAND "${library}")
    list(POP_FRONT kinds file)
    execute_process(COMMAND ${PROGRAM} ${kinds} ${FOLDER}/${file}.dll RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "the program does not take the library ${library}")
    endif()
endforeach()
