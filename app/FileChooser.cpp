// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/FileChooser.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QWindow>

namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString chooserInterface = QStringLiteral("org.freedesktop.portal.FileChooser");
const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

// Starting the portal and its backend on first use can take a while on a busy machine.
constexpr int callTimeoutMs = 30000;

// Pattern rules of a portal filter: 0 is a glob, 1 a MIME type.
constexpr uint globRule = 0;

QByteArray nulTerminatedPath(const QUrl& folder)
{
    if (!folder.isLocalFile()) {
        return {};
    }
    QByteArray bytes = QFile::encodeName(folder.toLocalFile());
    bytes.append('\0');
    return bytes;
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const FileChooser::Filter& filter)
{
    argument.beginStructure();
    argument << filter.name;
    argument.beginArray(QMetaType::fromType<std::pair<uint, QString>>());
    for (const QString& pattern : filter.patterns) {
        argument.beginStructure();
        argument << globRule << pattern;
        argument.endStructure();
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, FileChooser::Filter& filter)
{
    filter = {};
    argument.beginStructure();
    argument >> filter.name;
    argument.beginArray();
    while (!argument.atEnd()) {
        uint type = 0;
        QString pattern;
        argument.beginStructure();
        argument >> type >> pattern;
        argument.endStructure();
        if (type == globRule) {
            filter.patterns << pattern;
        }
    }
    argument.endArray();
    argument.endStructure();
    return argument;
}

FileChooser::FileChooser(QObject* parent) : QObject(parent)
{
    qDBusRegisterMetaType<std::pair<uint, QString>>();
    qDBusRegisterMetaType<FileChooser::Filter>();
    qDBusRegisterMetaType<QList<FileChooser::Filter>>();
}

FileChooser::Filter FileChooser::parseNameFilter(const QString& nameFilter)
{
    static const QRegularExpression form(QStringLiteral(R"(^\s*(.*?)\s*\(([^()]*)\)\s*$)"));
    const QRegularExpressionMatch match = form.match(nameFilter);
    if (!match.hasMatch()) {
        return {nameFilter.trimmed(), nameFilter.split(QLatin1Char(' '), Qt::SkipEmptyParts)};
    }
    return {match.captured(1), match.captured(2).split(QLatin1Char(' '), Qt::SkipEmptyParts)};
}

QString FileChooser::parentIdentifier(QWindow* window)
{
    if (!window || !window->handle()) {
        return {};
    }
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        return QStringLiteral("x11:") + QString::number(window->winId(), 16);
    }
    return {};
}

QString FileChooser::localPath(const QUrl& file)
{
    // Qt's own dialog may hand back a bare path rather than a file: address.
    if (file.isLocalFile()) {
        return file.toLocalFile();
    }
    return file.scheme().isEmpty() ? file.path() : QString();
}

QUrl FileChooser::withDefaultSuffix(const QUrl& file, const QString& suffix)
{
    const QString path = localPath(file);
    if (path.isEmpty()) {
        return file;
    }
    const QString name = QFileInfo(path).fileName();
    // A leading dot makes a hidden file, not an extension: ".profiles" gets one too.
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    if (name.isEmpty() || dot > 0) {
        return QUrl::fromLocalFile(path);
    }
    return QUrl::fromLocalFile(path + QLatin1Char('.') + suffix);
}

bool FileChooser::exists(const QUrl& file)
{
    const QString path = localPath(file);
    return !path.isEmpty() && QFileInfo::exists(path);
}

QString FileChooser::fileName(const QUrl& file)
{
    const QString path = localPath(file);
    return path.isEmpty() ? file.fileName() : QFileInfo(path).fileName();
}

