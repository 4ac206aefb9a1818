#pragma once

#include <QFont>
#include <QJSEngine>
#include <QObject>
#include <QQmlEngine>

// The desktop's interface font, from which the theme derives its type scale.
class SystemFont : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(QFont font READ font NOTIFY fontChanged)

public:
    explicit SystemFont(QObject* parent);
    static SystemFont* create(QQmlEngine*, QJSEngine*);

    QFont font() const;

signals:
    void fontChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
