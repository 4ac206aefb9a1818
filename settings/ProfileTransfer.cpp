// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/ProfileTransfer.h"

#include "model/AtomicFile.h"
#include "model/ProfileCodec.h"
#include "model/RegularFileReader.h"
#include "model/Sentence.h"

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

void ProfileTransfer::setError(const QString& error)
{
    if (m_error != error) {
        m_error = error;
        emit errorChanged();
    }
}

bool ProfileTransfer::exportTo(const QUrl& file)
{
    if (file.isEmpty()) {
        return false;
    }
    // The file holds the same data as the profile file, keys included: private to the user.
    QString why;
    const QString path = localPath(file);
    if (!AtomicFile::write(path, ProfileCodec::encodeProfileArray(m_manager.profiles()),
                           AtomicFile::privateFile, &why)) {
        setError(Sentence::of(tr("the profiles could not be exported to %1 (%2)").arg(path, why)));
        return false;
    }
    setError({});
    return true;
}

int ProfileTransfer::importFrom(const QUrl& file)
{
    if (file.isEmpty()) {
        return 0;
    }
    const QString path = localPath(file);
    // A FIFO or device chosen in the file dialog would block or act when read; a file over
    // 16 MiB or nested too deep is refused by the reader and the decoder.
    RegularFileReader reader;
    const auto bytes = reader.read(path);
    if (!bytes) {
        setError(
            Sentence::of(tr("cannot read %1: %2; nothing was imported").arg(path, reader.error())));
        return 0;
    }
    QString why;
    const auto profiles = ProfileCodec::decodeProfileArray(*bytes, &why);
    if (!profiles) {
        setError(Sentence::of(
            tr("%1 is not a profile export (%2); nothing was imported").arg(path, why)));
        return 0;
    }
    if (!m_manager.addProfiles(*profiles, &why)) {
        setError(Sentence::of(why + tr("; nothing was imported")));
        return 0;
    }
    setError({});
    return int(profiles->size());
}
