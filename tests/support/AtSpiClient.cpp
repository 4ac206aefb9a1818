// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "AtSpiClient.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QThread>
#include <QUuid>

namespace {

const QString accessibleInterface = QStringLiteral("org.a11y.atspi.Accessible");
const QString actionInterface = QStringLiteral("org.a11y.atspi.Action");
const QString componentInterface = QStringLiteral("org.a11y.atspi.Component");
const QString textInterface = QStringLiteral("org.a11y.atspi.Text");
const QString editableTextInterface = QStringLiteral("org.a11y.atspi.EditableText");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString registry = QStringLiteral("org.a11y.atspi.Registry");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString nullPath = QStringLiteral("/org/a11y/atspi/null");

constexpr int callTimeoutMs = 10000;

// AT-SPI's state numbers (AtspiStateType), by their names.
const char* const stateNames[] = {
    "invalid",         "active",
    "armed",           "busy",
    "checked",         "collapsed",
    "defunct",         "editable",
    "enabled",         "expandable",
    "expanded",        "focusable",
    "focused",         "has-tooltip",
    "horizontal",      "iconified",
    "modal",           "multi-line",
    "multiselectable", "opaque",
    "pressed",         "resizable",
    "selectable",      "selected",
    "sensitive",       "showing",
    "single-line",     "stale",
    "transient",       "vertical",
    "visible",         "manages-descendants",
    "indeterminate",   "required",
    "truncated",       "animated",
    "invalid-entry",   "supports-autocompletion",
    "selectable-text", "is-default",
    "visited",         "checkable",
    "has-popup",       "read-only",
};

AtSpiClient::Node readReference(const QDBusArgument& argument)
{
    AtSpiClient::Node node;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> node.service >> path;
    argument.endStructure();
    node.path = path.path();
    return node;
}

AtSpiClient::Node referenceFrom(const QVariant& value)
{
    if (value.canConvert<QDBusArgument>()) {
        return readReference(value.value<QDBusArgument>());
    }
    return {};
}

} // namespace

AtSpiClient::AtSpiClient(const QString& sessionBus)
{
    QDBusConnection session(sessionBus);
    if (!session.isConnected()) {
        m_problem = QStringLiteral("no session bus");
        return;
    }
    // What a screen reader does: switch accessibility on, so that every toolkit exposes
    // its windows, then join the accessibility bus.
    QDBusMessage enable = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), propertiesInterface,
        QStringLiteral("Set"));
    enable << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
           << QVariant::fromValue(QDBusVariant(true));
    session.call(enable, QDBus::Block, callTimeoutMs);

    const QDBusMessage reply =
        session.call(QDBusMessage::createMethodCall(
                         QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                         QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")),
                     QDBus::Block, callTimeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        m_problem = QStringLiteral("the accessibility bus did not start: ") + reply.errorMessage();
        return;
    }
    const QString address = reply.arguments().first().toString();
    m_busName = QStringLiteral("kivora-test-a11y-") + QUuid::createUuid().toString(QUuid::Id128);
    m_connected = QDBusConnection::connectToBus(address, m_busName).isConnected();
    if (!m_connected) {
        m_problem = QStringLiteral("cannot connect to the accessibility bus at ") + address;
    }
}

AtSpiClient::~AtSpiClient()
{
    if (!m_busName.isEmpty()) {
        QDBusConnection::disconnectFromBus(m_busName);
    }
}

QDBusMessage AtSpiClient::call(const Node& node, const QString& interface, const QString& method,
                               const QVariantList& arguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(node.service, node.path, interface, method);
    message.setArguments(arguments);
    return QDBusConnection(m_busName).call(message, QDBus::Block, callTimeoutMs);
}

QVariant AtSpiClient::property(const Node& node, const QString& interface,
                               const QString& name) const
{
    const QDBusMessage reply =
        call(node, propertiesInterface, QStringLiteral("Get"), {interface, name});
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return {};
    }
    return reply.arguments().first().value<QDBusVariant>().variant();
}

