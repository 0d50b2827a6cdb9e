# cmake -DBUILD=… -DSOURCE=… -DWORK=… -DCOMPILER=… -P: installs the libraries, builds the page's plug-in with what
# was installed alone, and runs it with its resource bundles and without.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGN}: ${result}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK}")
file(WRITE "${WORK}/source/CMakeLists.txt" "cmake_minimum_required(VERSION 3.25)
project(Plugin LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
find_package(Larkvox REQUIRED)
add_executable(plugin plugin.cpp)
target_link_libraries(plugin PRIVATE Larkvox::fernhorn_plugin Larkvox::fernhorn_editor Larkvox::fernhorn_dials)
larkvox_put_bundles_beside(plugin)
")
configure_file("${SOURCE}" "${WORK}/source/plugin.cpp" COPYONLY)
run("${CMAKE_COMMAND}" --install "${BUILD}" --component development --prefix "${WORK}/sdk")
file(REMOVE "${BUILD}/install_manifest_development.txt") # that was no installation of the user's
run("${CMAKE_COMMAND}" -S "${WORK}/source" -B "${WORK}/build" -G Ninja "-DCMAKE_PREFIX_PATH=${WORK}/sdk"
    "-DCMAKE_CXX_COMPILER=${COMPILER}")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
run("${WORK}/build/plugin")
file(REMOVE_RECURSE "${WORK}/build/Fernhorn_Fernhorn.bundle")
run("${WORK}/build/plugin") # no editor, but the host lives on
