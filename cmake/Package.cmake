# A Debian package; scripts/make_package.sh makes it.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zarquelin)
set(CPACK_PACKAGE_VENDOR "The Zarquelin developers")
set(CPACK_PACKAGE_CONTACT "Zarquelin developers <zarquelin@zarquelin.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "catalogue of discs and folders, searchable with the medium away")
set(CPACK_PACKAGE_DESCRIPTION
"Zarquelin keeps a catalogue of discs, drives and folders in one file. A medium
is scanned once; from then on it can be browsed, searched, annotated, counted
and printed with the medium away, and its files can be opened or copied back
when it is in a drive.
.
The package holds the desktop program, in English and Spanish, and
zarquelin-cli, which does the same from scripts and on machines without a
display.")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://zarquelin.example/en/)
# What the programs link is found by itself; what they load or start is not.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, breeze-icon-theme, hicolor-icon-theme")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Papers that Debian asks of every package.
add_custom_command(
    OUTPUT ${generated}/changelog.gz
    COMMAND ${GZIP} -9nc ${CMAKE_SOURCE_DIR}/assets/debian/changelog > ${generated}/changelog.gz
    DEPENDS assets/debian/changelog
    VERBATIM)
add_custom_target(debian_files ALL DEPENDS ${generated}/changelog.gz)
install(FILES assets/debian/copyright ${generated}/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})

include(CPack)
