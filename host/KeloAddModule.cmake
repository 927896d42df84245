# kelo_add_module(NAME sources...): a module, libNAME.so, with the libraries that find_package(Kelo) was asked for.
function(kelo_add_module name)
    add_library(${name} MODULE ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC ON CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
    list(TRANSFORM Kelo_COMPONENTS PREPEND Kelo:: OUTPUT_VARIABLE libraries)
    target_link_libraries(${name} PRIVATE ${libraries})
    # What is declared and never defined fails here and not when the streamer loads the module.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_link_options(${name} PRIVATE LINKER:-z,defs)
    endif()
endfunction()
