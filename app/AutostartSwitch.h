// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>

// "Start at Login" as a switch the tray menu shows: whether the autostart entry is in place,
// switching it on and off, and what went wrong when a switch failed. The entry can also be
// changed from outside (the command line, the desktop's own settings), so the menu calls
// refresh() before it shows.
class AutostartSwitch : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool enabled READ enabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    explicit AutostartSwitch(QObject* parent = nullptr);

    bool enabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    // The sentence for the last switch that failed; empty after one that worked.
    QString errorMessage() const { return m_errorMessage; }

    // Reads the entry again.
    void refresh();

signals:
    void enabledChanged();
    void errorMessageChanged();
    // A switch the user asked for could not be made; `message` says why.
    void failed(const QString& message);

private:
    void setErrorMessage(const QString& message);

    bool m_enabled;
    QString m_errorMessage;
};
