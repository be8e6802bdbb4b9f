# SPDX-License-Identifier: GPL-3.0-or-later

# Which state of the sources is built: VORHAVEN_VERSION for people, VORHAVEN_PACKAGE_VERSION for the package, and
# VORHAVEN_COMMIT_TIME, the commit's, in seconds since 1970. In a checkout they are the version, the commit's time and
# its revision, so that of two packages the newer one has the higher version; elsewhere the version alone.
set(VORHAVEN_VERSION ${PROJECT_VERSION})
set(VORHAVEN_PACKAGE_VERSION ${PROJECT_VERSION})
set(VORHAVEN_COMMIT_TIME "")

function(run_git result)
  execute_process(COMMAND ${GIT} -C ${PROJECT_SOURCE_DIR} ${ARGN} OUTPUT_VARIABLE output ERROR_QUIET
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

find_program(GIT git)
mark_as_advanced(GIT)
# Not every folder below a checkout belongs to it.
if(GIT AND EXISTS ${PROJECT_SOURCE_DIR}/.git)
  run_git(commit log -1 --format=%ct HEAD)
  run_git(revision rev-parse --short=8 HEAD)
  if(commit AND revision)
    # Configured again after a commit and after another branch was checked out.
    run_git(movements rev-parse --git-path logs/HEAD)
    get_filename_component(movements "${movements}" ABSOLUTE BASE_DIR ${PROJECT_SOURCE_DIR})
    if(EXISTS ${movements})
      set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${movements})
    endif()
    set(VORHAVEN_COMMIT_TIME ${commit})
    set(epoch "$ENV{SOURCE_DATE_EPOCH}")
    set(ENV{SOURCE_DATE_EPOCH} ${commit})
    string(TIMESTAMP time "%Y%m%d.%H%M%S" UTC)
    string(APPEND VORHAVEN_VERSION "+git${time}.${revision}")
    set(VORHAVEN_PACKAGE_VERSION ${VORHAVEN_VERSION})
    if(epoch STREQUAL "")
      unset(ENV{SOURCE_DATE_EPOCH})
    else()
      set(ENV{SOURCE_DATE_EPOCH} ${epoch})
    endif()
    run_git(changes status --porcelain --untracked-files=no)
    if(changes)
      # No state that anyone else can have; of two, the one configured later is the newer one.
      string(APPEND VORHAVEN_VERSION ".modified")
      string(TIMESTAMP time "%Y%m%d.%H%M%S" UTC)
      string(APPEND VORHAVEN_PACKAGE_VERSION ".modified${time}")
    endif()
  endif()
endif()
