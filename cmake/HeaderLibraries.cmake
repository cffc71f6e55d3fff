# Libraries that are headers only, alike for every system. A cross compiler must not see the other
# headers of this machine, so it gets a folder of links to just these.
add_library(header_libraries INTERFACE)
if(WIN32)
  set(links ${CMAKE_BINARY_DIR}/header_libraries)
  file(MAKE_DIRECTORY ${links})
  foreach(library nlohmann CLI)
    find_path(${library}_folder NAMES ${library} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    if(NOT EXISTS ${links}/${library})
      file(CREATE_LINK ${${library}_folder}/${library} ${links}/${library} SYMBOLIC)
    endif()
  endforeach()
  target_include_directories(header_libraries SYSTEM INTERFACE ${links})
endif()