QList<AtSpiClient::Node> AtSpiClient::applications() const
{
    return children(Node{registry, rootPath});
}

std::optional<AtSpiClient::Node> AtSpiClient::waitForApplication(const QString& name,
                                                                 int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        for (const Node& application : applications()) {
            if (this->name(application) == name) {
                return application;
            }
        }
        QThread::msleep(200);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

QString AtSpiClient::name(const Node& node) const
{
    return property(node, accessibleInterface, QStringLiteral("Name")).toString();
}

QString AtSpiClient::description(const Node& node) const
{
    return property(node, accessibleInterface, QStringLiteral("Description")).toString();
}

QString AtSpiClient::roleName(const Node& node) const
{
    const QDBusMessage reply = call(node, accessibleInterface, QStringLiteral("GetRoleName"));
    return reply.arguments().isEmpty() ? QString() : reply.arguments().first().toString();
}

QList<AtSpiClient::Node> AtSpiClient::children(const Node& node) const
{
    QList<Node> result;
    const QDBusMessage reply = call(node, accessibleInterface, QStringLiteral("GetChildren"));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return result;
    }
    const QDBusArgument list = reply.arguments().first().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        const Node child = readReference(list);
        if (child.isValid() && child.path != nullPath) {
            result << child;
        }
    }
    list.endArray();
    return result;
}

AtSpiClient::Node AtSpiClient::parent(const Node& node) const
{
    return referenceFrom(property(node, accessibleInterface, QStringLiteral("Parent")));
}

QStringList AtSpiClient::states(const Node& node) const
{
    QStringList names;
    const QDBusMessage reply = call(node, accessibleInterface, QStringLiteral("GetState"));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return names;
    }
    QList<uint> words;
    const QVariant value = reply.arguments().first();
    if (value.canConvert<QDBusArgument>()) {
        value.value<QDBusArgument>() >> words;
    } else {
        words = value.value<QList<uint>>();
    }
    for (int word = 0; word < words.size(); ++word) {
        for (int bit = 0; bit < 32; ++bit) {
            if (words.at(word) & (1u << bit)) {
                const int state = word * 32 + bit;
                names << (state < int(std::size(stateNames))
                              ? QString::fromLatin1(stateNames[state])
                              : QStringLiteral("state-%1").arg(state));
            }
        }
    }
    return names;
}

bool AtSpiClient::hasState(const Node& node, const QString& state) const
{
    return states(node).contains(state);
}

