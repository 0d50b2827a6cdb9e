# larkvox_compile_shaders(OUTPUTS var FILES name.vert name.frag … [INCLUDES file.glsl…])
# Compiles shader functions for every graphics interface. Each becomes "Shaders/FILE.qsb" in the
# binary directory, or "Shaders/FUNCTION.qsb" for a file listed as FUNCTION=file. GLSL starts at the
# versions that have unsigned integers and fetch single texels. INCLUDES are the files that they
# include; GLSL counts their paths from the including file.
find_program(QSB_PROGRAM qsb HINTS /usr/lib/qt6/bin REQUIRED)

function(larkvox_compile_shaders)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "OUTPUTS" "FILES;INCLUDES")
  set(outputs "")
  foreach(entry IN LISTS ARG_FILES)
    if(entry MATCHES "^(.+)=(.+)$")
      set(name "${CMAKE_MATCH_1}")
      set(file "${CMAKE_MATCH_2}")
    else()
      set(name "${entry}")
      set(file "${entry}")
    endif()
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    set(output "${CMAKE_CURRENT_BINARY_DIR}/Shaders/${name}.qsb")
    add_custom_command(OUTPUT "${output}"
      COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/Shaders"
      COMMAND ${QSB_PROGRAM} --glsl "300 es,130,330" --hlsl 50 --msl 12 -o "${output}"
              "${file}"
      DEPENDS "${file}" ${ARG_INCLUDES}
      COMMENT "Compiling shader ${name}"
      VERBATIM)
    list(APPEND outputs "${output}")
  endforeach()
  set(${ARG_OUTPUTS} "${outputs}" PARENT_SCOPE)
endfunction()
