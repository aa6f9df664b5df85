# Installs the editor (stagewright), its command-line tool (stagewright-cli)
# and the example game (tessaro-play) into the bin folder, with the editor's
# desktop integration (desktop/), in the component "StageWright"; the
# library's headers and package are the component "Tessaro".
#
# The programs find what they need relative to themselves: their resources
# are compiled in, and the editor starts tessaro-play from its own folder.
# The caches of the desktop (MIME database, desktop entries, icon theme) are
# refreshed by `make install` for a direct install and by the package
# manager's triggers for the Debian package; these rules only place files.
include(GNUInstallDirs)

install(TARGETS stagewright stagewright-cli tessaro-play COMPONENT StageWright
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

add_subdirectory(${PROJECT_SOURCE_DIR}/desktop ${PROJECT_BINARY_DIR}/desktop)