std::optional<AtSpiClient::Node> AtSpiClient::find(const Node& root,
                                                   const std::function<bool(const Node&)>& matches,
                                                   int maxDepth) const
{
    if (matches(root)) {
        return root;
    }
    if (maxDepth <= 0) {
        return std::nullopt;
    }
    for (const Node& child : children(root)) {
        if (auto found = find(child, matches, maxDepth - 1)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<AtSpiClient::Node> AtSpiClient::find(const Node& root, const QString& role,
                                                   const QString& name) const
{
    return find(root, [&](const Node& node) {
        return (name.isEmpty() || this->name(node) == name) &&
               (role.isEmpty() || roleName(node) == role);
    });
}

QList<AtSpiClient::Node> AtSpiClient::findAll(const Node& root, const QString& role,
                                              const QString& name) const
{
    QList<Node> found;
    find(root, [&](const Node& node) {
        if ((name.isEmpty() || this->name(node) == name) &&
            (role.isEmpty() || roleName(node) == role)) {
            found << node;
        }
        return false;
    });
    return found;
}

std::optional<AtSpiClient::Node> AtSpiClient::waitFor(const Node& root, const QString& role,
                                                      const QString& name, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        if (auto found = find(root, role, name)) {
            return found;
        }
        QThread::msleep(200);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

std::optional<AtSpiClient::Node>
AtSpiClient::waitForWindow(const Node& application, const QString& title, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        for (const Node& window : children(application)) {
            if (name(window) == title && hasState(window, QStringLiteral("visible"))) {
                return window;
            }
        }
        QThread::msleep(200);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

std::optional<AtSpiClient::Node>
AtSpiClient::waitForAnywhere(const QString& role, const QString& name, int timeoutMs) const
{
    QElapsedTimer waited;
    waited.start();
    do {
        for (const Node& application : applications()) {
            if (auto found = find(application, role, name)) {
                return found;
            }
        }
        QThread::msleep(200);
    } while (waited.elapsed() < timeoutMs);
    return std::nullopt;
}

QStringList AtSpiClient::actions(const Node& node) const
{
    QStringList names;
    const QDBusMessage reply = call(node, actionInterface, QStringLiteral("GetActions"));
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return names;
    }
    const QDBusArgument list = reply.arguments().first().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString description;
        QString keys;
        list.beginStructure();
        list >> name >> description >> keys;
        list.endStructure();
        names << name;
    }
    list.endArray();
    return names;
}

bool AtSpiClient::doAction(const Node& node, const QString& action) const
{
    const QStringList names = actions(node);
    int index = action.isEmpty() && !names.isEmpty() ? 0 : -1;
    for (int i = 0; index < 0 && i < names.size(); ++i) {
        if (names.at(i).compare(action, Qt::CaseInsensitive) == 0) {
            index = i;
        }
    }
    if (index < 0) {
        return false;
    }
    const QDBusMessage reply = call(node, actionInterface, QStringLiteral("DoAction"), {index});
    return reply.type() == QDBusMessage::ReplyMessage;
}

bool AtSpiClient::press(const Node& node) const
{
    const QStringList names = actions(node);
    for (const QString& wanted : {QStringLiteral("press"), QStringLiteral("click"),
                                  QStringLiteral("activate"), QStringLiteral("toggle")}) {
        for (const QString& name : names) {
            if (name.compare(wanted, Qt::CaseInsensitive) == 0) {
                return doAction(node, name);
            }
        }
    }
    return false;
}

QRect AtSpiClient::extents(const Node& node) const
{
    // Coordinate type 0: the screen.
    const QDBusMessage reply =
        call(node, componentInterface, QStringLiteral("GetExtents"), {QVariant::fromValue(0u)});
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return {};
    }
    int x = 0, y = 0, width = 0, height = 0;
    const QDBusArgument box = reply.arguments().first().value<QDBusArgument>();
    box.beginStructure();
    box >> x >> y >> width >> height;
    box.endStructure();
    return QRect(x, y, width, height);
}

QString AtSpiClient::text(const Node& node) const
{
    const QDBusMessage reply = call(node, textInterface, QStringLiteral("GetText"), {0, -1});
    return reply.arguments().isEmpty() ? QString() : reply.arguments().first().toString();
}

bool AtSpiClient::setText(const Node& node, const QString& text) const
{
    const QDBusMessage reply =
        call(node, editableTextInterface, QStringLiteral("SetTextContents"), {text});
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
           reply.arguments().first().toBool();
}

bool AtSpiClient::grabFocus(const Node& node) const
{
    const QDBusMessage reply = call(node, componentInterface, QStringLiteral("GrabFocus"));
    return reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty() &&
           reply.arguments().first().toBool();
}

QString AtSpiClient::dump(const Node& root, int maxDepth) const
{
    QString out;
    dumpInto(root, 0, maxDepth, out);
    return out;
}

void AtSpiClient::dumpInto(const Node& node, int depth, int maxDepth, QString& out) const
{
    out += QString(depth * 2, QLatin1Char(' ')) + u'[' + roleName(node) + QStringLiteral("] \"") +
           name(node) + QStringLiteral("\" {") + states(node).join(u',') + QStringLiteral("}\n");
    if (depth >= maxDepth) {
        return;
    }
    for (const Node& child : children(node)) {
        dumpInto(child, depth + 1, maxDepth, out);
    }
}
