# Where everything goes. The template of new catalogues and the link files are looked for beside the running program,
# so the programs lie with them in a folder of their own and bin/ holds links to them.
set(program_folder ${CMAKE_INSTALL_LIBDIR}/zarquelin)
set(generated ${CMAKE_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${generated}/bin ${generated}/icons ${generated}/man)

#
# Two components: `cli` works on its own, everything else builds on it.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME desktop)
install(TARGETS zarquelin RUNTIME DESTINATION ${program_folder})
install(TARGETS zarquelin-cli RUNTIME DESTINATION ${program_folder} COMPONENT cli)
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/original.ejm DESTINATION ${program_folder} COMPONENT cli)
install(DIRECTORY assets/links/ DESTINATION ${program_folder} FILES_MATCHING PATTERN "*.url")

file(RELATIVE_PATH from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/zarquelin)
foreach(program zarquelin zarquelin-cli)
    file(CREATE_LINK ${from_bin}/${program} ${generated}/bin/${program} SYMBOLIC)
endforeach()
install(FILES ${generated}/bin/zarquelin DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${generated}/bin/zarquelin-cli DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT cli)

# The desktop: menu entry, type of .zrq files, description for software centres, icons.
set(desktop ${CMAKE_SOURCE_DIR}/assets/desktop)
install(FILES ${desktop}/zarquelin.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
# Among the system's own entries this one comes last. In a folder that is asked before theirs it would be what opens
# every folder, on desktops that name no default.
install(CODE "
    if(CMAKE_INSTALL_PREFIX MATCHES \"/usr/?$\")
        file(INSTALL ${desktop}/zarquelin-folder.desktop
            DESTINATION \${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/applications)
    endif()")
install(FILES ${desktop}/zarquelin-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME zarquelin.xml)
install(FILES ${desktop}/zarquelin.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
    RENAME example.zarquelin.zarquelin.metainfo.xml)

# "Catalogue this folder" for the file managers that have menus of their own; the others take it from the entry above
# and show it among the programs that open a folder.
set(menus ${desktop}/folder-menus)
install(FILES ${menus}/kio.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/kio/servicemenus RENAME zarquelin.desktop)
install(FILES ${menus}/nemo.nemo_action DESTINATION ${CMAKE_INSTALL_DATADIR}/nemo/actions
    RENAME zarquelin.nemo_action)
install(FILES ${menus}/file-manager.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/file-manager/actions
    RENAME zarquelin.desktop)

set(icon_theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES assets/zarquelin.svg DESTINATION ${icon_theme}/scalable/apps)
set(icon_sizes 16 22 24 32 48 64 128 256)
foreach(size ${icon_sizes})
    list(APPEND icon_files ${generated}/icons/${size}.png)
    install(FILES ${generated}/icons/${size}.png DESTINATION ${icon_theme}/${size}x${size}/apps RENAME zarquelin.png)
endforeach()
add_custom_command(
    OUTPUT ${icon_files}
    COMMAND make_icons ${generated}/icons ${icon_sizes}
    DEPENDS make_icons
    COMMENT "Drawing the icons"
    VERBATIM)

# The shell: manual pages and completion.
find_program(GZIP gzip REQUIRED)
configure_file(docs/man/zarquelin.1.in ${generated}/man/zarquelin.1 @ONLY)
foreach(page ${generated}/man/zarquelin.1 ${generated}/shell/zarquelin-cli.1)
    get_filename_component(name ${page} NAME)
    add_custom_command(
        OUTPUT ${generated}/man/${name}.gz
        COMMAND ${GZIP} -9nc ${page} > ${generated}/man/${name}.gz
        DEPENDS ${page}
        VERBATIM)
    list(APPEND man_pages ${generated}/man/${name}.gz)
endforeach()
install(FILES ${generated}/man/zarquelin.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${generated}/man/zarquelin-cli.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT cli)
install(FILES ${generated}/shell/zarquelin-cli.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME zarquelin-cli COMPONENT cli)
install(FILES ${generated}/shell/_zarquelin-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions
    COMPONENT cli)
install(FILES ${generated}/shell/zarquelin-cli.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d
    COMPONENT cli)

# The documents for users.
install(FILES docs/manual.md docs/manual.es.md docs/file-format.md docs/command-line.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR} FILES_MATCHING PATTERN "*.png")

add_custom_target(desktop_files ALL DEPENDS ${icon_files} ${man_pages})
