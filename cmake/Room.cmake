# One static library for each room. The include path is the top of the tree, so an include names the room that it
# belongs to ("store/AppDB.h"), and scripts/includes.py can check which way it runs.

# A name that is not a target, such as a misspelt room, ends the configuration. Otherwise it would be taken for a
# library of the system and fail much later, in the linker.
set(CMAKE_LINK_LIBRARIES_ONLY_TARGETS ON)

add_library(suisui_flags INTERFACE)
# New warnings of a future compiler must not keep anybody from building the program: only .ci/run makes them errors.
target_compile_options(suisui_flags INTERFACE
    -Wall -Wextra -Wpedantic $<$<BOOL:${SUISUI_WERROR}>:-Werror> -Wshadow -Wconversion -Wno-sign-conversion)
# GCC 12 sees an overlap in "text" + std::string where there is none (its bug 105651).
target_compile_options(suisui_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_compile_definitions(suisui_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_include_directories(suisui_flags INTERFACE ${PROJECT_SOURCE_DIR})
if(SUISUI_SANITIZE)
    target_compile_options(suisui_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(suisui_flags INTERFACE -fsanitize=address,undefined)
    # With the code of the sanitizers added, GCC takes initialised values for uninitialised ones.
    target_compile_options(suisui_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

# A misspelt keyword ("LINK suisui_store") would be ignored together with what follows it.
function(suisui_refuse_the_rest name)
    if(ARGN)
        message(FATAL_ERROR "${name}: these arguments follow no keyword: ${ARGN}")
    endif()
endfunction()

# suisui_room(NAME SOURCES a.cpp b.cpp LINKS below... ): the static library of a room.
function(suisui_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    suisui_refuse_the_rest(${name} ${ROOM_UNPARSED_ARGUMENTS})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_link_libraries(${name} PUBLIC suisui_flags ${ROOM_LINKS})
endfunction()

# suisui_test(NAME SOURCES t.cpp LINKS room [LABELS l] [TIMEOUT s]): a GoogleTest program run by CTest.
# Programs that need widgets link suisui_test_gui, the others suisui_test_core (tests/support); these have the label
# "unit" too, and the target unit_tests builds them.
function(suisui_test name)
    cmake_parse_arguments(T "" "TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
    suisui_refuse_the_rest(${name} ${T_UNPARSED_ARGUMENTS})
    add_executable(${name} ${T_SOURCES})
    target_link_libraries(${name} PRIVATE ${T_LINKS})
    add_test(NAME ${name} COMMAND ${name})
    if(NOT T_TIMEOUT)
        set(T_TIMEOUT 300)
    endif()
    if(suisui_test_core IN_LIST T_LINKS)
        list(APPEND T_LABELS unit)
        if(NOT TARGET unit_tests)
            add_custom_target(unit_tests)
        endif()
        add_dependencies(unit_tests ${name})
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${T_TIMEOUT} LABELS "${T_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/run;LC_ALL=C.UTF-8")
endfunction()

# suisui_long_suite(NAME SUITE): makes the suite of the test program NAME that shows the same on many more cases a
# separate test, NAME_long with the label "long", which is not part of NAME. ./check leaves it out.
function(suisui_long_suite name suite)
    add_test(NAME ${name}_long COMMAND ${name})
    set_tests_properties(${name}_long PROPERTIES TIMEOUT 1500 LABELS long
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;XDG_RUNTIME_DIR=${CMAKE_BINARY_DIR}/run;LC_ALL=C.UTF-8;GTEST_FILTER=${suite}.*")
    set_tests_properties(${name} PROPERTIES ENVIRONMENT_MODIFICATION "GTEST_FILTER=set:-${suite}.*")
endfunction()
