# The Debian package, which "cpack" makes from a release build: scripts/package does both. What it depends on is computed
# from the programs; named here is what they load by themselves.
find_program(DPKG_SHLIBDEPS dpkg-shlibdeps)
if(NOT DPKG_SHLIBDEPS)
    return()
endif()

set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${changelog}
    COMMAND ${GZIP} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog > ${changelog}
    DEPENDS debian/changelog VERBATIM)
add_custom_target(zelvane_paquet ALL DEPENDS ${changelog})
install(FILES debian/copyright ${changelog} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT paquet EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelvane)
set(CPACK_PACKAGE_VENDOR Zelvane)
set(CPACK_PACKAGE_CONTACT "The Zelvane developers <developers@zelvane.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://zelvane.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "catalogue manager for personal collections")
set(CPACK_PACKAGE_DESCRIPTION
"Zelvane keeps catalogues of records, books, films and whatever else is
collected: tables under columns of one's own, with an image for each entry,
a comment, and a note of what was lent to whom. It searches, compares,
exports and prints them.
.
The program speaks French, and other languages by files that come with it.
zelvane-cli does the same work without a window.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# All in one package, what only a package has included.
set(CPACK_COMPONENTS_ALL Unspecified paquet)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The pictures of menus and bars are SVG, which a plug-in of Qt draws; Qt's own words in file dialogs.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, qt6-image-formats-plugins, at-spi2-core, desktop-file-utils, shared-mime-info")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
