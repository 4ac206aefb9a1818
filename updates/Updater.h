// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/Appcast.h"

#include <QDateTime>
#include <QObject>
#include <QSettings>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

// The update controller: reads the update feed (an appcast), tells whether a newer release
// exists and checks on its own at the chosen interval.
//
// Its settings live in the preferences file under the group "updater". The application
// shows a window for every check the user asked for (`checkForUpdates()`) and, after a
// scheduled check, only when an update was found: a scheduled check that fails leaves
// `state` as it was and reports through `backgroundCheckFailed` instead.
class Updater : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool automaticallyChecksForUpdates READ automaticallyChecksForUpdates WRITE
                   setAutomaticallyChecksForUpdates NOTIFY automaticallyChecksForUpdatesChanged)
    Q_PROPERTY(double updateCheckInterval READ updateCheckInterval WRITE setUpdateCheckInterval
                   NOTIFY updateCheckIntervalChanged)
    Q_PROPERTY(
        QDateTime lastUpdateCheckDate READ lastUpdateCheckDate NOTIFY lastUpdateCheckDateChanged)
    Q_PROPERTY(
        bool hasLastUpdateCheckDate READ hasLastUpdateCheckDate NOTIFY lastUpdateCheckDateChanged)
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool lastCheckUserInitiated READ lastCheckUserInitiated NOTIFY
                   lastCheckUserInitiatedChanged)
    Q_PROPERTY(QString availableVersion READ availableVersion NOTIFY updateInfoChanged)
    Q_PROPERTY(QString releaseTitle READ releaseTitle NOTIFY updateInfoChanged)
    Q_PROPERTY(QString releaseNotes READ releaseNotes NOTIFY updateInfoChanged)
    Q_PROPERTY(QUrl releaseNotesUrl READ releaseNotesUrl NOTIFY updateInfoChanged)
    Q_PROPERTY(QUrl downloadUrl READ downloadUrl NOTIFY updateInfoChanged)
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)
    Q_PROPERTY(
        QString backgroundErrorMessage READ backgroundErrorMessage NOTIFY backgroundCheckFailed)
    Q_PROPERTY(QString currentVersion READ currentVersion CONSTANT)

