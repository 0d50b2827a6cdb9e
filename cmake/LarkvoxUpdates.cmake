# What a build has to know in order to update itself. Nothing at run time changes it.
set(LARKVOX_UPDATE_PUBLIC_KEY "" CACHE STRING
    "Ed25519 public key of the maker, base64; a build without one cannot update itself")
set(LARKVOX_IDENTIFIER "example.fennick.larkvox")
# What the product is called, by people and in the names of files; the library knows neither.
set(LARKVOX_PRODUCT_DEFINITIONS PRODUCT="${PROJECT_NAME}" PRODUCT_NAME="larkvox"
                                PRODUCT_IDENTIFIER="${LARKVOX_IDENTIFIER}")
string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" LARKVOX_PLATFORM)
# The key of the tests; its secret half is in updates/testing/test_key.cpp.
set(LARKVOX_TEST_PUBLIC_KEY "lv2GMruoLYyTz+c6kBf7KBELM9m09z9aun96YSwiexg=")

# larkvox_add_install_helper(NAME target [KEY base64 | KEY_FILE file])
# The install helper with a public key compiled in. With KEY_FILE the key is the first line of a
# file, which may be made by the build.
function(larkvox_add_install_helper)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME;KEY;KEY_FILE" "")
  if(NOT ARG_NAME OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "larkvox_add_install_helper: NAME is missing or something is not understood: "
                        "${ARG_UNPARSED_ARGUMENTS}")
  endif()
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}/update_key.cpp")
  set(write "${CMAKE_COMMAND}" "-DOUTPUT=${source}" "-DKEY=${ARG_KEY}" "-DKEY_FILE=${ARG_KEY_FILE}"
            -P "${PROJECT_SOURCE_DIR}/cmake/write_update_key.cmake")
  if(ARG_KEY_FILE)
    add_custom_command(OUTPUT "${source}" COMMAND ${write}
      DEPENDS "${ARG_KEY_FILE}" COMMENT "Key of ${ARG_NAME}" VERBATIM)
  else()
    execute_process(COMMAND ${write} COMMAND_ERROR_IS_FATAL ANY)
  endif()
  add_executable(${ARG_NAME} "${PROJECT_SOURCE_DIR}/updates/install/helper_main.cpp"
                             "${source}")
  target_compile_definitions(${ARG_NAME} PRIVATE ${LARKVOX_PRODUCT_DEFINITIONS})
  target_link_libraries(${ARG_NAME} PRIVATE updates_install)
endfunction()
