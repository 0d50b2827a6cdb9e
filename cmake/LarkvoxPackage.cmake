# What plug-in builders install: cmake --install BUILD --component development --prefix PLACE gives
# the libraries with their headers, and what find_package(Larkvox) reads.
include(CMakePackageConfigHelpers)

set(place "${CMAKE_INSTALL_LIBDIR}/cmake/Larkvox")
# Compiled-in resources are objects of their own.
install(TARGETS platform_gpu_resources_1 EXPORT LarkvoxTargets
  OBJECTS DESTINATION "${CMAKE_INSTALL_LIBDIR}/larkvox" COMPONENT development EXCLUDE_FROM_ALL)
install(EXPORT LarkvoxTargets NAMESPACE Larkvox:: DESTINATION "${place}"
        COMPONENT development EXCLUDE_FROM_ALL)
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/LarkvoxConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/LarkvoxConfig.cmake" INSTALL_DESTINATION "${place}"
  PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/LarkvoxConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/LarkvoxConfig.cmake"
              "${PROJECT_BINARY_DIR}/LarkvoxConfigVersion.cmake"
        DESTINATION "${place}" COMPONENT development EXCLUDE_FROM_ALL)
foreach(name IN ITEMS Fernhorn_Fernhorn Driftwood_Driftwood KestrelShaders_KestrelShaders)
  get_target_property(folder bundle_${name} LARKVOX_BUNDLE_DIR)
  install(DIRECTORY "${folder}/" DESTINATION "${CMAKE_INSTALL_DATADIR}/larkvox-sdk/${name}.bundle"
          COMPONENT development EXCLUDE_FROM_ALL)
endforeach()
