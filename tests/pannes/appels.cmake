# Calls that fail, disks that fill up or go, and little memory: the program under test, what is preloaded into it, and the
# tests of what judges it. appels.py, disques.py and memoire.py run the rest.
add_library(panne_prechargee SHARED panne_prechargee.cpp panne_prechargee_appels.cpp)
target_link_libraries(panne_prechargee PRIVATE ${CMAKE_DL_LIBS})
target_compile_options(panne_prechargee PRIVATE -Wall -Wextra)
set_target_properties(panne_prechargee PROPERTIES CXX_VISIBILITY_PRESET hidden)

add_executable(appels_cobaye appels_cobaye.cpp)
target_include_directories(appels_cobaye PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_link_libraries(appels_cobaye PRIVATE zelvane_core ${CMAKE_DL_LIBS})
add_dependencies(appels_cobaye panne_prechargee zelvane-cli)

# A preloaded library and that of a sanitizer both want to be the first one.
if(NOT ZELVANE_SANITIZE)
    add_dependencies(tests_unit appels_cobaye)
    add_test(NAME pannes.appels
        COMMAND /usr/bin/python3 -B -m unittest -v appels_test
        WORKING_DIRECTORY ${CMAKE_CURRENT_LIST_DIR})
    set_tests_properties(pannes.appels PROPERTIES LABELS unit TIMEOUT 120
        ENVIRONMENT "PANNES_BUILD=${CMAKE_BINARY_DIR};LC_ALL=C.UTF-8")
endif()
