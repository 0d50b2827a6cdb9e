# larkvox_run_in_german(TEST…)
# Runs test programs a second time in a locale that writes numbers with a comma. The locale is
# generated into the build directory first (Debian: package `locales`); without it the runs fail.
function(larkvox_run_in_german)
  if(NOT BUILD_TESTING)
    return()
  endif()
  set(directory "${PROJECT_BINARY_DIR}/locale")
  get_property(is_known GLOBAL PROPERTY larkvox_german_locale)
  if(NOT is_known)
    set_property(GLOBAL PROPERTY larkvox_german_locale TRUE)
    file(MAKE_DIRECTORY "${directory}")
    add_test(NAME german_locale
      COMMAND localedef -f UTF-8 -i de_DE "${directory}/de_DE.UTF-8")
    set_tests_properties(german_locale PROPERTIES FIXTURES_SETUP german_locale)
  endif()
  foreach(name IN LISTS ARGN)
    add_test(NAME ${name}.de_DE COMMAND ${name})
    set_tests_properties(${name}.de_DE PROPERTIES FIXTURES_REQUIRED german_locale TIMEOUT 300
      ENVIRONMENT "LOCPATH=${directory};LC_ALL=de_DE.UTF-8;LARKVOX_EXPECT_COMMA=1")
  endforeach()
endfunction()
