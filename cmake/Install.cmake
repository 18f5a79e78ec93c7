# What `cmake --install` and the Debian packages put where. Two packages: `chartproject` with windows, and
# `chartproject-headless`, which needs no Qt; each is complete, and one takes the place of the other.
include(GNUInstallDirs)

# Manual and completion, from the program itself.
set(documents "${CMAKE_BINARY_DIR}/documents")
file(MAKE_DIRECTORY "${documents}")
add_custom_command(
  OUTPUT "${documents}/chartproject.1.gz" "${documents}/chartproject.bash" "${documents}/_chartproject"
  COMMAND chartproject-headless describe man | gzip -9n > "${documents}/chartproject.1.gz"
  COMMAND chartproject-headless describe bash > "${documents}/chartproject.bash"
  COMMAND chartproject-headless describe zsh > "${documents}/_chartproject"
  DEPENDS chartproject-headless)
add_custom_target(documents ALL DEPENDS "${documents}/chartproject.1.gz")

# chartproject_install(COMPONENT PACKAGE TARGET): what both packages hold.
function(chartproject_install component package target)
  set(common COMPONENT ${component} ${ARGN})
  set(doc "${CMAKE_INSTALL_DATADIR}/doc/${package}")
  install(TARGETS ${target} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" ${common})
  install(FILES "${documents}/chartproject.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" ${common})
  install(FILES "${documents}/chartproject.bash" RENAME chartproject
          DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" ${common})
  install(FILES "${documents}/_chartproject" DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions" ${common})
  install(FILES "${CMAKE_SOURCE_DIR}/share/service/chartproject-record@.service" DESTINATION lib/systemd/system ${common})
  install(PROGRAMS "${CMAKE_SOURCE_DIR}/share/service/record"
          DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/chartproject" ${common})
  install(FILES "${CMAKE_SOURCE_DIR}/share/service/example.conf" DESTINATION "${doc}/examples" ${common})
  install(FILES "${CMAKE_SOURCE_DIR}/docs/unattended.md" DESTINATION "${doc}" ${common})
  install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" RENAME copyright DESTINATION "${doc}" ${common})
  # Made by scripts/package-linux.
  install(FILES "${CMAKE_BINARY_DIR}/${package}.changelog.gz" RENAME changelog.gz DESTINATION "${doc}" ${common} OPTIONAL)
endfunction()

if(CHARTPROJECT_QT)
  chartproject_install(windows chartproject chartproject)
  chartproject_install(headless chartproject-headless chartproject-headless EXCLUDE_FROM_ALL)
  set(desktop "${CMAKE_SOURCE_DIR}/share/desktop")
  install(FILES "${desktop}/chartproject.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications" COMPONENT windows)
  install(FILES "${desktop}/chartproject.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" COMPONENT windows)
  foreach(icon IN ITEMS apps/chartproject mimetypes/application-x-chartproject-trend)
    get_filename_component(name "${icon}" NAME)
    get_filename_component(kind "${icon}" DIRECTORY)
    set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
    install(FILES "${desktop}/${name}.svg" DESTINATION "${icons}/scalable/${kind}" COMPONENT windows)
    foreach(size IN ITEMS 16 32 48 64 128 256)
      install(FILES "${desktop}/${name}_${size}.png" RENAME "${name}.png"
              DESTINATION "${icons}/${size}x${size}/${kind}" COMPONENT windows)
    endforeach()
  endforeach()
else()
  chartproject_install(headless chartproject-headless chartproject)
endif()

# Debian packages: scripts/package-linux runs cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME chartproject)
# A name ending in ".invalid" belongs to nobody for ever: the project has no mailbox, and the field needs an address.
# Who gives packages to others puts an address here at which they are heard.
set(CHARTPROJECT_CONTACT "ChartProject developers <developers@chartproject.invalid>"
    CACHE STRING "Who answers for the Debian packages: a name and an address")
set(CPACK_PACKAGE_CONTACT "${CHARTPROJECT_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "recorder of trend data of industrial drives")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_SOURCE_DIR}/share/service/prerm" "${CMAKE_SOURCE_DIR}/share/service/postrm")
set(what "Records up to four parameters of a frequency inverter, servo drive or soft
starter, from one point to two thousand million, and shows, prints and
exports the recordings.")
set(CPACK_COMPONENTS_ALL headless)
if(CHARTPROJECT_QT)
  list(PREPEND CPACK_COMPONENTS_ALL windows)
endif()
set(CPACK_DEBIAN_WINDOWS_PACKAGE_NAME chartproject)
set(CPACK_DEBIAN_WINDOWS_DESCRIPTION "${what}")
set(CPACK_DEBIAN_WINDOWS_PACKAGE_RECOMMENDS "qt6-translations-l10n, shared-mime-info, desktop-file-utils, bash-completion")
set(CPACK_DEBIAN_WINDOWS_PACKAGE_SUGGESTS "cups, qt6-wayland")
set(CPACK_DEBIAN_WINDOWS_PACKAGE_CONFLICTS chartproject-headless)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_REPLACES chartproject-headless)
set(CPACK_DEBIAN_WINDOWS_PACKAGE_PROVIDES "chartproject-headless (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_HEADLESS_PACKAGE_NAME chartproject-headless)
set(CPACK_DEBIAN_HEADLESS_DESCRIPTION "${what}

This package is for machines without a display. It has no windows and draws
no charts; the package chartproject does.")
set(CPACK_DEBIAN_HEADLESS_PACKAGE_RECOMMENDS bash-completion)
set(CPACK_DEBIAN_HEADLESS_PACKAGE_CONFLICTS chartproject)
set(CPACK_DEBIAN_HEADLESS_PACKAGE_REPLACES chartproject)
include(CPack)
