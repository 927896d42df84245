# kelo_prints(FILE DESTINATION arguments...): a file that `kelo arguments...` prints, made with every build
# and installed below share/, manual pages compressed. In a cross build the emulator runs it, or KELO_NATIVE
# prints in its place.
set(KELO_NATIVE "" CACHE FILEPATH "A kelo for the build machine, to print manual and completion")
function(kelo_prints file destination)
    set(program ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:kelo>)
    if(KELO_NATIVE)
        set(program "${KELO_NATIVE}")
    endif()
    set(output "${CMAKE_CURRENT_BINARY_DIR}/share/${file}")
    set(made "${output}")
    set(packing "")
    if(destination MATCHES "/man[0-9]$")
        set(made "${output}.gz")
        set(packing COMMAND gzip -9nf "${output}")
    endif()
    add_custom_command(OUTPUT "${made}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/share"
        COMMAND "${CMAKE_COMMAND}" -E env ASAN_OPTIONS=detect_leaks=0
            ${program} ${ARGN} > "${output}"
        ${packing}
        DEPENDS kelo VERBATIM)
    set_property(GLOBAL APPEND PROPERTY KELO_PRINTED "${made}")
    install(FILES "${made}" DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/${destination}")
endfunction()
