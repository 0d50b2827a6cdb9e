# larkvox_add_fuzz_target(NAME SOURCES… LINK… CORPUS folder)
# A program around LLVMFuzzerTestOneInput. As a test it runs its corpus and always the same
# mutations of it; built with the preset "fuzz" it is a libFuzzer program that searches on:
#   build/fuzz/bin/NAME -max_total_time=60 FOUND CORPUS
function(larkvox_add_fuzz_target name)
  if(NOT BUILD_TESTING)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 ARG "" "CORPUS" "SOURCES;LINK")
  cmake_path(ABSOLUTE_PATH ARG_CORPUS BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  set(arguments)
  if(LARKVOX_SANITIZER STREQUAL "fuzzer")
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    # What it finds goes into the first folder.
    file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/${name}_found")
    set(arguments -runs=20000 "${CMAKE_CURRENT_BINARY_DIR}/${name}_found")
  else()
    target_sources(${name} PRIVATE "${PROJECT_SOURCE_DIR}/platform/testing/fuzz_driver.cpp")
  endif()
  add_test(NAME ${name} COMMAND ${name} ${arguments} "${ARG_CORPUS}")
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
