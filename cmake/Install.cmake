# `cmake --install` on Linux, which the Debian package uses too. The manual is installed if tools/manual.sh has made it.
if(NOT UNIX)
    return()
endif()
include(GNUInstallDirs)
set(linux ${PROJECT_SOURCE_DIR}/resources/linux)
set(VERSION ${PROJECT_VERSION})
configure_file(${linux}/trevandix-editor.1 ${CMAKE_BINARY_DIR}/trevandix-editor.1 @ONLY)
install(TARGETS trevandix-editor trevandix)
install(FILES ${CMAKE_BINARY_DIR}/trevandix-editor.1 ${CMAKE_BINARY_DIR}/trevandix.1
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${linux}/trevandix-editor.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${linux}/trevandix-editor.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${PROJECT_SOURCE_DIR}/resources/icons/app.svg RENAME trevandix-editor.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
install(DIRECTORY ${CMAKE_BINARY_DIR}/manual/ DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)
