# SPDX-License-Identifier: GPL-3.0-or-later

# Makes the headers below a folder of the tree reachable as "<folder>/Header.h", and no others, through an include path
# of their own, which is returned in `result`: each has a file of its name there that includes it. Symbolic links would
# do as well, but not everybody may make one on Windows.
function(make_include_path folder result)
  set(path ${PROJECT_BINARY_DIR}/include/${folder})
  file(GLOB_RECURSE headers RELATIVE ${PROJECT_SOURCE_DIR} CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  foreach(header IN LISTS headers)
    file(CONFIGURE OUTPUT ${path}/${header} CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n" @ONLY)
  endforeach()
  set(${result} ${path} PARENT_SCOPE)
endfunction()

# Adds a room of the house: the static library vorhaven_<name> of the given sources in the folder <name>, whose
# headers are included as "<name>/Header.h". A room sees the headers of those rooms alone that it links, so a wrong
# include does not compile.
function(add_room name)
  make_include_path(${name} path)
  add_library(vorhaven_${name} STATIC ${ARGN})
  target_include_directories(vorhaven_${name} PUBLIC ${path})
  target_link_libraries(vorhaven_${name} PRIVATE vorhaven_options)
endfunction()
