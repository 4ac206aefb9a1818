// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

// One release announced by the update feed.
struct AppcastItem {
    QString title;
    QString version;            // sparkle:version; what is compared with the running version
    QString shortVersionString; // sparkle:shortVersionString; the version shown, when present
    QString releaseNotes;       // the item's description, often HTML
    QUrl releaseNotesLink;      // sparkle:releaseNotesLink
    QUrl link;                  // the release's web page
    QUrl enclosureUrl;          // the file to download
    QString pubDate;            // as written in the feed

    QString displayVersion() const
    {
        return shortVersionString.isEmpty() ? version : shortVersionString;
    }
    // Where "Download" leads: the release page, or else the file itself.
    QUrl downloadUrl() const { return link.isEmpty() ? enclosureUrl : link; }

    friend bool operator==(const AppcastItem&, const AppcastItem&) = default;
};

// Reads an appcast: an RSS 2.0 document whose items carry the "sparkle" namespace's
// version elements and attributes.
class Appcast {
public:
    static inline const QString sparkleNamespace =
        QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");

    // The releases of the feed, in document order. Items without a version are not
    // releases and are left out. Relative addresses are resolved against `feedUrl`; only
    // http and https addresses are kept. On failure returns nothing and puts the reason,
    // a sentence for the user, into `error`.
    static std::optional<QList<AppcastItem>> parse(const QByteArray& document, const QUrl& feedUrl,
                                                   QString* error);

    // The newest release that is newer than `currentVersion`, if any, wherever it stands
    // in the list.
    static std::optional<AppcastItem> newestUpdate(const QList<AppcastItem>& items,
                                                   const QString& currentVersion);
};
