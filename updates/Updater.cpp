// SPDX-FileCopyrightText: 2026 The Kivora developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Updater.h"

#include "prefs/PreferencesFile.h"
#include "updates/UpdateSchedule.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// The timer never waits longer than this before looking at the clock again, so a machine
// that slept through the due time checks soon after it wakes.
constexpr qint64 longestTimerWaitMs = 3600 * 1000;

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

QString settingsPathOrDefault(const QString& path)
{
    return path.isEmpty() ? PreferencesFile::path() : path;
}

// Whole seconds, in UTC: the precision kept in the preferences file.
QDateTime toStoredPrecision(const QDateTime& date)
{
    const QDateTime utc = date.toUTC();
    return utc.addMSecs(-utc.time().msec());
}

std::optional<double> checkInterval(const QVariant& value)
{
    bool ok = false;
    const double seconds = value.toDouble(&ok);
    if (!ok || !std::isfinite(seconds) || seconds <= 0) {
        return std::nullopt;
    }
    return std::max(seconds, Updater::minimumCheckInterval);
}

} // namespace

Updater::Updater(QObject* parent) : Updater(Options{}, parent) {}

Updater::Updater(Options options, QObject* parent)
    : QObject(parent),
      m_settings(settingsPathOrDefault(options.settingsPath), QSettings::NativeFormat),
      m_currentVersion(options.currentVersion.isEmpty() ? QStringLiteral(KIVORA_VERSION)
                                                        : options.currentVersion),
      m_defaultFeedUrl(options.defaultFeedUrl.value_or(QStringLiteral(KIVORA_DEFAULT_FEED_URL))),
      m_network(options.network), m_transferTimeout(options.transferTimeout),
      m_clock([] { return QDateTime::currentDateTimeUtc(); })
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Updater::onTimer);
    loadSettings();
}

Updater::~Updater()
{
    if (m_reply) {
        m_reply->disconnect(this);
        m_reply->abort();
        m_reply->deleteLater();
    }
}

void Updater::loadSettings()
{
    m_automaticallyChecks = m_settings.value(key(automaticallyChecksKey), true).toBool();
    m_checkInterval =
        checkInterval(m_settings.value(key(checkIntervalKey))).value_or(defaultCheckInterval);
    const QDateTime stored =
        QDateTime::fromString(m_settings.value(key(lastCheckDateKey)).toString(), Qt::ISODate);
    m_lastCheckDate = stored.isValid() ? toStoredPrecision(stored) : QDateTime();
}

void Updater::store(const char* name, const QVariant& value)
{
    m_settings.setValue(key(name), value);
    m_settings.sync();
}

QDateTime Updater::now() const
{
    return m_clock().toUTC();
}

QNetworkAccessManager& Updater::network()
{
    if (!m_network) {
        m_ownNetwork = std::make_unique<QNetworkAccessManager>();
        m_network = m_ownNetwork.get();
    }
    return *m_network;
}

void Updater::setAutomaticallyChecksForUpdates(bool automatic)
{
    const bool changed = automatic != m_automaticallyChecks;
    m_automaticallyChecks = automatic;
    store(automaticallyChecksKey, automatic);
    if (changed) {
        emit automaticallyChecksForUpdatesChanged();
    }
    schedule();
}

void Updater::setUpdateCheckInterval(double seconds)
{
    const auto interval = checkInterval(seconds);
    if (!interval) {
        return;
    }
    const bool changed = *interval != m_checkInterval;
    m_checkInterval = *interval;
    store(checkIntervalKey, *interval);
    if (changed) {
        emit updateCheckIntervalChanged();
    }
    schedule();
}

void Updater::setLastCheckDate(const QDateTime& date)
{
    const QDateTime stored = toStoredPrecision(date);
    store(lastCheckDateKey, stored.toString(Qt::ISODate));
    if (stored != m_lastCheckDate) {
        m_lastCheckDate = stored;
        emit lastUpdateCheckDateChanged();
    }
}

QUrl Updater::feedUrl() const
{
    QString problem;
    return resolveFeedUrl(&problem);
}

