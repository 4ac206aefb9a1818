// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFont>
#include <QObject>

// The desktop's interface font, from which the theme derives its type scale.
class SystemFont : public QObject {
    Q_OBJECT
    Q_PROPERTY(QFont font READ font NOTIFY fontChanged)

public:
    explicit SystemFont(QObject* parent = nullptr);

    QFont font() const;

signals:
    void fontChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
