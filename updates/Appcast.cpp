// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"

#include "updates/VersionComparator.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

namespace {

QUrl webAddress(const QString& text, const QUrl& base)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty()) {
        return {};
    }
    const QUrl url = base.resolved(QUrl(trimmed));
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || (scheme != u"http" && scheme != u"https")) {
        return {};
    }
    return url;
}

QString sparkleAttribute(const QXmlStreamAttributes& attributes, QLatin1String name)
{
    return attributes.value(Appcast::sparkleNamespace, name).toString().trimmed();
}

void readEnclosure(QXmlStreamReader& xml, const QUrl& base, AppcastItem& item)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    item.enclosureUrl = webAddress(attributes.value(QLatin1String("url")).toString(), base);
    // A version element of the item wins over the enclosure's attribute.
    if (item.version.isEmpty()) {
        item.version = sparkleAttribute(attributes, QLatin1String("version"));
    }
    if (item.shortVersionString.isEmpty()) {
        item.shortVersionString = sparkleAttribute(attributes, QLatin1String("shortVersionString"));
    }
    xml.skipCurrentElement();
}

AppcastItem readItem(QXmlStreamReader& xml, const QUrl& base)
{
    AppcastItem item;
    QString elementVersion;
    QString elementShortVersion;
    while (xml.readNextStartElement()) {
        const QStringView name = xml.name();
        if (xml.namespaceUri().isEmpty()) {
            if (name == u"title") {
                item.title = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            } else if (name == u"description") {
                item.releaseNotes =
                    xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            } else if (name == u"link") {
                item.link = webAddress(xml.readElementText(), base);
            } else if (name == u"pubDate") {
                item.pubDate = xml.readElementText().trimmed();
            } else if (name == u"enclosure") {
                readEnclosure(xml, base, item);
            } else {
                xml.skipCurrentElement();
            }
        } else if (xml.namespaceUri() == Appcast::sparkleNamespace) {
            if (name == u"version") {
                elementVersion = xml.readElementText().trimmed();
            } else if (name == u"shortVersionString") {
                elementShortVersion = xml.readElementText().trimmed();
            } else if (name == u"releaseNotesLink") {
                item.releaseNotesLink = webAddress(xml.readElementText(), base);
            } else {
                xml.skipCurrentElement();
            }
        } else {
            xml.skipCurrentElement();
        }
    }
    if (!elementVersion.isEmpty()) {
        item.version = elementVersion;
    }
    if (!elementShortVersion.isEmpty()) {
        item.shortVersionString = elementShortVersion;
    }
    return item;
}

} // namespace

std::optional<QList<AppcastItem>> Appcast::parse(const QByteArray& document, const QUrl& feedUrl,
                                                 QString* error)
{
    const auto fail = [error](const QString& message) -> std::optional<QList<AppcastItem>> {
        if (error) {
            *error = message;
        }
        return std::nullopt;
    };
    if (document.trimmed().isEmpty()) {
        return fail(QCoreApplication::translate("Appcast", "The update feed is empty."));
    }

    QXmlStreamReader xml(document);
    if (xml.readNextStartElement() && (xml.name() != u"rss" || !xml.namespaceUri().isEmpty())) {
        return fail(QCoreApplication::translate("Appcast", "The update feed is not an RSS feed."));
    }
    QList<AppcastItem> items;
    while (!xml.atEnd() && !xml.hasError()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"item" &&
            xml.namespaceUri().isEmpty()) {
            AppcastItem item = readItem(xml, feedUrl);
            if (!item.version.isEmpty()) {
                items.append(std::move(item));
            }
        }
    }
    if (xml.hasError()) {
        return fail(QCoreApplication::translate(
                        "Appcast", "The update feed is not valid XML: %1 (line %2, column %3).")
                        .arg(xml.errorString())
                        .arg(xml.lineNumber())
                        .arg(xml.columnNumber()));
    }
    if (error) {
        error->clear();
    }
    return items;
}

std::optional<AppcastItem> Appcast::newestUpdate(const QList<AppcastItem>& items,
                                                 const QString& currentVersion)
{
    std::optional<AppcastItem> newest;
    for (const AppcastItem& item : items) {
        if (!VersionComparator::isNewer(item.version, currentVersion)) {
            continue;
        }
        if (!newest || VersionComparator::isNewer(item.version, newest->version)) {
            newest = item;
        }
    }
    return newest;
}
