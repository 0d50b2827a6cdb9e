# larkvox_add_library(NAME SOURCES… HEADERS… [PUBLIC libs…] [PRIVATE libs…] [QT])
# A static library of one folder. HEADERS are its public headers, included from the root of the
# sources; the build can compile each of them alone (target all_verify_interface_header_sets).
# Only a library marked QT may link Qt; the meta-object compiler runs where a class asks for it.
function(larkvox_uses_moc result)
  foreach(file IN LISTS ARGN)
    file(STRINGS "${file}" found REGEX "^ *Q_(OBJECT|GADGET|NAMESPACE)" LIMIT_COUNT 1)
    if(found)
      set(${result} ON PARENT_SCOPE)
      return()
    endif()
  endforeach()
  # Whoever gives one of these files its first such class has the build look again.
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${ARGN})
  set(${result} OFF PARENT_SCOPE)
endfunction()

function(larkvox_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT" "" "SOURCES;HEADERS;PUBLIC;PRIVATE")
  add_library(${name} STATIC)
  target_sources(${name} PRIVATE ${ARG_SOURCES}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}" FILES ${ARG_HEADERS})
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  set_target_properties(${name} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
  if(ARG_QT)
    larkvox_uses_moc(uses_moc ${ARG_HEADERS} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ${uses_moc})
  endif()
  # What others build on is installed on demand (component "development"); see LarkvoxPackage.
  if(name MATCHES "^(core|platform_|fernhorn_|kestrel_|driftwood_)" AND NOT name MATCHES "testing")
    install(TARGETS ${name} EXPORT LarkvoxTargets
      ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}/larkvox"
              COMPONENT development EXCLUDE_FROM_ALL
      FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/larkvox"
              COMPONENT development EXCLUDE_FROM_ALL)
  endif()
endfunction()

# larkvox_add_test(NAME SOURCES… LINK… [QT] [THREADS] [DISPLAY offscreen|xvfb] [TIMEOUT seconds]
#                  [VARIANTS name:VARIABLE=value…])
# One test program of a folder. With DISPLAY xvfb it runs in an X server of its own. THREADS marks a
# program that is worth running under ThreadSanitizer; it must not use Qt. Each of the VARIANTS runs the
# program again with another environment.
add_custom_target(thread_tests)

function(larkvox_add_test name)
  if(NOT BUILD_TESTING)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 ARG "QT;THREADS" "DISPLAY;TIMEOUT" "SOURCES;LINK;VARIANTS")
  add_executable(${name} ${ARG_SOURCES})
  # Tests name their small helpers alike, file by file.
  set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
  if(LARKVOX_SANITIZER STREQUAL "address")
    target_compile_options(${name} PRIVATE -O0) # half the time to build; the code under test is faster
  endif()
  if(ARG_QT)
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock)
  else()
    target_link_libraries(${name} PRIVATE ${ARG_LINK} GTest::gmock_main)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  set(environment "LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp")
  if(ARG_DISPLAY STREQUAL "xvfb")
    set(command "${PROJECT_SOURCE_DIR}/cmake/on_screen" 1600x1400 $<TARGET_FILE:${name}>)
    # The graphics drivers and the bus library leave blocks behind when they are unloaded; our own
    # leaks show in the tests without a screen.
    list(APPEND environment ASAN_OPTIONS=detect_leaks=0)
  else()
    set(command ${name})
    list(APPEND environment QT_QPA_PLATFORM=offscreen)
  endif()
  add_test(NAME ${name} COMMAND ${command})
  if(ARG_THREADS)
    add_dependencies(thread_tests ${name})
    set_tests_properties(${name} PROPERTIES LABELS threads)
  endif()
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${ARG_TIMEOUT})
  foreach(variant IN LISTS ARG_VARIANTS)
    string(REGEX MATCH "^(.+):(.+=.+)$" found "${variant}")
    add_test(NAME ${name}_${CMAKE_MATCH_1} COMMAND ${command})
    set_tests_properties(${name}_${CMAKE_MATCH_1} PROPERTIES TIMEOUT ${ARG_TIMEOUT}
                         ENVIRONMENT "${environment};${CMAKE_MATCH_2}")
  endforeach()
endfunction()

# larkvox_add_at_spi_test(NAME SCRIPT PROGRAM): looks at a program over the accessibility bus, with a
# display and a bus of its own. The bindings are for the system's Python; scripts share at_spi.py.
function(larkvox_add_at_spi_test name script program)
  add_test(NAME ${name}
    COMMAND "${PROJECT_SOURCE_DIR}/cmake/on_screen" 800x600 dbus-run-session --
            /usr/bin/python3 -B "${CMAKE_CURRENT_SOURCE_DIR}/${script}" $<TARGET_FILE:${program}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 120
    ENVIRONMENT "LC_ALL=C.UTF-8;LSAN_OPTIONS=detect_leaks=0;PYTHONPATH=${PROJECT_SOURCE_DIR}/platform/testing")
endfunction()
