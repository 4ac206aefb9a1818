// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

namespace {

// Modules a Qt module names for other platforms only: no Debian package can hold them.
const QStringList otherPlatforms{QStringLiteral("QtQuick.Controls.Windows"),
                                 QStringLiteral("QtQuick.Controls.macOS"),
                                 QStringLiteral("QtQuick.Controls.iOS")};

// Plugins Qt loads by name at run time, which no import and no shared-library scan shows:
// the display platforms (X11; Wayland, for sessions without XWayland) and the SVG image
// and icon plugins (the logo, the symbols, the window and tray icons).
const QStringList runtimePlugins{
    QStringLiteral("platforms/libqxcb.so"), QStringLiteral("platforms/libqwayland-generic.so"),
    QStringLiteral("imageformats/libqsvg.so"), QStringLiteral("iconengines/libqsvgicon.so")};

QString output(const QString& program, const QStringList& arguments, int* exitCode = nullptr)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(120000);
    if (exitCode) {
        *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The Debian package that installed a file, or an empty text.
QString owner(const QString& file)
{
    int code = -1;
    const QString found = output(QStringLiteral("dpkg-query"), {QStringLiteral("-S"), file}, &code);
    if (code != 0) {
        return {};
    }
    // "qml6-module-qtquick:amd64: /usr/lib/…"
    QString package = found.section(QStringLiteral(": "), 0, 0).trimmed();
    return package.section(QLatin1Char(':'), 0, 0);
}

QSet<QString> dependsOf(const QString& deb)
{
    QSet<QString> packages;
    const QString field =
        output(QStringLiteral("dpkg-deb"), {QStringLiteral("-f"), deb, QStringLiteral("Depends")});
    for (const QString& alternatives : field.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        // "libqt6core6 (>= 6.4.0) | other": every alternative counts as listed.
        for (const QString& alternative : alternatives.split(QLatin1Char('|'))) {
            packages << alternative.trimmed()
                            .section(QLatin1Char(' '), 0, 0)
                            .section(QLatin1Char(':'), 0, 0);
        }
    }
    return packages;
}

} // namespace

// Every QML module the application loads, directly or through another module, and the Qt
// plugins it loads by name, come from Debian packages that the package depends on and that
// scripts/install-deps installs. The imports are derived from the sources by Qt's own
// qmlimportscanner, so a new import is checked the day it is written.
class QmlModuleDepends : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void everyImportIsInstalled();
    void everyNeededPackageIsADependency();
    void everyNeededPackageIsInstalledByInstallDeps();

private:
    QMap<QString, QString> m_needed; // package → what needs it
    QStringList m_unresolved;
};

void QmlModuleDepends::initTestCase()
{
    const QString qmlDir = QStringLiteral(KIVORA_QT_QML_DIR);
    QStringList arguments;
    for (const QString& dir : QStringLiteral(KIVORA_UI_DIRS).split(QLatin1Char(':'))) {
        arguments << QStringLiteral("-rootPath") << QStringLiteral(KIVORA_SOURCE_DIR "/") + dir;
    }
    // QtQuick.Dialogs loads its Qt Quick implementation (the dialog shown without a portal
    // or native dialog) at run time, without importing it.
    arguments << QStringLiteral("-rootPath")
              << qmlDir + QStringLiteral("/QtQuick/Dialogs/quickimpl/qml");
    arguments << QStringLiteral("-importPath") << qmlDir;

    int code = -1;
    const QString scanned = output(QStringLiteral(KIVORA_QMLIMPORTSCANNER), arguments, &code);
    QCOMPARE(code, 0);
    const QJsonArray imports = QJsonDocument::fromJson(scanned.toUtf8()).array();
    QVERIFY2(!imports.isEmpty(), "qmlimportscanner found no imports");

    for (const QJsonValue& value : imports) {
        const QJsonObject entry = value.toObject();
        const QString name = entry.value(QStringLiteral("name")).toString();
        if (entry.value(QStringLiteral("type")).toString() != QLatin1String("module") ||
            name == QLatin1String("Kivora") || otherPlatforms.contains(name)) {
            continue;
        }
        const QString path = entry.value(QStringLiteral("path")).toString();
        const QString package =
            path.isEmpty() ? QString() : owner(path + QStringLiteral("/qmldir"));
        if (package.isEmpty()) {
            m_unresolved << name;
            continue;
        }
        m_needed.insert(package, name);
    }
    const QString plugins = QStringLiteral(KIVORA_QT_PLUGIN_DIR);
    for (const QString& plugin : runtimePlugins) {
        const QString package = owner(plugins + u'/' + plugin);
        if (package.isEmpty()) {
            m_unresolved << plugin;
            continue;
        }
        m_needed.insert(package, plugin);
    }
    QVERIFY(m_needed.contains(QStringLiteral("qml6-module-qtquick")));
}

void QmlModuleDepends::everyImportIsInstalled()
{
    QVERIFY2(m_unresolved.isEmpty(),
             qPrintable(QStringLiteral("imported or loaded but not installed (add the package to "
                                       "scripts/install-deps and the package's Depends): ") +
                        m_unresolved.join(QStringLiteral(", "))));
}

void QmlModuleDepends::everyNeededPackageIsADependency()
{
    const QStringList debs = QDir(qEnvironmentVariable("KIVORA_DEB_DIR"))
                                 .entryList({QStringLiteral("kivora_*.deb")}, QDir::Files);
    QVERIFY2(debs.size() == 1, "no package built (the package_contents test builds it)");
    const QSet<QString> depends =
        dependsOf(qEnvironmentVariable("KIVORA_DEB_DIR") + u'/' + debs.first());
    QVERIFY(!depends.isEmpty());
    QStringList missing;
    for (auto it = m_needed.cbegin(); it != m_needed.cend(); ++it) {
        if (!depends.contains(it.key())) {
            missing << it.key() + QStringLiteral(" (for ") + it.value() + u')';
        }
    }
    QVERIFY2(missing.isEmpty(),
             qPrintable(QStringLiteral("missing from Depends (cmake/KivoraInstall.cmake): ") +
                        missing.join(QStringLiteral(", "))));
}

void QmlModuleDepends::everyNeededPackageIsInstalledByInstallDeps()
{
    int code = -1;
    const QStringList listed = output(QStringLiteral(KIVORA_SOURCE_DIR "/scripts/install-deps"),
                                      {QStringLiteral("--list")}, &code)
                                   .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(code, 0);
    QStringList missing;
    for (auto it = m_needed.cbegin(); it != m_needed.cend(); ++it) {
        if (!listed.contains(it.key())) {
            missing << it.key() + QStringLiteral(" (for ") + it.value() + u')';
        }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(QStringLiteral("missing from scripts/install-deps: ") +
                                           missing.join(QStringLiteral(", "))));
}

QTEST_GUILESS_MAIN(QmlModuleDepends)

#include "tst_QmlModuleDepends.moc"
