# Fails when a catalogue does not stand for exactly the texts of the sources.
# Lists come with their semicolons: ROOT, SCAN, CATALOGUES, LUPDATE, SCRATCH.
foreach(catalogue IN LISTS CATALOGUES)
  cmake_path(GET catalogue FILENAME name)
  set(copy "${SCRATCH}/${name}")
  file(COPY_FILE "${catalogue}" "${copy}")
  execute_process(COMMAND "${LUPDATE}" -silent -locations none -I . ${SCAN} -ts "${copy}"
                  WORKING_DIRECTORY "${ROOT}" COMMAND_ERROR_IS_FATAL ANY)
  file(READ "${copy}" text)
  # One message at a time: from one source text to the next.
  string(REPLACE ";" "," text "${text}")
  string(REPLACE "<source>" ";" parts "${text}")
  list(POP_FRONT parts)
  if(NOT parts)
    message(FATAL_ERROR "${name}: no texts found")
  endif()
  foreach(part IN LISTS parts)
    if(part MATCHES "<translation type=" OR part MATCHES "<translation></translation>")
      string(REGEX REPLACE "</source>.*" "" source "${part}")
      message(SEND_ERROR "${name}: \"${source}\": not translated, or no longer asked for")
    endif()
  endforeach()
endforeach()
