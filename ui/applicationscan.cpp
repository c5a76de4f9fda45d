#include "ui/applicationscan.h"

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
}

QFuture<ApplicationList> ApplicationScan::start()
{
    return m_worker.ask([scan = m_scan] { return scan ? listOf(scan()) : ApplicationList(); });
}
