// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/ProfileTransfer.h"

#include "model/AtomicFile.h"
#include "model/ProfileCodec.h"
#include "model/RegularFileReader.h"

namespace {

QString localPath(const QUrl& file)
{
    return file.isLocalFile() ? file.toLocalFile() : file.toString();
}

} // namespace

ProfileTransfer::ProfileTransfer(ProfileManager& manager, QObject* parent)
    : QObject(parent), m_manager(manager)
{
}

bool ProfileTransfer::exportTo(const QUrl& file) const
{
    if (file.isEmpty()) {
        return false;
    }
    // The file holds the same data as the profile file, keys included: private to the user.
    return AtomicFile::write(localPath(file),
                             ProfileCodec::encodeProfileArray(m_manager.profiles()),
                             AtomicFile::privateFile);
}

int ProfileTransfer::importFrom(const QUrl& file) const
{
    if (file.isEmpty()) {
        return 0;
    }
    // A FIFO or device chosen in the file dialog would block or act when read; a file over
    // 16 MiB or nested too deep is refused by the reader and the decoder.
    const auto bytes = RegularFileReader().read(localPath(file));
    if (!bytes) {
        return 0;
    }
    const auto profiles = ProfileCodec::decodeProfileArray(*bytes);
    if (!profiles) {
        return 0;
    }
    for (const GitProfile& profile : *profiles) {
        m_manager.addProfile(profile.name, profile.gitName, profile.gitEmail, profile.sshKeyPath);
    }
    return int(profiles->size());
}
