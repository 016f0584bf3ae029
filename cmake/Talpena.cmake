# How this project's targets are declared: one static library per folder, one test program per
# subsystem, one fuzz target per reader.

add_library(talpena_warnings INTERFACE)
target_compile_options(talpena_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wformat=2)
# GCC 12 sees overlapping copies inside std::string's own insert at -O2 and above (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(talpena_warnings INTERFACE -Wno-restrict)
endif()
# Nor can it follow <regex> and others through the sanitizers' checks.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND TALPENA_ASAN)
  target_compile_options(talpena_warnings INTERFACE -Wno-maybe-uninitialized)
endif()
if(TALPENA_WERROR)
  target_compile_options(talpena_warnings INTERFACE -Werror)
endif()

if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # So that a compiler cache knows compiled headers again.
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()

# Several sources of one target as one: the headers that they share are read once.
function(talpena_unity name batch)
  if(TALPENA_UNITY)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${batch})
  endif()
endfunction()

# talpena_library(name SOURCES a.cpp a.h ... PUBLIC lib ... PRIVATE lib ...)
function(talpena_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE} talpena_warnings)
  talpena_unity(${name} 8)
endfunction()

function(talpena_window_options name)
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII)
endfunction()

# The same for a library of windows: moc runs over it and Qt Widgets is linked.
function(talpena_windows name)
  talpena_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  talpena_window_options(${name})
  target_precompile_headers(${name} REUSE_FROM talpena_widget_headers)
endfunction()

# What all test programs are compiled with.
function(talpena_test_options name)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE
    TALPENA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    TALPENA_BINARY_DIR="${PROJECT_BINARY_DIR}"
    TALPENA_SHARED_DATA="${PROJECT_SOURCE_DIR}/../shared/data")
  target_compile_options(${name} PRIVATE -O0)  # most of a build is compiling tests
  target_link_libraries(${name} PRIVATE talpena_warnings)
endfunction()

# talpena_test(name SOURCES a_test.cpp ... LINK lib ...): a GoogleTest program whose cases are
# tests of their own. TALPENA_SOURCE_DIR and TALPENA_SHARED_DATA are defined for it.
function(talpena_test name)
  cmake_parse_arguments(ARG "WINDOWS" "" "SOURCES;LINK" ${ARGN})
  if(NOT BUILD_TESTING)
    return()
  endif()
  add_executable(${name} ${ARG_SOURCES})
  talpena_unity(${name} 4)
  talpena_test_options(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  if(ARG_WINDOWS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE GTest::gtest Qt6::Test)
    target_precompile_headers(${name} REUSE_FROM window_test_headers)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
    target_precompile_headers(${name} REUSE_FROM test_headers)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
    PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
endfunction()

# talpena_fuzz(name SOURCES a_fuzz.cpp LINK lib ... CORPUS dir): with TALPENA_FUZZ a libFuzzer
# program; without it the corpus in fuzz/corpus/ is an ordinary test.
function(talpena_fuzz name)
  cmake_parse_arguments(ARG "" "CORPUS" "SOURCES;LINK" ${ARGN})
  if(TALPENA_FUZZ)
    add_executable(${name} ${ARG_SOURCES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  elseif(BUILD_TESTING)
    add_executable(${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/fuzz/replay_main.cpp)
    add_test(NAME ${name}_corpus COMMAND ${name} ${ARG_CORPUS})
  else()
    return()
  endif()
  add_dependencies(fuzz_targets ${name})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LINK} talpena_warnings)
endfunction()
