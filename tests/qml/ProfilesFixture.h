// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <QVariantMap>

#include <memory>

class LocalHttpServer;
class ProfileManager;
class QTcpServer;

// What the profiles page tests arrange and inspect beyond the shared fixture: files in the
// temporary home folder, profiles with keys and AI settings, the clipboard, the addresses
// handed to the browser and the real ssh-keygen. Available to the tests as the singleton
// "ProfilesFixture" of the module "KivoraTest".
class ProfilesFixture : public QObject {
    Q_OBJECT

public:
    explicit ProfilesFixture(ProfileManager& manager);
    ~ProfilesFixture() override;

    // Files under the temporary home folder (folders made on the way).
    Q_INVOKABLE bool writeHomeFile(const QString& relative, const QString& text) const;
    Q_INVOKABLE QString homeFileText(const QString& relative) const;
    Q_INVOKABLE bool homeFileExists(const QString& relative) const;
    Q_INVOKABLE bool removeHomeFolder(const QString& relative) const;
    Q_INVOKABLE bool makeHomeFolder(const QString& relative) const;
    // Puts a plain file where the folder was (its content gone), or the reverse: an empty
    // folder where the file was.
    Q_INVOKABLE bool replaceFolderWithFile(const QString& relative) const;
    Q_INVOKABLE bool replaceFileWithFolder(const QString& relative) const;
    // A named pipe (FIFO) that nobody writes to: reading it would wait for ever.
    Q_INVOKABLE bool makeHomeFifo(const QString& relative) const;
    Q_INVOKABLE QString homePath() const;

    // Replaces the profiles. Each entry: {name, gitName, gitEmail, sshKeyPath, customHeaders
    // (an object of texts), aiEnabled, aiProvider, aiModel, aiAPIKey, aiBaseURL}; missing
    // fields are empty or default. `activeIndex` < 0: none active. Saves.
    Q_INVOKABLE void arrangeProfiles(const QVariantList& entries, int activeIndex);
    // A profile of the list with every field, its AI settings flattened ("aiProvider", …) and
    // "customHeaderCount".
    Q_INVOKABLE QVariantMap profileAt(int index) const;
    Q_INVOKABLE int profileCount() const;
    // Names of the profiles in the profile file on disk.
    Q_INVOKABLE QStringList savedProfileNames() const;
    Q_INVOKABLE void setGlobalGitName(const QString& name) const;

    Q_INVOKABLE QString clipboardText() const;
    Q_INVOKABLE void setClipboardText(const QString& text) const;

    // The https addresses the program asked the desktop to open, in order.
    Q_INVOKABLE QStringList openedUrls() const { return m_openedUrls; }

    // Starts a model server on 127.0.0.1 whose model list answers with this HTTP status;
    // returns its base address.
    Q_INVOKABLE QString startModelServer(int status);
    // A base address on 127.0.0.1 that takes requests and never answers them.
    Q_INVOKABLE QString startSilentServer();
    // Requests the model server received ("GET /api/tags", …).
    Q_INVOKABLE QStringList modelServerRequests() const;

    // Runs the real ssh-keygen with these arguments; its exit code, or -1.
    Q_INVOKABLE int runSSHKeygen(const QStringList& arguments) const;

public slots:
    void openUrl(const QUrl& url);

private:
    QString homeFile(const QString& relative) const;

    ProfileManager& m_manager;
    QStringList m_openedUrls;
    std::unique_ptr<LocalHttpServer> m_server;
    std::unique_ptr<QTcpServer> m_silentServer;
};
