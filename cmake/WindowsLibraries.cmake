# Libraries of the cross-built Windows program, built by tools/windows.sh: trevandix_wxwidgets (wx base and core),
# pugixml::pugixml, mimalloc-static, GTest::gtest and GTest::gtest_main. Also trevandix_headers.
if(NOT TREVANDIX_WINDOWS_PREFIX)
  message(FATAL_ERROR "TREVANDIX_WINDOWS_PREFIX is not set; tools/windows.sh build sets it")
endif()

# Searches only the prefix, as a package of the host would compile but not link, and again each time, as its folder may
# have changed.
foreach(package IN ITEMS wxWidgets pugixml mimalloc GTest)
  unset(${package}_DIR CACHE)
  find_package(${package} CONFIG REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
               PATHS "${TREVANDIX_WINDOWS_PREFIX}/lib/cmake")
endforeach()

add_library(trevandix_wxwidgets INTERFACE)
target_link_libraries(trevandix_wxwidgets INTERFACE wx::core wx::base)

# CLI11 and nlohmann_json consist of headers, so those of the host serve. The links hide its other headers.
add_library(trevandix_headers INTERFACE)
target_include_directories(trevandix_headers SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/headers")
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/headers")
foreach(folder IN ITEMS CLI nlohmann)
  if(NOT EXISTS "/usr/include/${folder}")
    message(FATAL_ERROR "/usr/include/${folder} is missing; tools/windows.sh setup installs it")
  endif()
  file(CREATE_LINK "/usr/include/${folder}" "${CMAKE_BINARY_DIR}/headers/${folder}" SYMBOLIC)
endforeach()
