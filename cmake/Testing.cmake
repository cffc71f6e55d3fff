# GoogleTest and the one way to declare a test program.

if(WIN32)
  # No package holds it for Windows; Debian's sources of it build there.
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
  set(GTest_FOUND TRUE)
else()
  # Without it a build has no tests, so that starting a program needs no test package.
  find_package(GTest QUIET)
endif()

# Programs with the label "threads", for the build that looks for races.
add_custom_target(threads_tests)

# project_test(name folder LABELS labels... LIBS libraries...)
# makes one test program of the sources of a folder below the calling one. Its labels: "portable"
# uses only what exists on Windows too, "layer" looks inside the layer, "threads" is run under the
# thread sanitizer as well. Only portable ones are built for Windows.
function(project_test name folder)
  cmake_parse_arguments(arg "" "" "LABELS;LIBS" ${ARGN})
  folder_sources(sources ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  if(NOT sources OR (WIN32 AND NOT portable IN_LIST arg_LABELS))
    return()
  endif()
  add_executable(${name} ${sources})
  target_link_libraries(${name} PRIVATE project_options ${arg_LIBS} GTest::gtest GTest::gmock)
  target_compile_options(${name} PRIVATE ${TEST_OPTIMIZATION})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}" TIMEOUT 300)
  if(threads IN_LIST arg_LABELS)
    add_dependencies(threads_tests ${name})
  endif()
endfunction()