QUrl Updater::resolveFeedUrl(QString* problem) const
{
    QString address = qEnvironmentVariable("KIVORA_UPDATE_FEED_URL").trimmed();
    if (address.isEmpty()) {
        address = m_defaultFeedUrl.trimmed();
    }
    if (address.isEmpty()) {
        *problem = tr("No update feed is configured.");
        return {};
    }
    const QUrl url(address, QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    const bool web = (scheme == u"http" || scheme == u"https") && !url.host().isEmpty();
    if (!url.isValid() || !(web || scheme == u"file")) {
        *problem = tr("The update feed address is not valid: %1").arg(address);
        return {};
    }
    return url;
}

void Updater::start()
{
    if (m_started) {
        return;
    }
    m_started = true;
    if (!checkIfDue()) {
        schedule();
    }
}

void Updater::checkForUpdates()
{
    beginCheck(true);
}

bool Updater::checkIfDue()
{
    if (!m_automaticallyChecks || m_checking || !isCheckDue()) {
        return false;
    }
    beginCheck(false);
    return true;
}

QDateTime Updater::nextCheckDate() const
{
    if (!m_automaticallyChecks) {
        return {};
    }
    return UpdateSchedule::nextCheckDate(m_lastCheckDate, m_lastFailureDate, m_checkInterval,
                                         now());
}

bool Updater::isCheckDue() const
{
    const QDateTime next = nextCheckDate();
    return next.isValid() && UpdateSchedule::isDue(next, now());
}

void Updater::schedule()
{
    if (!m_started || !m_automaticallyChecks || m_checking) {
        m_timer.stop();
        return;
    }
    const qint64 wait = std::clamp(now().msecsTo(nextCheckDate()), qint64(0), longestTimerWaitMs);
    m_timer.start(static_cast<int>(wait));
}

void Updater::onTimer()
{
    if (!checkIfDue()) {
        schedule();
    }
}

void Updater::beginCheck(bool userInitiated)
{
    if (m_checking) {
        // One request at a time; the user's request takes over the running one, so its
        // result is shown.
        if (userInitiated) {
            setUserInitiated(true);
        }
        return;
    }
    m_checking = true;
    m_feedTooLarge = false;
    m_timer.stop();
    m_stateBeforeCheck = m_state;
    setUserInitiated(userInitiated);
    setState(State::Checking);

    QString problem;
    const QUrl url = resolveFeedUrl(&problem);
    if (url.isEmpty()) {
        QTimer::singleShot(0, this, [this, problem] { finishWithError(problem); });
        return;
    }

    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setTransferTimeout(static_cast<int>(m_transferTimeout.count()));
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("Kivora/%1").arg(m_currentVersion));
    request.setRawHeader("Accept", "application/rss+xml, application/xml;q=0.9, text/xml;q=0.8, "
                                   "*/*;q=0.1");
    m_reply = network().get(request);
    connect(m_reply, &QNetworkReply::finished, this, &Updater::onReplyFinished);
    connect(m_reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64) {
        if (received > maximumFeedBytes && m_reply) {
            m_feedTooLarge = true;
            m_reply->abort();
        }
    });
}

void Updater::onReplyFinished()
{
    QNetworkReply* reply = std::exchange(m_reply, nullptr);
    if (!reply) {
        return;
    }
    reply->deleteLater();

    const QNetworkReply::NetworkError error = reply->error();
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool redirectFailed = error == QNetworkReply::TooManyRedirectsError ||
                                error == QNetworkReply::InsecureRedirectError;
    if (m_feedTooLarge) {
        finishWithError(tr("The update feed is too large."));
    } else if (status.isValid() && !redirectFailed &&
               (status.toInt() < 200 || status.toInt() > 299)) {
        finishWithError(tr("The update feed answered HTTP %1.").arg(status.toInt()));
    } else if (error == QNetworkReply::OperationCanceledError) {
        // Nothing else cancels a transfer: it ran out of time.
        finishWithError(tr("The update feed did not answer within %1 seconds.")
                            .arg((m_transferTimeout.count() + 999) / 1000));
    } else if (error != QNetworkReply::NoError) {
        finishWithError(tr("Could not reach the update feed: %1").arg(reply->errorString()));
    } else {
        QString problem;
        const auto items = Appcast::parse(reply->readAll(), reply->url(), &problem);
        if (!items) {
            finishWithError(problem);
        } else if (items->isEmpty()) {
            finishWithError(tr("The update feed lists no releases."));
        } else {
            finishWithUpdate(Appcast::newestUpdate(*items, m_currentVersion));
        }
    }
}

void Updater::finishWithUpdate(std::optional<AppcastItem> update)
{
    m_checking = false;
    m_lastFailureDate = QDateTime();
    setLastCheckDate(now());
    setErrorMessage(QString());
    const bool found = update.has_value();
    setUpdate(std::move(update));
    setState(found ? State::UpdateFound : State::UpToDate);
    schedule();
    emit checkFinished(m_userInitiated);
}

void Updater::finishWithError(const QString& message)
{
    m_checking = false;
    m_lastFailureDate = now();
    const bool userInitiated = m_userInitiated;
    if (userInitiated) {
        setUpdate(std::nullopt);
        setErrorMessage(message);
        setState(State::Error);
    } else {
        setState(m_stateBeforeCheck == State::Checking ? State::Idle : m_stateBeforeCheck);
        m_backgroundErrorMessage = message;
        emit backgroundCheckFailed(message);
    }
    schedule();
    emit checkFinished(userInitiated);
}

void Updater::setState(State state)
{
    if (state != m_state) {
        m_state = state;
        emit stateChanged();
    }
}

void Updater::setUserInitiated(bool userInitiated)
{
    if (userInitiated != m_userInitiated) {
        m_userInitiated = userInitiated;
        emit lastCheckUserInitiatedChanged();
    }
}

void Updater::setUpdate(std::optional<AppcastItem> update)
{
    const bool same = update == m_update;
    m_update = std::move(update);
    if (!same) {
        emit updateInfoChanged();
    }
}

void Updater::setErrorMessage(const QString& message)
{
    if (message != m_errorMessage) {
        m_errorMessage = message;
        emit errorMessageChanged();
    }
}
