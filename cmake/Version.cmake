# trevandix_version: Version.h (names, version and contact data for the command line, caption, message boxes and About
# box).
set(generated ${CMAKE_BINARY_DIR}/generated)
find_package(Git QUIET)
set(TREVANDIX_COMMIT "unknown")
set(TREVANDIX_DATE "unknown")
if(GIT_FOUND)
    execute_process(COMMAND ${GIT_EXECUTABLE} log -1 --format=%h\ %cs WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
                    OUTPUT_VARIABLE commit_line OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(commit_line MATCHES "^([^ ]+) ([^ ]+)$")
        set(TREVANDIX_COMMIT ${CMAKE_MATCH_1})
        set(TREVANDIX_DATE ${CMAKE_MATCH_2})
        # HEAD's log changes with every commit, which makes CMake configure again.
        execute_process(COMMAND ${GIT_EXECUTABLE} rev-parse --path-format=absolute --git-path logs/HEAD
                        WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE head_log
                        OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
        if(EXISTS "${head_log}")
            set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${head_log})
        endif()
    endif()
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/Version.h.in ${generated}/Version.h @ONLY)
add_library(trevandix_version INTERFACE)
target_include_directories(trevandix_version INTERFACE ${generated})
