# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The core library: profile model, activation, AI context, preferences and updates.
# It links only QtCore and QtNetwork, so the command line and the tests never pull in a
# graphical module or the session bus.
set(KIVORA_CORE_DIRS model activation ai prefs updates)
set(KIVORA_CORE_SOURCES)
foreach(dir IN LISTS KIVORA_CORE_DIRS)
    file(GLOB dir_sources CONFIGURE_DEPENDS
         ${PROJECT_SOURCE_DIR}/${dir}/*.cpp ${PROJECT_SOURCE_DIR}/${dir}/*.h)
    list(APPEND KIVORA_CORE_SOURCES ${dir_sources})
endforeach()

add_library(kivora_core STATIC ${KIVORA_CORE_SOURCES})
target_include_directories(kivora_core PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(kivora_core PUBLIC Qt6::Core Qt6::Network
                      PRIVATE nlohmann_json::nlohmann_json)
target_compile_definitions(kivora_core PUBLIC
    KIVORA_VERSION="${PROJECT_VERSION}"
    KIVORA_DEFAULT_FEED_URL="${KIVORA_UPDATE_FEED_URL}")
kivora_strict(kivora_core)

# The translations, compiled from translations/kivora_<lang>.ts into the core's resources
# (:/i18n/kivora_<lang>.qm), so the command line and the application both have them;
# translations/kivora_en.ts is the template and the English plural forms. Translations
# (model/Translations.h) installs them.
find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)
file(GLOB KIVORA_TS_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/translations/kivora_*.ts)
qt_add_lrelease(kivora_core TS_FILES ${KIVORA_TS_FILES} QM_FILES_OUTPUT_VARIABLE KIVORA_QM_FILES)
qt_add_resources(kivora_core kivora_translations PREFIX /i18n BASE ${CMAKE_CURRENT_BINARY_DIR}
                 FILES ${KIVORA_QM_FILES})
