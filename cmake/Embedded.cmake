# trevandix_embedded: Icons.h (icons compiled into the program).
set(generated ${CMAKE_BINARY_DIR}/generated)
file(GLOB icon_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/icons/*.svg)
add_custom_command(
    OUTPUT ${generated}/Icons.cpp
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${generated}/Icons.cpp -DICONS=${PROJECT_SOURCE_DIR}/resources/icons
            -P ${CMAKE_CURRENT_LIST_DIR}/EmbedIcons.cmake
    DEPENDS ${icon_files} ${CMAKE_CURRENT_LIST_DIR}/EmbedIcons.cmake
    VERBATIM)
add_library(trevandix_embedded STATIC ${generated}/Icons.cpp)
target_include_directories(trevandix_embedded PUBLIC ${PROJECT_SOURCE_DIR}/resources)
target_link_libraries(trevandix_embedded PUBLIC trevandix_version)
