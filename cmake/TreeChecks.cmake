# Tests of the tree itself, beside the programs: what may know what, headers that stand alone, and
# the documented functions.

set(checks ${CMAKE_SOURCE_DIR}/tests/tree)
add_test(NAME includes_follow_the_layers COMMAND perl ${checks}/includes.pl ${CMAKE_SOURCE_DIR})
add_test(NAME literals_are_gbk COMMAND ${checks}/literals ${CMAKE_SOURCE_DIR})
add_test(NAME tree_checks_find_faults COMMAND ${checks}/checks_test)
add_test(NAME documented_functions_are_exported COMMAND ${checks}/exports
  ${CMAKE_SOURCE_DIR}/docs/platform.md $<TARGET_FILE:winbase>)

# One source for each header that holds nothing but its include.
set(header_folders platform plugin session funds orderentry stops lists controls papercore host
  examples tests bench)
set(sources)
foreach(folder ${header_folders})
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}
    ${CMAKE_SOURCE_DIR}/${folder}/*.h)
  foreach(header ${headers})
    set(source ${CMAKE_BINARY_DIR}/headers/${header}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n" @ONLY)
    list(APPEND sources ${source})
  endforeach()
endforeach()
add_library(headers_alone OBJECT EXCLUDE_FROM_ALL ${sources})
target_link_libraries(headers_alone PRIVATE project_options GTest::gtest GTest::gmock)
target_include_directories(headers_alone SYSTEM PRIVATE
  $<TARGET_PROPERTY:winbase_objects,INCLUDE_DIRECTORIES>
  $<TARGET_PROPERTY:present_sdl,INCLUDE_DIRECTORIES>)
target_compile_options(headers_alone PRIVATE -O0)
add_test(NAME every_header_compiles_alone
  COMMAND ${CMAKE_COMMAND} --build ${CMAKE_BINARY_DIR} --target headers_alone)
set_tests_properties(every_header_compiles_alone PROPERTIES TIMEOUT 600)
