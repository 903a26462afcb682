# Two Debian packages: `zarquelin-cli` needs no widgets, and `zarquelin` builds on it. scripts/make_package.sh makes
# them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zarquelin)
set(CPACK_PACKAGE_VENDOR "The Zarquelin developers")
set(CPACK_PACKAGE_CONTACT "Zarquelin developers <zarquelin@zarquelin.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each description begins with its own
set(CPACK_COMPONENT_DESKTOP_DESCRIPTION
"catalogue of discs and folders, searchable with the medium away
Zarquelin keeps a catalogue of discs, drives and folders in one file. A medium
is scanned once; from then on it can be browsed, searched, annotated, counted
and printed with the medium away, and its files can be opened or copied back
when it is in a drive.
.
The package holds the desktop program, in English and Spanish.")
set(CPACK_COMPONENT_CLI_DESCRIPTION
"catalogue of discs and folders, for scripts and servers
Zarquelin keeps a catalogue of discs, drives and folders in one file. A medium
is scanned once; from then on it can be listed, searched, annotated, counted
and compared with the medium away, and its files can be copied back when it is
in a drive.
.
The package holds zarquelin-cli, which does this from scripts and on machines
without a display, with completions for bash, zsh and fish.")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL desktop cli)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://zarquelin.example/en/)
# What the programs link is found by itself; what they load or start is not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME zarquelin)
set(CPACK_DEBIAN_CLI_PACKAGE_NAME zarquelin-cli)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS
    "zarquelin-cli (= ${PROJECT_VERSION}), libqt6svg6, breeze-icon-theme, hicolor-icon-theme")
set(CPACK_DEBIAN_CLI_PACKAGE_RECOMMENDS fuse3)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS "qt6-translations-l10n, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Papers that Debian asks of every package.
add_custom_command(
    OUTPUT ${generated}/changelog.gz
    COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/assets/debian/changelog > ${generated}/changelog.gz
    DEPENDS assets/debian/changelog
    VERBATIM)
add_custom_target(debian_files ALL DEPENDS ${generated}/changelog.gz)
set(papers assets/debian/copyright ${generated}/changelog.gz)
install(FILES ${papers} DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${papers} DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/zarquelin-cli COMPONENT cli)

include(CPack)
