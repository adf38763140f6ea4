# The libraries of a cross-built Windows program, from the prefix that tools/windows.sh has filled:
# trevandix_wxwidgets (wx base and core), pugixml::pugixml, GTest::gtest and GTest::gtest_main.
if(NOT TREVANDIX_WINDOWS_PREFIX)
  message(FATAL_ERROR "TREVANDIX_WINDOWS_PREFIX is not set; tools/windows.sh build sets it")
endif()

# Only the prefix is searched: a package of the host would compile and then fail to link.
foreach(package IN ITEMS wxWidgets pugixml GTest)
  find_package(${package} CONFIG REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
               PATHS "${TREVANDIX_WINDOWS_PREFIX}/lib/cmake")
endforeach()

add_library(trevandix_wxwidgets INTERFACE)
target_link_libraries(trevandix_wxwidgets INTERFACE wx::core wx::base)
