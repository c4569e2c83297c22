# The kit for plug-ins of Zelvane: zelvane_add_plugin(Nom file...) builds Nom.dll, with the header ZelvanePlugin.h.
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core)

if(NOT TARGET Zelvane::Plugin)
    add_library(Zelvane::Plugin INTERFACE IMPORTED)
    get_filename_component(zelvane_prefix "${CMAKE_CURRENT_LIST_DIR}/../../../" ABSOLUTE)
    find_path(ZelvanePlugin_INCLUDE_DIR ZelvanePlugin.h HINTS "${zelvane_prefix}/include" "${zelvane_prefix}/../include"
        PATH_SUFFIXES zelvane NO_DEFAULT_PATH REQUIRED)
    target_include_directories(Zelvane::Plugin INTERFACE "${ZelvanePlugin_INCLUDE_DIR}")
    target_link_libraries(Zelvane::Plugin INTERFACE Qt6::Core)
    target_compile_features(Zelvane::Plugin INTERFACE cxx_std_17)
endif()

# The program refuses a library that others than its owner can write.
function(zelvane_add_plugin name)
    add_library(${name} MODULE ${ARGN})
    target_link_libraries(${name} PRIVATE Zelvane::Plugin)
    set_target_properties(${name} PROPERTIES AUTOMOC ON PREFIX "" SUFFIX ".dll")
    add_custom_command(TARGET ${name} POST_BUILD COMMAND chmod go-w $<TARGET_FILE:${name}>)
endfunction()