public:
    enum class State { Idle, Checking, UpToDate, UpdateFound, Error };
    Q_ENUM(State)

    using Clock = std::function<QDateTime()>;

    // Keys in the preferences file.
    static inline const char* const automaticallyChecksKey =
        "updater/automaticallyChecksForUpdates";
    static inline const char* const checkIntervalKey = "updater/updateCheckInterval";
    static inline const char* const lastCheckDateKey = "updater/lastUpdateCheckDate";

    static constexpr double defaultCheckInterval = 86400;
    // Shorter intervals are raised to this, so a mistyped setting cannot flood the server.
    static constexpr double minimumCheckInterval = 3600;
    // Larger answers are not feeds; the transfer is stopped.
    static constexpr qint64 maximumFeedBytes = 8 * 1024 * 1024;

    struct Options {
        QString settingsPath;   // empty: the user's preferences file
        QString currentVersion; // empty: the version this program was built as
        // The feed used when KIVORA_UPDATE_FEED_URL is not set; without a value, the
        // address given at build time.
        std::optional<QString> defaultFeedUrl;
        QNetworkAccessManager* network = nullptr; // null: the updater makes its own
        std::chrono::milliseconds transferTimeout{60000};
    };

    explicit Updater(QObject* parent = nullptr);
    explicit Updater(Options options, QObject* parent = nullptr);
    ~Updater() override;

    bool automaticallyChecksForUpdates() const { return m_automaticallyChecks; }
    void setAutomaticallyChecksForUpdates(bool automatic);
    double updateCheckInterval() const { return m_checkInterval; }
    // Ignored unless a positive number of seconds.
    void setUpdateCheckInterval(double seconds);
    // The end of the last completed check, in UTC to the second; invalid before the first.
    QDateTime lastUpdateCheckDate() const { return m_lastCheckDate; }
    bool hasLastUpdateCheckDate() const { return m_lastCheckDate.isValid(); }

    State state() const { return m_state; }
    bool isChecking() const { return m_checking; }
    bool lastCheckUserInitiated() const { return m_userInitiated; }
    QString availableVersion() const { return m_update ? m_update->displayVersion() : QString(); }
    QString releaseTitle() const { return m_update ? m_update->title : QString(); }
    QString releaseNotes() const { return m_update ? m_update->releaseNotes : QString(); }
    QUrl releaseNotesUrl() const { return m_update ? m_update->releaseNotesLink : QUrl(); }
    QUrl downloadUrl() const { return m_update ? m_update->downloadUrl() : QUrl(); }
    const std::optional<AppcastItem>& update() const { return m_update; }
    QString errorMessage() const { return m_errorMessage; }
    QString backgroundErrorMessage() const { return m_backgroundErrorMessage; }
    QString currentVersion() const { return m_currentVersion; }

    // The feed address in use: KIVORA_UPDATE_FEED_URL when set, else the default one.
    // Empty when none is configured.
    Q_INVOKABLE QUrl feedUrl() const;

    // Begins the schedule, once at launch: checks in the background when a check is due,
    // then keeps checking at the interval while automatic checks are on.
    Q_INVOKABLE void start();
    // Checks at once, on the user's request. A check already running becomes the user's.
    Q_INVOKABLE void checkForUpdates();
    // A scheduled check: starts one in the background when automatic checks are on and a
    // check is due. Returns whether it started one.
    bool checkIfDue();

    // When the next automatic check falls due; invalid while automatic checks are off.
    QDateTime nextCheckDate() const;
    bool isCheckDue() const;
    // Whether the schedule's timer is waiting for the next check.
    bool isScheduled() const { return m_timer.isActive(); }

    // The source of "now" for the schedule and the check dates (UTC).
    void setClock(Clock clock) { m_clock = std::move(clock); }

signals:
    void automaticallyChecksForUpdatesChanged();
    void updateCheckIntervalChanged();
    void lastUpdateCheckDateChanged();
    void stateChanged();
    void lastCheckUserInitiatedChanged();
    void updateInfoChanged();
    void errorMessageChanged();
    // A check that was not asked for by the user failed; `state` was left as it was.
    void backgroundCheckFailed(const QString& message);
    // A check ended and its result is published. Always emitted from the event loop,
    // never from inside checkForUpdates() or start().
    void checkFinished(bool userInitiated);

private:
    void loadSettings();
    void store(const char* key, const QVariant& value);
    QDateTime now() const;
    QUrl resolveFeedUrl(QString* problem) const;
    QNetworkAccessManager& network();

    void beginCheck(bool userInitiated);
    void onReplyFinished();
    void finishWithUpdate(std::optional<AppcastItem> update);
    void finishWithError(const QString& message);
    void schedule();
    void onTimer();

    void setState(State state);
    void setUserInitiated(bool userInitiated);
    void setUpdate(std::optional<AppcastItem> update);
    void setErrorMessage(const QString& message);
    void setLastCheckDate(const QDateTime& date);

    QSettings m_settings;
    QString m_currentVersion;
    QString m_defaultFeedUrl;
    std::unique_ptr<QNetworkAccessManager> m_ownNetwork;
    QNetworkAccessManager* m_network = nullptr;
    std::chrono::milliseconds m_transferTimeout;
    Clock m_clock;
    QTimer m_timer;

    bool m_automaticallyChecks = true;
    double m_checkInterval = defaultCheckInterval;
    QDateTime m_lastCheckDate;
    QDateTime m_lastFailureDate;

    bool m_started = false;
    bool m_checking = false;
    bool m_feedTooLarge = false;
    QNetworkReply* m_reply = nullptr;
    State m_stateBeforeCheck = State::Idle;

    State m_state = State::Idle;
    bool m_userInitiated = false;
    std::optional<AppcastItem> m_update;
    QString m_errorMessage;
    QString m_backgroundErrorMessage;
};
