#pragma once

#include <QByteArrayView>
#include <QString>
#include <QUrl>

#include <optional>

/// One release offered by the update feed.
struct UpdateInfo {
    qint64 build{}; ///< the only field that is compared
    QString version{}; ///< for people
    QUrl downloadURL{};
    bool operator==(const UpdateInfo &) const = default;
};

/// The feed's body as a record; nothing when it is not one.
[[nodiscard]] std::optional<UpdateInfo> decodeUpdateInfo(QByteArrayView feed);

/// The number that a bundle version is in base 10; 0 for any text that is not plainly a number.
[[nodiscard]] qint64 buildNumberFromVersion(const QString &version);

/// Where the feed is.
[[nodiscard]] const QUrl &updateFeedURL();

/// Whether the address may be handed to the browser: web pages only.
[[nodiscard]] bool isOpenableDownload(const QUrl &url);
