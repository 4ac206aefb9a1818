#pragma once

#include <QDBusConnection>
#include <QList>
#include <QString>
#include <QVariant>

#include <optional>
#include <utility>

// What a StatusNotifierItem host sees of the tray item on the session bus, and what it
// sends: the item's properties, its exported menu (dbusmenu), Activate and menu clicks.
class StatusNotifierClient {
public:
    struct MenuEntry {
        int id = 0;
        QString label;
    };

    explicit StatusNotifierClient(const QString& busConnectionName);

    // The first registered item, as (bus name, object path).
    std::optional<std::pair<QString, QString>> item() const;
    QVariant property(const QString& name) const;
    // The menu's entries with a label, depth first.
    QList<MenuEntry> menu() const;
    QStringList menuLabels() const;
    // A left click on the item, as the host reports it.
    bool activate(int x, int y) const;
    // Chooses the menu entry with this label.
    bool clickMenuEntry(const QString& label) const;

private:
    QDBusConnection bus() const { return QDBusConnection(m_busName); }
    QString m_busName;
};
