# Libraries of the cross-built Windows program, built by tools/windows.sh: trevandix_wxwidgets (wx base and core),
# pugixml::pugixml, GTest::gtest and GTest::gtest_main.
if(NOT TREVANDIX_WINDOWS_PREFIX)
  message(FATAL_ERROR "TREVANDIX_WINDOWS_PREFIX is not set; tools/windows.sh build sets it")
endif()

# Searches only the prefix: a package of the host would compile but not link.
foreach(package IN ITEMS wxWidgets pugixml GTest)
  find_package(${package} CONFIG REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
               PATHS "${TREVANDIX_WINDOWS_PREFIX}/lib/cmake")
endforeach()

add_library(trevandix_wxwidgets INTERFACE)
target_link_libraries(trevandix_wxwidgets INTERFACE wx::core wx::base)
