# Compiler settings that every target of the project shares, and the few helpers of its own.

option(WARNINGS_AS_ERRORS "Stop at the first warning" ON)
set(SANITIZE "" CACHE STRING "Sanitizers of the whole build, as -fsanitize takes them")
set(TEST_OPTIMIZATION "" CACHE STRING "Optimization of the test sources alone, for example -O0")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Narrow literals are GBK in the program; GB18030 gives the same bytes for every GBK character.
# g++ 12 warns of overlapping copies inside std::string that cannot happen, hence -Wno-restrict.
add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
  -finput-charset=UTF-8 -fexec-charset=GB18030
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-restrict
  $<$<BOOL:${WARNINGS_AS_ERRORS}>:-Werror>)
target_include_directories(project_options INTERFACE ${CMAKE_SOURCE_DIR})
if(WIN32)
  # A window's private record may be placed behind a pointer only, so the system headers stay lean.
  target_compile_definitions(project_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX STRICT _WIN32_WINNT=0x0601)
  # No compiler library travels along; the project's own libraries and the system's still do.
  target_link_options(project_options INTERFACE -static)
else()
  target_include_directories(project_options SYSTEM INTERFACE
    ${CMAKE_SOURCE_DIR}/platform/win32/include)
endif()

if(SANITIZE)
  add_compile_options(-fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${SANITIZE})
endif()

# Sources of a folder, found anew when a file comes or goes.
function(folder_sources result)
  set(found)
  foreach(folder ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
    list(APPEND found ${sources})
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()