void FileChooser::saveFile(QWindow* parent, const QString& title, const QString& acceptLabel,
                           const QString& suggestedName, const QUrl& folder,
                           const QString& nameFilter)
{
    const Filter filter = parseNameFilter(nameFilter);
    QVariantMap options{
        {QStringLiteral("accept_label"), acceptLabel},
        {QStringLiteral("modal"), true},
        {QStringLiteral("current_name"), suggestedName},
        {QStringLiteral("filters"), QVariant::fromValue(QList<Filter>{filter})},
        {QStringLiteral("current_filter"), QVariant::fromValue(filter)},
    };
    const QByteArray folderBytes = nulTerminatedPath(folder);
    if (!folderBytes.isEmpty()) {
        options.insert(QStringLiteral("current_folder"), folderBytes);
    }
    request(QStringLiteral("SaveFile"), parent, title, options);
}

void FileChooser::openFile(QWindow* parent, const QString& title, const QString& acceptLabel,
                           const QUrl& folder, const QString& nameFilter)
{
    const Filter filter = parseNameFilter(nameFilter);
    QVariantMap options{
        {QStringLiteral("accept_label"), acceptLabel},
        {QStringLiteral("modal"), true},
        {QStringLiteral("multiple"), false},
        {QStringLiteral("filters"), QVariant::fromValue(QList<Filter>{filter})},
        {QStringLiteral("current_filter"), QVariant::fromValue(filter)},
    };
    const QByteArray folderBytes = nulTerminatedPath(folder);
    if (!folderBytes.isEmpty()) {
        options.insert(QStringLiteral("current_folder"), folderBytes);
    }
    request(QStringLiteral("OpenFile"), parent, title, options);
}

void FileChooser::request(const QString& method, QWindow* parent, const QString& title,
                          QVariantMap options)
{
    if (busy()) {
        return;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        emit unavailable();
        return;
    }

    // The reply names the request object whose Response signal carries the answer. The
    // object's path is predictable from our bus name and a token of ours, so we listen
    // before calling: a fast answer cannot slip by.
    const QString token = QStringLiteral("kivora%1")
                              .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
    options.insert(QStringLiteral("handle_token"), token);
    QString sender = bus.baseService();
    sender.remove(0, 1).replace(QLatin1Char('.'), QLatin1Char('_'));
    watch(portalPath + QStringLiteral("/request/") + sender + QLatin1Char('/') + token);

    QDBusMessage call =
        QDBusMessage::createMethodCall(portalService, portalPath, chooserInterface, method);
    call << parentIdentifier(parent) << title << options;
    m_calling = true;
    emit busyChanged();
    auto* pending = new QDBusPendingCallWatcher(bus.asyncCall(call, callTimeoutMs), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                m_calling = false;
                const QDBusPendingReply<QDBusObjectPath> reply = *finished;
                if (reply.isError()) {
                    // No portal, or one without a file chooser backend.
                    unwatch();
                    emit busyChanged();
                    emit unavailable();
                    return;
                }
                // Older portals choose the path themselves.
                const QString path = reply.value().path();
                if (path != m_requestPath) {
                    unwatch();
                    watch(path);
                }
                emit busyChanged();
            });
}

void FileChooser::watch(const QString& path)
{
    m_requestPath = path;
    // From any sender: the portal may have been started by this very request, and a
    // subscription to a name nobody owned yet would miss its answer.
    QDBusConnection::sessionBus().connect(QString(), path, requestInterface,
                                          QStringLiteral("Response"), this,
                                          SLOT(onResponse(uint, QVariantMap)));
}

void FileChooser::unwatch()
{
    if (m_requestPath.isEmpty()) {
        return;
    }
    QDBusConnection::sessionBus().disconnect(QString(), m_requestPath, requestInterface,
                                             QStringLiteral("Response"), this,
                                             SLOT(onResponse(uint, QVariantMap)));
    m_requestPath.clear();
}

void FileChooser::onResponse(uint response, const QVariantMap& results)
{
    unwatch();
    emit busyChanged();
    // 0: chosen; 1: cancelled by the user; 2: ended otherwise.
    const QStringList uris = results.value(QStringLiteral("uris")).toStringList();
    if (response == 0 && !uris.isEmpty()) {
        emit accepted(QUrl(uris.first()));
    } else {
        emit rejected();
    }
}
