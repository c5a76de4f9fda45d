#include "ui/applicationscan.h"

#include <QPromise>

namespace {

ApplicationList listOf(const QList<FileURL> &urls)
{
    ApplicationList list{.urls = urls, .filter = ApplicationFilter(urls)};
    list.names.reserve(urls.size());
    for (const FileURL &url : urls)
        list.names.append(url.displayName());
    return list;
}

} // namespace

ApplicationScan::ApplicationScan(Scan scan, QObject *parent)
    : QObject(parent)
    , m_scan(std::move(scan))
{
    m_threads.setExpiryTimeout(0); // a thread that waits for more would wake up to end
}

ApplicationScan::~ApplicationScan()
{
    m_threads.waitForDone();
}

QFuture<ApplicationList> ApplicationScan::start()
{
    const auto promise = std::make_shared<QPromise<ApplicationList>>();
    promise->start();
    m_threads.start([scan = m_scan, promise] {
        promise->addResult(scan ? listOf(scan()) : ApplicationList());
        promise->finish();
    });
    return promise->future();
}
