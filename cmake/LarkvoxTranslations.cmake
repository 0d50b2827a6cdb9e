# larkvox_add_catalogues(BUNDLE bundle NAME name LANGUAGES de… SCAN folders…)
# Makes translations/NAME_LANGUAGE.ts into the bundle's Translations/NAME_LANGUAGE.qm. The test
# "translations" fails when a text in the scanned folders (from the root of the sources) has no
# finished translation, or a catalogue keeps one that is gone. To bring the catalogues up to date:
#   cmake --build build/dev --target update_translations
function(larkvox_add_catalogues)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "BUNDLE;NAME" "LANGUAGES;SCAN")
  set(update COMMAND "${CMAKE_COMMAND}" -E chdir "${PROJECT_SOURCE_DIR}"
             $<TARGET_FILE:Qt6::lupdate> -silent -locations none -I . ${ARG_SCAN} -ts)
  set(sources)
  set(compiled)
  foreach(language IN LISTS ARG_LANGUAGES)
    set(source "${CMAKE_CURRENT_SOURCE_DIR}/translations/${ARG_NAME}_${language}.ts")
    set(output "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}_${language}.qm")
    add_custom_command(OUTPUT "${output}"
      COMMAND $<TARGET_FILE:Qt6::lrelease> -silent "${source}" -qm "${output}"
      DEPENDS "${source}" COMMENT "Compiling the catalogue ${ARG_NAME}_${language}" VERBATIM)
    list(APPEND sources "${source}")
    list(APPEND compiled "${output}")
  endforeach()
  larkvox_bundle_files(NAME ${ARG_BUNDLE} SUBDIR Translations FILES ${compiled})
  add_custom_target(update_translations ${update} ${sources} VERBATIM)
  if(BUILD_TESTING)
    add_test(NAME translations
      COMMAND "${CMAKE_COMMAND}" "-DLUPDATE=$<TARGET_FILE:Qt6::lupdate>" "-DROOT=${PROJECT_SOURCE_DIR}"
              "-DSCAN=${ARG_SCAN}" "-DCATALOGUES=${sources}" "-DSCRATCH=${CMAKE_CURRENT_BINARY_DIR}"
              -P "${PROJECT_SOURCE_DIR}/cmake/check_catalogues.cmake")
  endif()
endfunction()
