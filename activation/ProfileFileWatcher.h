// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

class ProfileManager;

// Keeps a running application's profile list in step with the profile file when someone else
// writes it: a command line that could not reach the application, the user's editor, a backup
// put back, a sync tool. It watches the file and its folder (writers replace the file by a
// rename, which ends a watch on the file itself) and, once the changes have been quiet for a
// moment, asks the manager to take over what the file holds. The manager tells its own saves
// apart by their bytes, so they cost a read and nothing else.
class ProfileFileWatcher : public QObject {
    Q_OBJECT

public:
    // How long the file must be left alone before it is read: a burst of writes (an editor
    // saving in several steps, a sync tool) is read once, after its last write.
    static constexpr int defaultQuietMs = 200;

    explicit ProfileFileWatcher(ProfileManager& manager, int quietMs = defaultQuietMs,
                                QObject* parent = nullptr);

signals:
    // The file was looked at after a burst of changes (whatever it held).
    void checked();

private:
    void noticed();
    void watch();
    void check();

    ProfileManager& m_manager;
    QString m_file;
    QString m_folder;
    QFileSystemWatcher m_watcher;
    QTimer m_quiet;
};
