# Helpers of the build. Every helper refuses arguments that it does not know, so that a misspelt keyword stops the
# configuration instead of dropping a file in silence.

add_library(zelvane_flags INTERFACE)
target_compile_options(zelvane_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(zelvane_flags INTERFACE
    QT_DISABLE_DEPRECATED_BEFORE=0x060400 ZELVANE_VERSION="${PROJECT_VERSION}")
if(ZELVANE_SANITIZE)
    target_compile_options(zelvane_flags INTERFACE -fsanitize=${ZELVANE_SANITIZE} -fno-omit-frame-pointer
                                                   -fno-sanitize-recover=all)
    target_link_options(zelvane_flags INTERFACE -fsanitize=${ZELVANE_SANITIZE})
endif()

if(ZELVANE_FUZZ)
    # The libraries tell the fuzzer which of their branches an input reached.
    target_compile_options(zelvane_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

function(zelvane_refuse_unknown prefix helper)
    if(${prefix}_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${helper}: unknown arguments: ${${prefix}_UNPARSED_ARGUMENTS}")
    endif()
    if(${prefix}_KEYWORDS_MISSING_VALUES)
        message(FATAL_ERROR "${helper}: no value for: ${${prefix}_KEYWORDS_MISSING_VALUES}")
    endif()
endfunction()

# zelvane_sources([CORE file...] [FORMS file...])
# Hands the files of the current folder to zelvane_core (logic: no Gui, no Widgets) and to zelvane_forms. The architecture
# test reads what went to the core.
function(zelvane_sources)
    cmake_parse_arguments(arg "" "" "CORE;FORMS" ${ARGN})
    zelvane_refuse_unknown(arg zelvane_sources)
    foreach(kind IN ITEMS CORE FORMS)
        string(TOLOWER ${kind} library)
        foreach(file IN LISTS arg_${kind})
            target_sources(zelvane_${library} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${file})
            set_property(GLOBAL APPEND PROPERTY ZELVANE_${kind}_FILES ${CMAKE_CURRENT_SOURCE_DIR}/${file})
        endforeach()
    endforeach()
endfunction()

# zelvane_test(NAME name LABEL unit|form|e2e [FORMS] [SCREEN file] SOURCES file...)
# One GoogleTest program whose tests CTest runs one by one. FORMS links the forms and runs on the offscreen platform, on
# the screen that the JSON file of SCREEN describes. The target tests_<label> builds all programs of a label.
function(zelvane_test)
    cmake_parse_arguments(arg "FORMS" "NAME;LABEL;SCREEN" "SOURCES" ${ARGN})
    zelvane_refuse_unknown(arg zelvane_test)
    if(NOT arg_LABEL MATCHES "^(unit|form|e2e)$")
        message(FATAL_ERROR "zelvane_test: LABEL is unit, form or e2e, not '${arg_LABEL}'")
    endif()
    add_executable(${arg_NAME} ${arg_SOURCES})
    set(environment "ZELVANE_PAR_CTEST=1;TZ=UTC;LC_ALL=C.UTF-8") # the first tells tests that the rest must be there
    if(arg_FORMS)
        target_link_libraries(${arg_NAME} PRIVATE zelvane_test_support_forms)
        target_precompile_headers(${arg_NAME} REUSE_FROM zelvane_test_support_forms)
        set(screen "")
        if(arg_SCREEN)
            set(screen ":configfile=${CMAKE_CURRENT_SOURCE_DIR}/${arg_SCREEN}")
        endif()
        list(APPEND environment "QT_QPA_PLATFORM=offscreen${screen}")
    else()
        target_link_libraries(${arg_NAME} PRIVATE zelvane_test_support)
        target_precompile_headers(${arg_NAME} REUSE_FROM zelvane_test_doubles)
    endif()
    if(NOT TARGET tests_${arg_LABEL})
        add_custom_target(tests_${arg_LABEL})
    endif()
    add_dependencies(tests_${arg_LABEL} ${arg_NAME})
    gtest_discover_tests(${arg_NAME} DISCOVERY_MODE PRE_TEST TEST_LIST ${arg_NAME}_TESTS
        PROPERTIES LABELS ${arg_LABEL} TIMEOUT 120)
    # PROPERTIES above are taken apart at each ";" on their way, and of a list only the first one would arrive.
    set(with_environment ${CMAKE_CURRENT_BINARY_DIR}/${arg_NAME}_environment.cmake)
    file(WRITE ${with_environment}
        "if(${arg_NAME}_TESTS)\n"
        "  set_tests_properties(\${${arg_NAME}_TESTS} PROPERTIES ENVIRONMENT \"${environment}\")\n"
        "endif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${with_environment})
endfunction()

# zelvane_e2e_test(name)
# Runs test_<name>.py of the current folder, which drives the built program from outside. Debian's own Python has the
# bindings of the accessibility bus; another one first in PATH has not.
function(zelvane_e2e_test name)
    if(NOT ARGC EQUAL 1)
        message(FATAL_ERROR "zelvane_e2e_test: one name, not '${ARGV}'")
    endif()
    add_test(NAME e2e.${name}
        COMMAND /usr/bin/python3 -B -E -W ignore -m unittest -v test_${name}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    set_tests_properties(e2e.${name} PROPERTIES LABELS e2e TIMEOUT 300 ENVIRONMENT
        "ZELVANE_E2E_PROGRAM=$<TARGET_FILE:zelvane>;ZELVANE_E2E_SOURCES=${CMAKE_SOURCE_DIR};ZELVANE_E2E_PICTURES=${CMAKE_BINARY_DIR}/e2e;ZELVANE_E2E_FAILURES=$<TARGET_FILE:panne_prechargee>;ZELVANE_E2E_INSTANCE=$<TARGET_FILE:instance_essai>;ZELVANE_E2E_DRAG=$<TARGET_FILE:glisser_essai>;ZELVANE_E2E_PLUGINS=${CMAKE_BINARY_DIR}/plugins_dessai")
endfunction()

# zelvane_fuzz(NAME name CORPUS folder SOURCES file...)
# One libFuzzer target on the core, whose inputs start from the files of `folder`. With ZELVANE_FUZZ it becomes the
# program `name`. With ZELVANE_TESTS any compiler builds `name`_rejouer, which feeds it the files of `folder`, and CTest
# runs that as a unit test: what the fuzzer once found stays found.
function(zelvane_fuzz)
    cmake_parse_arguments(arg "" "NAME;CORPUS" "SOURCES" ${ARGN})
    zelvane_refuse_unknown(arg zelvane_fuzz)
    set(corpus ${CMAKE_CURRENT_SOURCE_DIR}/${arg_CORPUS})
    if(NOT IS_DIRECTORY ${corpus})
        message(FATAL_ERROR "zelvane_fuzz: ${arg_NAME} has no corpus at ${corpus}")
    endif()
    if(ZELVANE_FUZZ)
        add_executable(${arg_NAME} ${arg_SOURCES})
        target_link_libraries(${arg_NAME} PRIVATE zelvane_core)
        target_include_directories(${arg_NAME} PRIVATE ${CMAKE_SOURCE_DIR}/tests) # its doubles
        target_link_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
    endif()
    if(ZELVANE_TESTS)
        add_executable(${arg_NAME}_rejouer ${arg_SOURCES} ${CMAKE_SOURCE_DIR}/fuzz/rejouer.cpp)
        target_link_libraries(${arg_NAME}_rejouer PRIVATE zelvane_core)
        target_include_directories(${arg_NAME}_rejouer PRIVATE ${CMAKE_SOURCE_DIR}/tests)
        if(NOT TARGET tests_unit)
            add_custom_target(tests_unit)
        endif()
        add_dependencies(tests_unit ${arg_NAME}_rejouer)
        add_test(NAME ${arg_NAME}.corpus COMMAND ${arg_NAME}_rejouer ${corpus})
        set_tests_properties(${arg_NAME}.corpus PROPERTIES LABELS unit TIMEOUT 120 ENVIRONMENT "TZ=UTC;LC_ALL=C.UTF-8")
    endif()
endfunction()
