# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installing Kivora as a desktop application, and the Debian package made from it.
#
#   bin/kivora                                     the command line
#   <libdir>/kivora/kivora-app                     the tray application, started by `kivora`
#   share/applications/io.github.kivora.Kivora.desktop
#   share/metainfo/io.github.kivora.Kivora.metainfo.xml
#   share/icons/hicolor/<size>/apps/kivora.png     rendered from the logo at build time
#   share/icons/hicolor/scalable/apps/kivora.svg
#   share/bash-completion/completions/kivora
#   share/zsh/vendor-completions/_kivora
#   share/man/man1/kivora.1.gz                     generated from `kivora --help`
#
# docs/install.md describes the layout and the package.
include(GNUInstallDirs)

set(KIVORA_APP_ID io.github.kivora.Kivora)
set(KIVORA_APP_INSTALL_DIR ${CMAKE_INSTALL_LIBDIR}/kivora)
set(KIVORA_ICON_SIZES 16 22 24 32 48 64 128 256)
set(KIVORA_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)
set(KIVORA_GENERATED_DIR ${CMAKE_BINARY_DIR}/packaging)

# `kivora` without a command looks for the tray application relative to its own folder. With
# the prefix /usr, Debian's libdir is lib/<multiarch>; the path from bindir to the
# application's folder is handed to the command line, so the lookup always matches the
# install rule below.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(kivora_full_app_dir ${CMAKE_INSTALL_LIBDIR}/kivora)
else()
    set(kivora_full_app_dir ${CMAKE_INSTALL_PREFIX}/${KIVORA_APP_INSTALL_DIR})
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_BINDIR}")
    set(kivora_full_bin_dir ${CMAKE_INSTALL_BINDIR})
else()
    set(kivora_full_bin_dir ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR})
endif()
file(RELATIVE_PATH KIVORA_APP_DIR_FROM_BIN ${kivora_full_bin_dir} ${kivora_full_app_dir})
target_compile_definitions(kivora_cli PRIVATE
                           "KIVORA_INSTALLED_APP_DIR=\"${KIVORA_APP_DIR_FROM_BIN}\"")

install(TARGETS kivora-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/cli/completions/kivora.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME kivora)
install(FILES ${PROJECT_SOURCE_DIR}/cli/completions/_kivora
        DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)

# A core-only build (the sanitizer build) has no application to install or package.
if(KIVORA_CORE_ONLY)
    return()
endif()

