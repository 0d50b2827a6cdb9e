# One place for the language level, warnings and sanitizers.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1 -DNDEBUG")
set(CMAKE_CXX_FLAGS_DEBUG "-g1")

option(LARKVOX_WARNINGS_AS_ERRORS "Stop the build at a warning" OFF)
set(LARKVOX_SANITIZER "" CACHE STRING "address, thread, fuzzer or empty")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Paths count from the root of the sources, so that all clones share what one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}"
      CCACHE_NOHASHDIR=1 "${CCACHE_PROGRAM}")
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion
                    # Messages and debug information name files from the root of the sources.
                    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
if(LARKVOX_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()

if(LARKVOX_SANITIZER STREQUAL "address")
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined
                      -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=address,undefined)
elseif(LARKVOX_SANITIZER STREQUAL "thread")
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=thread)
elseif(LARKVOX_SANITIZER STREQUAL "fuzzer")
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
elseif(LARKVOX_SANITIZER)
  message(FATAL_ERROR "LARKVOX_SANITIZER is address, thread, fuzzer or empty, not ${LARKVOX_SANITIZER}")
endif()
