# Resource bundles: folders of images, colours, fonts and shaders that programs find beside
# themselves or in the data folder. Each bundle is one target, bundle_<name>, that stands for the
# complete folder. A library that opens one says so with larkvox_needs_bundle; then programs with the
# library in them are complete only with the bundle, but nothing waits for it to be compiled.

# larkvox_add_bundle(NAME bundle [OUTPUT_DIR dir] [INSTALL_DIR dir] [BAKED])
# Declares a bundle. Without OUTPUT_DIR it stands beside the programs as <name>.bundle, without
# INSTALL_DIR it is installed as <name>.bundle in the application's data folder. BAKED: the
# artwork baker writes the images and the manifest; otherwise the manifest names nothing.
function(larkvox_add_bundle)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "BAKED" "NAME;OUTPUT_DIR;INSTALL_DIR" "")
  if(NOT ARG_NAME OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "larkvox_add_bundle: NAME is missing or something is not understood: "
                        "${ARG_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT ARG_OUTPUT_DIR)
    set(ARG_OUTPUT_DIR "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${ARG_NAME}.bundle")
  endif()
  if(NOT ARG_INSTALL_DIR)
    set(ARG_INSTALL_DIR "${CMAKE_INSTALL_DATADIR}/larkvox/${ARG_NAME}.bundle")
  endif()

  set(target "bundle_${ARG_NAME}")
  add_custom_target(${target} ALL)
  set_target_properties(${target} PROPERTIES LARKVOX_BUNDLE_DIR "${ARG_OUTPUT_DIR}"
                                             LARKVOX_BUNDLE_PARTS 0 LARKVOX_BUNDLE_FILES "")
  set(manifest "${ARG_OUTPUT_DIR}/Assets.json")
  if(ARG_BAKED)
    # The baker leaves unchanged files alone, so their dates say nothing: the stamp's date does.
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/${ARG_NAME}.baked")
    add_custom_command(OUTPUT "${stamp}"
      BYPRODUCTS "${manifest}"
      COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen ASAN_OPTIONS=detect_leaks=0
              $<TARGET_FILE:artwork_baker> --bundle "${ARG_NAME}" --output "${ARG_OUTPUT_DIR}"
              --fonts "${LARKVOX_ARTWORK_FONTS}"
      COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
      DEPENDS artwork_baker ${LARKVOX_ARTWORK_FONT_FILES}
      COMMENT "Baking the images of ${ARG_NAME}" VERBATIM)
    add_custom_target(${target}_images DEPENDS "${stamp}")
    set_property(TARGET ${target} APPEND PROPERTY LARKVOX_BUNDLE_FILES "${stamp}")
    add_dependencies(${target} ${target}_images)
  else()
    file(CONFIGURE OUTPUT "${manifest}"
         CONTENT "{\"images\": {}, \"colors\": {}, \"fonts\": [], \"faces\": {}}\n")
  endif()
  install(DIRECTORY "${ARG_OUTPUT_DIR}/" DESTINATION "${ARG_INSTALL_DIR}")
endfunction()

# larkvox_bundle_files(NAME bundle FILES files… [SUBDIR dir])
# Adds files, also generated ones, to a bundle that exists already; any folder may call it.
function(larkvox_bundle_files)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME;SUBDIR" "FILES")
  set(target "bundle_${ARG_NAME}")
  if(NOT TARGET ${target})
    message(FATAL_ERROR "larkvox_bundle_files: there is no bundle ${ARG_NAME}")
  endif()
  if(NOT ARG_FILES OR ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "larkvox_bundle_files: FILES is missing or something is not understood: "
                        "${ARG_UNPARSED_ARGUMENTS}")
  endif()
  get_target_property(folder ${target} LARKVOX_BUNDLE_DIR)
  get_target_property(part ${target} LARKVOX_BUNDLE_PARTS)
  if(ARG_SUBDIR)
    string(APPEND folder "/${ARG_SUBDIR}")
  endif()

  set(copies)
  foreach(file IN LISTS ARG_FILES)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
    cmake_path(GET file FILENAME base)
    add_custom_command(OUTPUT "${folder}/${base}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${folder}"
      COMMAND "${CMAKE_COMMAND}" -E copy "${file}" "${folder}/${base}"
      DEPENDS "${file}" COMMENT "Adding ${base} to ${ARG_NAME}" VERBATIM)
    list(APPEND copies "${folder}/${base}")
  endforeach()
  add_custom_target(${target}_files_${part} DEPENDS ${copies})
  set_property(TARGET ${target} APPEND PROPERTY LARKVOX_BUNDLE_FILES ${copies})
  add_dependencies(${target} ${target}_files_${part})
  math(EXPR part "${part} + 1")
  set_target_properties(${target} PROPERTIES LARKVOX_BUNDLE_PARTS ${part})
endfunction()

# larkvox_needs_bundle(LIBRARY bundle)
function(larkvox_needs_bundle library bundle)
  set_property(TARGET ${library} APPEND PROPERTY INTERFACE_LINK_DEPENDS
    "$<BUILD_INTERFACE:$<TARGET_PROPERTY:bundle_${bundle},LARKVOX_BUNDLE_FILES>>")
endfunction()
