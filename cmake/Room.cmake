# SPDX-License-Identifier: GPL-3.0-or-later

# Adds a room of the house: the static library vorhaven_<name> of the given sources in the folder <name>, whose
# headers are included as "<name>/Header.h". The folder is reached through a link of its own in the build tree, so
# a room sees the headers of those rooms alone that it links, and a wrong include does not compile.
function(add_room name)
  set(view ${PROJECT_BINARY_DIR}/rooms/${name})
  file(MAKE_DIRECTORY ${view})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${name} ${view}/${name} SYMBOLIC)
  add_library(vorhaven_${name} STATIC ${ARGN})
  target_include_directories(vorhaven_${name} PUBLIC ${view})
  target_link_libraries(vorhaven_${name} PRIVATE vorhaven_options)
endfunction()
