# In a cross build tests run under an emulator, a few times as slow. KELO_TESTED is what they start as the
# program: children do not get the emulator by themselves.
set(KELO_TESTED "$<TARGET_FILE:kelo>")
if(NOT CMAKE_CROSSCOMPILING)
    return()
endif()
list(JOIN CMAKE_CROSSCOMPILING_EMULATOR " " emulator)
set(KELO_TESTED "${CMAKE_BINARY_DIR}/emulated/kelo")
if(TARGET kelo)
    file(GENERATE OUTPUT "${KELO_TESTED}" CONTENT "#!/bin/sh\nexec ${emulator} $<TARGET_FILE:kelo> \"$@\"\n"
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endif()
set(KELO_TEST_SLOWNESS 5)

# What emulation forbids. Folders and programs are not built, tests are left out by ctest.
set(KELO_NOT_EMULATED
    "system_tests: QProcess starts no child, as the emulator knows no CLONE_PIDFD"
    "web: Chromium is the build machine's, and the page the same in every build"
    "player_tests.MprisTest.APanelSeesAndDrivesThePlayer: its bus is a child of QProcess"
    "player_tests.MprisTest.NeitherTheBusNorItsEndConcernsThePlayer: its bus is a child of QProcess"
    "conformance_tests: each check runs the module in a child of QProcess"
    "system_check_sdk: builds modules for the build machine")
list(REMOVE_ITEM KELO_TEST_PARTS web conformance)
set(names "")
set(lines "")
foreach(entry IN LISTS KELO_NOT_EMULATED)
    string(REGEX REPLACE ": .*" "" name "${entry}")
    string(APPEND names " ${name}")
    string(APPEND lines "${entry}\n")
endforeach()
file(WRITE "${CMAKE_BINARY_DIR}/CTestCustom.cmake" "set(CTEST_CUSTOM_TESTS_IGNORE${names})\n")
file(WRITE "${CMAKE_BINARY_DIR}/not-emulated.txt" "${lines}")
