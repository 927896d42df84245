# KELO_CATALOGUES: the folder of the catalogues (translations/) whose contexts are those of the compiler in
# use. A context is the signature of a function as the compiler prints it; the catalogues have GCC's way,
# and clang sets a space before & and *, and calls a nameless namespace otherwise.
set(KELO_CATALOGUES "${CMAKE_SOURCE_DIR}/translations")
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    file(GLOB catalogues "${KELO_CATALOGUES}/*.ts" "${KELO_CATALOGUES}/*.qrc")
    set(KELO_CATALOGUES "${CMAKE_BINARY_DIR}/catalogues")
    foreach(catalogue IN LISTS catalogues)
        file(READ "${catalogue}" text)
        string(REPLACE "{anonymous}" "(anonymous namespace)" text "${text}")
        set(before "")
        while(NOT text STREQUAL before) # one a line and turn
            set(before "${text}")
            string(REGEX REPLACE "(<name>[^<]*([A-Za-z0-9_]|&gt;))(&amp;|\\*) ?" "\\1 \\3" text "${text}")
        endwhile()
        get_filename_component(name "${catalogue}" NAME)
        file(CONFIGURE OUTPUT "${KELO_CATALOGUES}/${name}" CONTENT "${text}" @ONLY)
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${catalogue}")
    endforeach()
endif()
