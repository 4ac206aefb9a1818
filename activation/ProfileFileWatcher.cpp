// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "activation/ProfileFileWatcher.h"

#include "activation/ProfileManager.h"

#include <QFileInfo>

ProfileFileWatcher::ProfileFileWatcher(ProfileManager& manager, int quietMs, QObject* parent)
    : QObject(parent), m_manager(manager), m_file(manager.storagePath()),
      m_folder(QFileInfo(m_file).path())
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietMs);
    connect(&m_quiet, &QTimer::timeout, this, &ProfileFileWatcher::check);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ProfileFileWatcher::noticed);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &ProfileFileWatcher::noticed);
    watch();
}

void ProfileFileWatcher::watch()
{
    // A watch ends with what it watched: the file replaced by a rename, the folder removed.
    // Whatever stands at either place now is watched again.
    if (!m_watcher.directories().contains(m_folder) && QFileInfo(m_folder).isDir()) {
        m_watcher.addPath(m_folder);
    }
    if (!m_watcher.files().contains(m_file) && QFileInfo::exists(m_file)) {
        m_watcher.addPath(m_file);
    }
}

void ProfileFileWatcher::noticed()
{
    watch();
    m_quiet.start(); // (again): one read after the last change of a burst
}

void ProfileFileWatcher::check()
{
    watch();
    if (m_manager.followFile() == ProfileManager::FileFollow::Busy) {
        // Another writer is about to save (or this manager is saving): look again later.
        m_quiet.start();
    }
    emit checked();
}
