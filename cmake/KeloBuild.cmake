# What every target of this tree shares: language, warnings, sanitizers, output folders.
include(GNUInstallDirs)

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

find_program(KELO_CCACHE ccache)
if(KELO_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${KELO_CCACHE}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic $<$<BOOL:${KELO_WERROR}>:-Werror>)
# The same sources make the same bytes in any folder.
add_compile_options("-ffile-prefix-map=${CMAKE_BINARY_DIR}=build" "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(KELO_RCC_OPTIONS -format-version 1) # without the files' times
# Qt's words "signals", "slots" and "emit" stay free for other libraries' headers.
add_compile_definitions(QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
if(KELO_TEST_BUILD)
    add_compile_definitions(KELO_TEST_BUILD)
endif()
if(KELO_SANITIZE)
    add_compile_options(-fsanitize=${KELO_SANITIZE} -fno-omit-frame-pointer)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC says of this warning that it is not to be relied on beside sanitizers.
        add_compile_options(-Wno-maybe-uninitialized)
    endif()
    add_link_options(-fsanitize=${KELO_SANITIZE})
endif()

include(KeloTexts)
find_package(Qt5 5.15 REQUIRED COMPONENTS Core)
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)

# kelo_gtest(NAME sources...): a GoogleTest program whose cases are CTest tests, one process each.
function(kelo_gtest name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LIBS;ENV;LABELS" ${ARGN})
    find_package(GTest REQUIRED)
    include(GoogleTest)
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock)
    target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    # A value that is empty would vanish on the way, and the next name take its place.
    set(properties TIMEOUT ${ARG_TIMEOUT})
    if(ARG_LABELS)
        list(APPEND properties LABELS "${ARG_LABELS}")
    endif()
    if(ARG_ENV)
        list(APPEND properties ENVIRONMENT "${ARG_ENV}")
    endif()
    gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60 PROPERTIES ${properties})
endfunction()
