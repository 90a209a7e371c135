# The functions by which a room declares what it builds. Every target gets the project's warnings; a room has one test program.

add_library(corvanes_options INTERFACE)
target_compile_features(corvanes_options INTERFACE cxx_std_20)
target_include_directories(corvanes_options INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/module)
target_compile_options(corvanes_options INTERFACE
    -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Werror)
if(WIN32)
    target_compile_definitions(corvanes_options INTERFACE
        UNICODE _UNICODE STRICT NOMINMAX WINVER=0x0601 _WIN32_WINNT=0x0601)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT WIN32)
    target_compile_options(corvanes_options INTERFACE -Wno-restrict)  # GCC 12 gives it wrongly for a joined literal
endif()
if(CORVANES_SANITIZE)
    add_compile_options(-fsanitize=address,undefined,fuzzer-no-link -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# Parsing takes most of the compiler's time: for Windows, headers that hardly change are precompiled once for all targets, and
# once for the tests with the test framework's. A file must still include all that it needs: -DCORVANES_PRECOMPILE=OFF builds
# without precompiled headers.
option(CORVANES_PRECOMPILE "Precompile the headers of the system and the standard library" ${WIN32})
if(CORVANES_PRECOMPILE)
    target_compile_options(corvanes_options INTERFACE -fpch-preprocess)  # for ccache
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "")
    foreach(kind "" test_)
        add_library(corvanes_${kind}headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled.cpp)
        target_link_libraries(corvanes_${kind}headers PRIVATE corvanes_options)
        target_precompile_headers(corvanes_${kind}headers PRIVATE <windows.h> <algorithm> <filesystem> <functional> <map>
            <memory> <optional> <string> <unordered_map> <vector>)
    endforeach()
    target_compile_options(corvanes_test_headers PRIVATE -O0)  # all tests are compiled so
    target_link_libraries(corvanes_test_headers PRIVATE GTest::gmock)
    target_precompile_headers(corvanes_test_headers PRIVATE <gmock/gmock.h>)
endif()
function(corvanes_precompiled name headers)
    if(CORVANES_PRECOMPILE)
        target_precompile_headers(${name} REUSE_FROM ${headers})
        # GCC takes precompiled system headers for the project's own, and warns of what it inlines from wchar.h.
        target_compile_options(${name} PRIVATE -Wno-array-bounds -Wno-stringop-overread -Wno-stringop-overflow
            -Wno-restrict)
    endif()
endfunction()

# The sources of a binary's version record, on which its resources depend.
set(version_record ${PROJECT_SOURCE_DIR}/base/version.h ${PROJECT_SOURCE_DIR}/base/version_record.rc)

# corvanes_library(name source...): a static library of this room.
function(corvanes_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC corvanes_options)
    corvanes_precompiled(${name} corvanes_headers)
endfunction()

# corvanes_test(name SOURCES source... LIBS target...): one test program, one ctest entry.
function(corvanes_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} corvanes_options GTest::gmock GTest::gtest_main)
    target_compile_definitions(${name} PRIVATE CORVANES_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    list(LENGTH ARG_SOURCES count)
    if(WIN32)
        corvanes_precompiled(${name} corvanes_test_headers)
    elseif(count GREATER 2)
        target_precompile_headers(${name} PRIVATE <gmock/gmock.h>)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# corvanes_fuzzer(name RUNS count LIBS target...): the libFuzzer program of fuzz/<name>.cpp, where sanitizers are on. The ctest
# entry gives it RUNS inputs, the same ones each time; tools/fuzz tells where its seeds lie, and runs it longer.
function(corvanes_fuzzer name)
    if(NOT CORVANES_SANITIZE)
        return()
    endif()
    cmake_parse_arguments(ARG "" "RUNS" "LIBS" ${ARGN})
    add_executable(${name} ${name}.cpp)
    target_link_libraries(${name} PRIVATE ${ARG_LIBS} corvanes_options)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    add_test(NAME ${name}
        COMMAND ${PROJECT_SOURCE_DIR}/tools/fuzz --build ${CMAKE_BINARY_DIR} --runs ${ARG_RUNS} ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 LABELS fuzz)
endfunction()
