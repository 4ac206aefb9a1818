#include "StatusNotifierClient.h"

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

// A dbusmenu layout node (ia{sv}av), depth first.
void readLayout(const QDBusArgument& argument, QList<StatusNotifierClient::MenuEntry>& entries)
{
    int id = 0;
    QVariantMap properties;
    argument.beginStructure();
    argument >> id >> properties;
    if (properties.contains(QStringLiteral("label"))) {
        entries << StatusNotifierClient::MenuEntry{
            id, properties.value(QStringLiteral("label")).toString()};
    }
    argument.beginArray();
    while (!argument.atEnd()) {
        QDBusVariant child;
        argument >> child;
        readLayout(child.variant().value<QDBusArgument>(), entries);
    }
    argument.endArray();
    argument.endStructure();
}

} // namespace

StatusNotifierClient::StatusNotifierClient(const QString& busConnectionName)
    : m_busName(busConnectionName)
{
}

std::optional<std::pair<QString, QString>> StatusNotifierClient::item() const
{
    QDBusInterface watcher(watcherService, QStringLiteral("/StatusNotifierWatcher"), watcherService,
                           bus());
    const QStringList items = watcher.property("RegisteredStatusNotifierItems").toStringList();
    for (const QString& entry : items) {
        // "service/path", or a bare service with the conventional path.
        const qsizetype slash = entry.indexOf(QLatin1Char('/'));
        if (slash < 0) {
            return std::pair{entry, QStringLiteral("/StatusNotifierItem")};
        }
        return std::pair{entry.left(slash), entry.mid(slash)};
    }
    return std::nullopt;
}

QVariant StatusNotifierClient::property(const QString& name) const
{
    const auto registered = item();
    if (!registered) {
        return {};
    }
    QDBusMessage get = QDBusMessage::createMethodCall(
        registered->first, registered->second, QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    get << itemInterface << name;
    const QDBusMessage reply = bus().call(get);
    if (reply.arguments().isEmpty()) {
        return {};
    }
    return reply.arguments().first().value<QDBusVariant>().variant();
}

QList<StatusNotifierClient::MenuEntry> StatusNotifierClient::menu() const
{
    QList<MenuEntry> entries;
    const auto registered = item();
    const QString menuPath = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
    if (!registered || menuPath.isEmpty()) {
        return entries;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(registered->first, menuPath, menuInterface,
                                                       QStringLiteral("GetLayout"));
    call << 0 << -1 << QStringList();
    const QDBusMessage reply = bus().call(call);
    if (reply.arguments().size() < 2) {
        return entries;
    }
    readLayout(reply.arguments().at(1).value<QDBusArgument>(), entries);
    return entries;
}

QStringList StatusNotifierClient::menuLabels() const
{
    QStringList labels;
    for (const MenuEntry& entry : menu()) {
        if (!entry.label.isEmpty()) {
            labels << entry.label;
        }
    }
    return labels;
}

bool StatusNotifierClient::activate(int x, int y) const
{
    const auto registered = item();
    if (!registered) {
        return false;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(registered->first, registered->second,
                                                       itemInterface, QStringLiteral("Activate"));
    call << x << y;
    return bus().call(call).type() == QDBusMessage::ReplyMessage;
}

bool StatusNotifierClient::clickMenuEntry(const QString& label) const
{
    const auto registered = item();
    const QString menuPath = property(QStringLiteral("Menu")).value<QDBusObjectPath>().path();
    if (!registered || menuPath.isEmpty()) {
        return false;
    }
    for (const MenuEntry& entry : menu()) {
        if (entry.label == label) {
            QDBusMessage event = QDBusMessage::createMethodCall(
                registered->first, menuPath, menuInterface, QStringLiteral("Event"));
            event << entry.id << QStringLiteral("clicked") << QVariant::fromValue(QDBusVariant(0))
                  << 0u;
            return bus().call(event).type() == QDBusMessage::ReplyMessage;
        }
    }
    return false;
}
