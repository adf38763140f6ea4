# trevandix_add_windows_resources(TARGET SVG): adds version resource and manifest to an executable, and the icon if it
# has windows. The names below also appear in the caption and the About box.
set(TREVANDIX_COMPANY "VOSK Automation" CACHE STRING "Company shown in the file's properties")
set(TREVANDIX_PRODUCT "Trevandix Configuration Editor" CACHE STRING "Product shown in the file's properties")
set(TREVANDIX_DESCRIPTION "Trevandix Configuration Editor" CACHE STRING "Description shown in the file's properties")
mark_as_advanced(TREVANDIX_COMPANY TREVANDIX_PRODUCT TREVANDIX_DESCRIPTION)

set(TREVANDIX_WINDOWS_RESOURCES "${CMAKE_CURRENT_LIST_DIR}/../resources/windows")

# All sizes that Explorer, task bar and caption use at 100 % to 250 % scaling. Windows expects the largest as PNG.
function(trevandix_add_icon svg ico)
  set(folder "${ico}.parts")
  file(MAKE_DIRECTORY "${folder}")
  set(commands "")
  set(small "")
  foreach(size IN ITEMS 16 20 24 32 40 48 64 128 256)
    list(APPEND commands COMMAND "${RSVG_CONVERT}" -w ${size} -h ${size} -o "${folder}/${size}.png" "${svg}")
    if(size LESS 256)
      list(APPEND small "${folder}/${size}.png")
    endif()
  endforeach()
  add_custom_command(OUTPUT "${ico}" ${commands}
    COMMAND "${ICOTOOL}" --create -o "${ico}" ${small} --raw=${folder}/256.png
    DEPENDS "${svg}" COMMENT "Drawing ${ico}" VERBATIM)
endfunction()

function(trevandix_add_windows_resources target svg)
  get_target_property(windowed ${target} WIN32_EXECUTABLE)
  set(description "${TREVANDIX_DESCRIPTION}")
  if(NOT windowed)
    string(APPEND description ", command line")
  endif()
  string(REGEX MATCHALL "[0-9]+" numbers "${PROJECT_VERSION}.0.0.0.0")
  list(SUBLIST numbers 0 4 numbers)
  string(JOIN "," TREVANDIX_VERSION_NUMBERS ${numbers})
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}-resources")
  configure_file("${TREVANDIX_WINDOWS_RESOURCES}/program.rc.in" "${folder}/${target}.rc" @ONLY)
  set(manifest "${folder}/${target}.manifest")
  configure_file("${TREVANDIX_WINDOWS_RESOURCES}/program.manifest.in" "${manifest}" @ONLY)
  target_sources(${target} PRIVATE "${folder}/${target}.rc")

  # Without these two tools, for example in a native build, the program has wx's icon.
  find_program(RSVG_CONVERT rsvg-convert)
  find_program(ICOTOOL icotool)
  mark_as_advanced(RSVG_CONVERT ICOTOOL)
  set(inputs "")
  if(windowed)
    set_property(SOURCE "${folder}/${target}.rc" APPEND PROPERTY COMPILE_DEFINITIONS TREVANDIX_HAS_WINDOWS)
  endif()
  if(NOT windowed)
    # no icon
  elseif(RSVG_CONVERT AND ICOTOOL AND EXISTS "${svg}")
    trevandix_add_icon("${svg}" "${folder}/trevandix-editor.ico")
    list(APPEND inputs "${folder}/trevandix-editor.ico")
    set_property(SOURCE "${folder}/${target}.rc" APPEND PROPERTY COMPILE_DEFINITIONS TREVANDIX_HAS_ICON)
  else()
    message(WARNING "no icon: rsvg-convert, icotool or ${svg} is missing")
  endif()

  # Visual Studio's linker merges the manifest itself and refuses a second one in the resources.
  if(MSVC)
    target_sources(${target} PRIVATE "${manifest}")
  else()
    list(APPEND inputs "${manifest}")
    set_property(SOURCE "${folder}/${target}.rc" APPEND PROPERTY COMPILE_DEFINITIONS TREVANDIX_HAS_MANIFEST)
  endif()
  set_property(SOURCE "${folder}/${target}.rc" APPEND PROPERTY OBJECT_DEPENDS "${inputs}")
  set_property(SOURCE "${folder}/${target}.rc" APPEND PROPERTY INCLUDE_DIRECTORIES "${folder}")
endfunction()
