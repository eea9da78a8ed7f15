# Installs the build into a fresh temporary prefix and checks the tree: every file the desktop
# needs is there and nothing else is, the desktop entry and the metainfo validate, the manual
# pages format without warnings, and both programs answer --version from where they landed.
#
#   cmake -DBUILD_DIR=... -DPREFIX=... -DFILES=a;b;c -DAPP_ID=... -DVERSION=... -P check_install.cmake

cmake_minimum_required(VERSION 3.25)

function(fail)
  message(FATAL_ERROR "install: ${ARGN}")
endfunction()

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    fail("${ARGN} failed (${rc}):\n${out}${err}")
  endif()
  set(run_output "${out}${err}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${PREFIX})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${PREFIX})

foreach(f ${FILES})
  if(NOT EXISTS ${PREFIX}/${f})
    fail("${f} is missing")
  endif()
endforeach()
file(GLOB_RECURSE installed RELATIVE ${PREFIX} ${PREFIX}/*)
foreach(f ${installed})
  if(NOT f IN_LIST FILES)
    fail("${f} was installed but is not one of the program's files")
  endif()
endforeach()
list(LENGTH FILES count)
message(STATUS "install: all ${count} files in place")

foreach(p tamberlin-tally tally)
  run(${PREFIX}/bin/${p} --version)
  if(NOT run_output STREQUAL "${p} ${VERSION}\n")
    fail("${p} --version printed \"${run_output}\"")
  endif()
endforeach()

run(desktop-file-validate ${PREFIX}/share/applications/${APP_ID}.desktop)
run(appstreamcli validate --no-net ${PREFIX}/share/metainfo/${APP_ID}.metainfo.xml)
foreach(page tally tamberlin-tally)
  execute_process(COMMAND gzip -dc ${PREFIX}/share/man/man1/${page}.1.gz
                  OUTPUT_FILE ${PREFIX}/${page}.1 RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    fail("share/man/man1/${page}.1.gz is no gzip file")
  endif()
  run(groff -man -Tutf8 -ww -z ${PREFIX}/${page}.1)
  if(NOT run_output STREQUAL "")
    fail("${page}.1 has roff warnings:\n${run_output}")
  endif()
endforeach()
file(REMOVE_RECURSE ${PREFIX})
