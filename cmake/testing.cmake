# GoogleTest from its Debian package, and one procedure for each kind of test. Each test program is
# one entry of ctest, because starting Wine for every case would take longer than the cases; the
# results of the single cases are written to results/<name>.xml.

set(googletest_source /usr/src/googletest)
set(INSTALL_GTEST OFF)
if(WIN32)
  # This compiler's thread model has neither std::thread nor pthreads.
  set(gtest_disable_pthreads ON)
endif()
add_subdirectory(${googletest_source} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
if(WIN32)
  foreach(library gtest gtest_main gmock gmock_main)
    target_compile_definitions(${library} PUBLIC GTEST_HAS_NOTIFICATION_=1)
    target_compile_options(${library} PUBLIC
      -include ${CMAKE_SOURCE_DIR}/cmake/gtest_notification.h)
  endforeach()
endif()

function(_tarnwell_add_test name)
  add_test(NAME ${name} COMMAND ${ARGN} --gtest_output=xml:results/${name}.xml
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR})
  set_tests_properties(${name} PROPERTIES TIMEOUT 320)
endfunction()

# tarnwell_native_test(name sources...): cases over the pure procedures, under the sanitizers.
# Does nothing in a Windows build.
function(tarnwell_native_test name)
  if(NOT WIN32)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE pure gtest_main gmock)
    _tarnwell_add_test(${name} $<TARGET_FILE:${name}>)
  endif()
endfunction()

# tarnwell_windows_test(name sources...): cases over the product's parts, run under Wine on a
# desktop. Does nothing in a native build.
function(tarnwell_windows_test name)
  if(WIN32)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE parts gtest_main gmock)
    _tarnwell_add_test(${name} ${CMAKE_SOURCE_DIR}/tools/with-desktop --limit 300
      wine $<TARGET_FILE:${name}>)
  endif()
endfunction()

# tarnwell_desktop_test(name [CLOSED] [DPI n] [SCREEN geometry] [FILTER pattern] [EXECUTABLE path]
# PROGRAM target): runs a program that drives the product (this build's, or the given one) from
# outside, on a fresh desktop and with nothing beside it.
# Does nothing where the product is not built.
function(tarnwell_desktop_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "CLOSED" "DPI;SCREEN;FILTER;EXECUTABLE;PROGRAM" "")
  if(NOT TARGET tarnwell)
    return()
  endif()
  set(desktop ${CMAKE_SOURCE_DIR}/tools/with-desktop --fresh --limit 300)
  if(arg_CLOSED)
    list(APPEND desktop --closed)
  endif()
  if(arg_DPI)
    list(APPEND desktop --dpi ${arg_DPI})
  endif()
  if(arg_SCREEN)
    list(APPEND desktop --screen ${arg_SCREEN})
  endif()
  if(NOT arg_EXECUTABLE)
    set(arg_EXECUTABLE $<TARGET_FILE:tarnwell>)
  endif()
  set(filter)
  if(arg_FILTER)
    set(filter --gtest_filter=${arg_FILTER})
  endif()
  _tarnwell_add_test(${name} ${desktop} wine $<TARGET_FILE:${arg_PROGRAM}> ${filter})
  set_tests_properties(${name} PROPERTIES
    RUN_SERIAL ON ENVIRONMENT "TARNWELL_EXE=${arg_EXECUTABLE}")
endfunction()

# tarnwell_fuzz_test(name sources...): a libFuzzer target over the pure procedures; a short bounded
# run in the tests that begins with the same random number each time, so that what is red is red
# again; call the program itself for a long one. Its seeds lie in seeds/<name> beside it; what it
# finds stays in the build folder. Does nothing unless clang builds natively.
function(tarnwell_fuzz_test name)
  if(WIN32 OR NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    return()
  endif()
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE pure)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  set(corpus ${CMAKE_CURRENT_BINARY_DIR}/${name}.corpus)
  file(MAKE_DIRECTORY ${corpus})
  set(seeds ${CMAKE_CURRENT_SOURCE_DIR}/seeds/${name})
  if(NOT IS_DIRECTORY ${seeds})
    set(seeds)
  endif()
  add_test(NAME ${name} COMMAND ${name} -seed=1 -max_total_time=5 -timeout=20 -rss_limit_mb=1024
    -verbosity=0 -print_funcs=0 -artifact_prefix=${CMAKE_CURRENT_BINARY_DIR}/${name}. ${corpus} ${seeds})
  set_tests_properties(${name} PROPERTIES TIMEOUT 60)
endfunction()
