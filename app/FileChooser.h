// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusArgument>
#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QVariantMap>
#include <QWindow>
#include <QtQml/qqmlregistration.h>

// The desktop's own file chooser, through the XDG desktop portal
// (org.freedesktop.portal.FileChooser): the dialog the rest of the desktop uses, in its theme
// and with its bookmarks. Every request ends in exactly one of accepted(), rejected() or
// unavailable(); the last means there is no portal (or it has no file chooser) and the
// caller shows Qt's own dialog instead.
class FileChooser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool busy READ busy NOTIFY busyChanged)

public:
    // One name filter of the portal: a name and its glob patterns.
    struct Filter {
        QString name;
        QStringList patterns;
    };

    explicit FileChooser(QObject* parent = nullptr);

    bool busy() const { return !m_requestPath.isEmpty() || m_calling; }

    // Asks for a file to write, suggesting `suggestedName` in `folder`. `nameFilter` is in
    // Qt's form, "JSON files (*.json)".
    Q_INVOKABLE void saveFile(QWindow* parent, const QString& title, const QString& acceptLabel,
                              const QString& suggestedName, const QUrl& folder,
                              const QString& nameFilter);
    // Asks for an existing file to read.
    Q_INVOKABLE void openFile(QWindow* parent, const QString& title, const QString& acceptLabel,
                              const QUrl& folder, const QString& nameFilter);

    // The file with ".<suffix>" added when its name has no extension at all ("profiles" →
    // "profiles.json"; "profiles.backup" and ".json" stay as they are).
    static QUrl withDefaultSuffix(const QUrl& file, const QString& suffix);
    // The same three for QML, which calls them through an instance.
    Q_INVOKABLE QUrl addingDefaultSuffix(const QUrl& file, const QString& suffix) const
    {
        return withDefaultSuffix(file, suffix);
    }
    Q_INVOKABLE bool fileExists(const QUrl& file) const { return exists(file); }
    Q_INVOKABLE QString nameOf(const QUrl& file) const { return fileName(file); }
    static bool exists(const QUrl& file);
    static QString fileName(const QUrl& file);
    // The local path a file: address (or a bare path) stands for; empty for anything else.
    static QString localPath(const QUrl& file);

    // "JSON files (*.json)" → {"JSON files", {"*.json"}}.
    static Filter parseNameFilter(const QString& nameFilter);
    // The portal's identifier of a window: "x11:<id in hex>" on X11, empty elsewhere (a
    // Wayland window needs an exported handle, which Qt 6.4 does not offer; the dialog then
    // simply has no parent).
    static QString parentIdentifier(QWindow* window);

signals:
    void accepted(const QUrl& file);
    void rejected();
    void unavailable();
    void busyChanged();

private slots:
    void onResponse(uint response, const QVariantMap& results);

private:
    void request(const QString& method, QWindow* parent, const QString& title, QVariantMap options);
    void watch(const QString& path);
    void unwatch();

    QString m_requestPath;
    bool m_calling = false;
};

Q_DECLARE_METATYPE(FileChooser::Filter)

QDBusArgument& operator<<(QDBusArgument& argument, const FileChooser::Filter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, FileChooser::Filter& filter);
