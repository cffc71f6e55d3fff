# The front end's folders: object libraries, which the shared library, tests and benchmarks link.

set(FRONT_END_FOLDERS settings controls session funds orderentry stops lists plugin)

# front_end_folder(name): the sources of the calling folder as the object library of that name.
function(front_end_folder name)
  folder_sources(sources ${CMAKE_CURRENT_SOURCE_DIR})
  if(sources)
    add_library(${name} OBJECT ${sources})
    target_link_libraries(${name} PUBLIC project_options contract wintoolkit platform_text
      platform_system)
  endif()
endfunction()

# link_front_end(target): the objects of every folder that has sources.
function(link_front_end target)
  foreach(folder ${FRONT_END_FOLDERS})
    if(TARGET ${folder})
      target_link_libraries(${target} PRIVATE ${folder})
    endif()
  endforeach()
endfunction()