install(TARGETS kivora-app RUNTIME DESTINATION ${KIVORA_APP_INSTALL_DIR})
install(FILES ${KIVORA_PACKAGING_DIR}/${KIVORA_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${KIVORA_PACKAGING_DIR}/${KIVORA_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${PROJECT_SOURCE_DIR}/assets/kivora-logo.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME kivora.svg)

set(kivora_generated_files)

# The icon theme's fixed sizes, rendered from the logo (-a keeps its proportions).
find_program(KIVORA_RSVG_CONVERT rsvg-convert)
if(KIVORA_RSVG_CONVERT)
    foreach(size IN LISTS KIVORA_ICON_SIZES)
        set(icon ${KIVORA_GENERATED_DIR}/icons/${size}x${size}/kivora.png)
        add_custom_command(
            OUTPUT ${icon}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${KIVORA_GENERATED_DIR}/icons/${size}x${size}
            COMMAND ${KIVORA_RSVG_CONVERT} --width=${size} --height=${size} -a
                    --format=png --output=${icon} ${PROJECT_SOURCE_DIR}/assets/kivora-logo.svg
            DEPENDS ${PROJECT_SOURCE_DIR}/assets/kivora-logo.svg
            COMMENT "Rendering the ${size}x${size} icon"
            VERBATIM)
        list(APPEND kivora_generated_files ${icon})
        install(FILES ${icon}
                DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
    endforeach()
else()
    message(WARNING "rsvg-convert (Debian package librsvg2-bin) is missing: the icons are not "
                    "rendered and the package lacks them. Run scripts/install-deps.")
endif()

# The manual page, from the command line's own help. The home folder is a scratch one: help
# and version never touch it, and a build must not either.
find_program(KIVORA_HELP2MAN help2man)
if(KIVORA_HELP2MAN)
    set(man_page ${KIVORA_GENERATED_DIR}/man/kivora.1)
    set(scratch_home ${KIVORA_GENERATED_DIR}/man/home)
    add_custom_command(
        OUTPUT ${man_page}.gz
        COMMAND ${CMAKE_COMMAND} -E make_directory ${scratch_home}
        COMMAND ${CMAKE_COMMAND} -E env HOME=${scratch_home} XDG_CONFIG_HOME=${scratch_home}
                LC_ALL=C.UTF-8 LANGUAGE= ${KIVORA_HELP2MAN} --no-info --section=1
                --include=${KIVORA_PACKAGING_DIR}/kivora.h2m --output=${man_page}
                $<TARGET_FILE:kivora-cli>
        COMMAND gzip -9 -n -f ${man_page}
        DEPENDS kivora-cli ${KIVORA_PACKAGING_DIR}/kivora.h2m
        COMMENT "Generating the kivora(1) manual page"
        VERBATIM)
    list(APPEND kivora_generated_files ${man_page}.gz)
    install(FILES ${man_page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
else()
    message(WARNING "help2man is missing: the package lacks the kivora(1) manual page. Run "
                    "scripts/install-deps.")
endif()

add_custom_target(kivora-desktop-files ALL DEPENDS ${kivora_generated_files})

# The licence, where Debian keeps a package's copyright notice.
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/kivora
        RENAME copyright)

# The Debian package: `make package`, or `cpack -G DEB` in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kivora)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Kivora developers")
set(KIVORA_PACKAGE_MAINTAINER "The Kivora developers <maintainers@kivora.invalid>"
    CACHE STRING "Maintainer field of the Debian package: Name <e-mail>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
# The long description, one control-file line per line.
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION
    "Kivora is a tray application for people who work under several git"
    "identities. One click on a profile makes it the active identity: the global"
    "git name and e-mail, the SSH key git uses and the AI provider key the shells"
    "export switch at once. A settings window manages profiles, SSH keys and AI"
    "credentials, and the kivora command does the same from a terminal.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${KIVORA_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SECTION vcs)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# Shared libraries are found by dpkg-shlibdeps; what is loaded at run time (QML modules, the
# platform plugins, the SVG image plugin) and the programs a switch runs are named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(KIVORA_RUNTIME_DEPENDS
    qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-layouts
    qml6-module-qtquick-dialogs qml6-module-qtquick-window qml6-module-qtquick-templates
    qml6-module-qtqml-workerscript qml6-module-qtcore qml6-module-qt-labs-folderlistmodel
    qml6-module-qtqml-models qml6-module-qtqml qml6-module-qtquick-shapes qt6-qpa-plugins
    qt6-wayland libqt6svg6 git openssh-client)
list(JOIN KIVORA_RUNTIME_DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# A terminal for "open in terminal".
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "x-terminal-emulator")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "bash-completion")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_SOURCE_GENERATOR "")

include(CPack)

# Facts the package test needs about this build's layout.
file(CONFIGURE OUTPUT ${KIVORA_GENERATED_DIR}/layout.sh CONTENT [[
KIVORA_VERSION='@PROJECT_VERSION@'
KIVORA_APP_ID='@KIVORA_APP_ID@'
KIVORA_APP_PATH='@CPACK_PACKAGING_INSTALL_PREFIX@/@KIVORA_APP_INSTALL_DIR@/kivora-app'
KIVORA_CPACK='@CMAKE_CPACK_COMMAND@'
KIVORA_BUILD_DIR='@CMAKE_BINARY_DIR@'
KIVORA_SOURCE_DIR='@PROJECT_SOURCE_DIR@'
]] @ONLY)
