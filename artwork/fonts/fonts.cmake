# The typefaces of the bundles. Sets LARKVOX_ARTWORK_FONTS, the folder of the made fonts;
# LARKVOX_ARTWORK_FONT_FILES, the rounded design; LARKVOX_FERNHORN_FONT_FILES, the plug-ins' faces.

# The first interpreter on the path need not be the one the font tools were installed for.
set(font_python)
find_program(LARKVOX_SYSTEM_PYTHON NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
find_program(LARKVOX_PATH_PYTHON NAMES python3)
foreach(candidate IN ITEMS "${LARKVOX_SYSTEM_PYTHON}" "${LARKVOX_PATH_PYTHON}")
  if(candidate AND NOT font_python)
    execute_process(COMMAND "${candidate}" -c "import fontTools.ttLib"
                    RESULT_VARIABLE failed OUTPUT_QUIET ERROR_QUIET)
    if(failed EQUAL 0)
      set(font_python "${candidate}")
    endif()
  endif()
endforeach()
if(NOT font_python)
  message(FATAL_ERROR "No Python 3 here can import fontTools. Install the Debian package "
                      "python3-fonttools.")
endif()

function(find_font variable file package)
  find_file(${variable} "${file}"
    PATHS /usr/share/fonts /usr/local/share/fonts
    PATH_SUFFIXES opentype/jura truetype/quicksand opentype/dosis)
  if(NOT ${variable})
    message(FATAL_ERROR "The font ${file} was not found. Install the Debian package ${package}.")
  endif()
endfunction()
find_font(LARKVOX_FONT_JURA Jura-SemiBold.otf fonts-jura)
find_font(LARKVOX_FONT_QUICKSAND_MEDIUM Quicksand-Medium.ttf fonts-quicksand)
find_font(LARKVOX_FONT_QUICKSAND_BOLD Quicksand-Bold.ttf fonts-quicksand)
find_font(LARKVOX_FONT_DOSIS_LIGHT Dosis-Light.otf fonts-dosis)
find_font(LARKVOX_FONT_DOSIS_MEDIUM Dosis-Medium.otf fonts-dosis)

set(maker "${CMAKE_CURRENT_LIST_DIR}/make_font.py")
set(licence "${CMAKE_CURRENT_LIST_DIR}/OFL.txt")
function(make_font source output)
  add_custom_command(OUTPUT "${output}"
    COMMAND "${font_python}" -B "${maker}" "${source}" --output "${output}" ${ARGN}
    DEPENDS "${maker}" "${source}" COMMENT "Making the font ${output}" VERBATIM)
endfunction()
function(make_licence source output)
  add_custom_command(OUTPUT "${output}"
    COMMAND "${font_python}" -B "${maker}" "${source}" --licence "${output}"
            --licence-body "${licence}" ${ARGN}
    DEPENDS "${maker}" "${source}" "${licence}" COMMENT "Writing ${output}" VERBATIM)
endfunction()

set(LARKVOX_ARTWORK_FONTS "${CMAKE_CURRENT_BINARY_DIR}/fonts")
file(MAKE_DIRECTORY "${LARKVOX_ARTWORK_FONTS}")

make_font("${LARKVOX_FONT_QUICKSAND_MEDIUM}" "${LARKVOX_ARTWORK_FONTS}/FennickRounded-Medium.ttf"
  --family "Fennick Rounded" --style Medium --weight 500 --postscript FennickRounded-Medium)
make_font("${LARKVOX_FONT_QUICKSAND_BOLD}" "${LARKVOX_ARTWORK_FONTS}/FennickRounded-Bold.ttf"
  --family "Fennick Rounded" --style Bold --weight 700 --postscript FennickRounded-Bold)
make_licence("${LARKVOX_FONT_QUICKSAND_BOLD}" "${LARKVOX_ARTWORK_FONTS}/FennickRounded-OFL.txt"
  --family "Fennick Rounded")
set(LARKVOX_ARTWORK_FONT_FILES
  "${LARKVOX_ARTWORK_FONTS}/FennickRounded-Medium.ttf"
  "${LARKVOX_ARTWORK_FONTS}/FennickRounded-Bold.ttf"
  "${LARKVOX_ARTWORK_FONTS}/FennickRounded-OFL.txt")

make_font("${LARKVOX_FONT_JURA}" "${LARKVOX_ARTWORK_FONTS}/Rocket.otf"
  --family Rocket --postscript Rocket)
make_licence("${LARKVOX_FONT_JURA}" "${LARKVOX_ARTWORK_FONTS}/Rocket-OFL.txt" --family Rocket)
# The licence of Dosis reserves its name, so a changed copy could not carry it: these two go into
# the bundle as they are.
make_licence("${LARKVOX_FONT_DOSIS_LIGHT}" "${LARKVOX_ARTWORK_FONTS}/Dosis-OFL.txt")
set(LARKVOX_FERNHORN_FONT_FILES
  "${LARKVOX_ARTWORK_FONTS}/Rocket.otf"
  "${LARKVOX_ARTWORK_FONTS}/Rocket-OFL.txt"
  "${LARKVOX_FONT_DOSIS_LIGHT}"
  "${LARKVOX_FONT_DOSIS_MEDIUM}"
  "${LARKVOX_ARTWORK_FONTS}/Dosis-OFL.txt")
