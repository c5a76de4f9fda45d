#include "platform/qt/qturlfetcher.h"

#include <QCoroSignal>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <chrono>
#include <memory>

namespace {

// Deleted from the event loop: the reply is one of the objects that wake the coroutine.
struct LaterDeleter {
    void operator()(QObject *object) const { object->deleteLater(); }
};

// A server answered, if only with an error, and its answer came whole.
bool hasWholeBody(const QNetworkReply &reply)
{
    const bool isAnswered = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    const QNetworkReply::NetworkError error = reply.error();
    // The errors from 201 to 499 are names for statuses.
    const bool isStatus = error >= QNetworkReply::ContentAccessDenied
        && error <= QNetworkReply::UnknownServerError && error != QNetworkReply::ProtocolFailure;
    return error == QNetworkReply::NoError || (isAnswered && isStatus);
}

} // namespace

QCoro::Task<std::optional<QByteArray>> QtURLFetcher::fetch(QUrl url)
{
    const std::unique_ptr<QNetworkAccessManager, LaterDeleter> manager(new QNetworkAccessManager);
    QNetworkRequest request(url);
    request.setTransferTimeout(std::chrono::milliseconds(std::chrono::minutes(1)).count());
    QNetworkReply *reply = manager->get(request); // the manager's child
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > largestBody)
            reply->abort();
    });
    if (!reply->isFinished())
        co_await qCoro(reply, &QNetworkReply::finished);
    if (!hasWholeBody(*reply) || reply->bytesAvailable() > largestBody)
        co_return std::nullopt;
    co_return reply->readAll();
}
