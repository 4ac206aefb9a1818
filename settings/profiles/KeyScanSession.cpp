// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "settings/profiles/KeyScanSession.h"

#include "activation/ProfileManager.h"
#include "activation/SSHKeyScanner.h"
#include "app/KivoraApp.h"

#include <QQmlEngine>

KeyScanSession::KeyScanSession(QObject* parent) : QObject(parent) {}

KeyScanSession::KeyScanSession(const QString& home, QObject* parent) : QObject(parent), m_home(home)
{
}

void KeyScanSession::classBegin()
{
    m_home = KivoraApp::from(qmlEngine(this)).profileManager().home();
}

void KeyScanSession::scan()
{
    m_keys = SSHKeyScanner::scanSorted(m_home);
    m_currentIndex = 0;
    m_isScanning = false;
    emit stepChanged();
}

void KeyScanSession::nextKey()
{
    setGitName(QString());
    setGitEmail(QString());
    ++m_currentIndex;
    emit stepChanged();
}

void KeyScanSession::addCurrentKey()
{
    if (!isAsking()) {
        return;
    }
    m_entries.append({currentKey(), m_gitName, m_gitEmail});
    emit profilesChanged();
    nextKey();
}

bool KeyScanSession::isAsking() const
{
    return !m_isScanning && m_currentIndex < m_keys.size();
}

bool KeyScanSession::isComplete() const
{
    return !m_isScanning && !isAsking();
}

QString KeyScanSession::currentKey() const
{
    return isAsking() ? m_keys.at(m_currentIndex) : QString();
}

void KeyScanSession::setGitName(const QString& name)
{
    if (m_gitName != name) {
        m_gitName = name;
        emit gitNameChanged();
    }
}

void KeyScanSession::setGitEmail(const QString& email)
{
    if (m_gitEmail != email) {
        m_gitEmail = email;
        emit gitEmailChanged();
    }
}

QVariantList KeyScanSession::profiles() const
{
    QVariantList list;
    for (const ScannedKey& entry : m_entries) {
        list << QVariant::fromValue(entry);
    }
    return list;
}

QString KeyScanSession::createdText() const
{
    const qsizetype count = m_entries.size();
    return tr("%n profile(s) created", nullptr, int(count));
}
