#include "ui/apppickermodel.h"

#include "ui/urltexts.h"

#include <QSet>

#include <algorithm>

void AppPickerModel::setScan(ApplicationScan *scan)
{
    if (m_scan == scan)
        return;
    m_scan = scan;
    Q_EMIT scanChanged();
    if (!scan)
        return;
    connect(&m_result, &QFutureWatcherBase::finished, this, &AppPickerModel::showScanned,
            Qt::UniqueConnection);
    m_isLoading = true;
    m_result.setFuture(scan->start());
    Q_EMIT contentChanged();
}

void AppPickerModel::showScanned()
{
    m_isLoading = false;
    m_installed = m_result.result();
    const auto installed = static_cast<size_t>(m_installed.urls.size());
    m_isSelected.assign(installed, false);
    setSelectedCount(0);
    markExisting();
    showMatches();
}

void AppPickerModel::setExistingURLs(const QStringList &urls)
{
    if (m_existingURLs == urls)
        return;
    m_existingURLs = urls;
    markExisting();
    if (count() > 0)
        Q_EMIT dataChanged(index(0), index(count() - 1), {IsSelectedRole, AlreadyAddedRole});
    Q_EMIT existingURLsChanged();
}

// An application that comes into the folder while it is chosen is chosen no more.
void AppPickerModel::markExisting()
{
    const QList<FileURL> urls = urlsFromTexts(m_existingURLs);
    const QSet<FileURL> existing(urls.begin(), urls.end());
    m_isAlreadyAdded.assign(m_isSelected.size(), false);
    for (size_t position = 0; position < m_isSelected.size(); ++position) {
        const bool isExisting
            = existing.contains(m_installed.urls.at(static_cast<qsizetype>(position)));
        m_isAlreadyAdded[position] = isExisting;
        m_isSelected[position] = m_isSelected[position] && !isExisting;
    }
    setSelectedCount(static_cast<int>(std::ranges::count(m_isSelected, true)));
}

void AppPickerModel::setSearchText(const QString &text)
{
    if (m_searchText == text)
        return;
    m_searchText = text;
    Q_EMIT searchTextChanged();
    showMatches();
}

// What is left of the old rows shows the new applications, then rows come or go at the end. Each
// step leaves a whole list behind, so that nobody is told of rows that are not there.
void AppPickerModel::showMatches()
{
    QList<qsizetype> wanted = m_installed.filter.matches(m_searchText);
    const int before = count();
    const int after = static_cast<int>(wanted.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_shown.resize(after);
        endRemoveRows();
    }
    const auto firstChange = std::ranges::mismatch(m_shown, wanted).in1 - m_shown.begin();
    if (firstChange < count()) {
        std::copy_n(wanted.begin(), count(), m_shown.begin());
        Q_EMIT dataChanged(index(static_cast<int>(firstChange)), index(count() - 1));
    }
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_shown = std::move(wanted);
        endInsertRows();
    }
    Q_EMIT contentChanged();
}

bool AppPickerModel::hasNoMatches() const
{
    return m_shown.isEmpty() && !m_searchText.isEmpty() && !m_isLoading;
}

QStringList AppPickerModel::chosenURLs() const
{
    QStringList chosen;
    for (size_t position = 0; position < m_isSelected.size(); ++position) {
        if (m_isSelected[position])
            chosen.append(m_installed.urls.at(static_cast<qsizetype>(position)).text());
    }
    return chosen;
}

void AppPickerModel::toggle(int row)
{
    if (row < 0 || row >= count())
        return;
    const auto position = static_cast<size_t>(m_shown.at(row));
    if (m_isAlreadyAdded[position])
        return;
    m_isSelected[position] = !m_isSelected[position];
    Q_EMIT dataChanged(index(row), index(row), {IsSelectedRole});
    setSelectedCount(m_selectedCount + (m_isSelected[position] ? 1 : -1));
}

void AppPickerModel::setSelectedCount(int count)
{
    if (m_selectedCount == count)
        return;
    m_selectedCount = count;
    Q_EMIT selectedCountChanged();
}

int AppPickerModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant AppPickerModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const qsizetype position = m_shown.at(index.row());
    switch (role) {
    case URLRole:
        return m_installed.urls.at(position).text();
    case NameRole:
        return m_installed.names.at(position);
    case IsSelectedRole:
        return bool(m_isSelected[static_cast<size_t>(position)]);
    case AlreadyAddedRole:
        return bool(m_isAlreadyAdded[static_cast<size_t>(position)]);
    default:
        return {};
    }
}

QHash<int, QByteArray> AppPickerModel::roleNames() const
{
    return {{URLRole, "url"},
            {NameRole, "name"},
            {IsSelectedRole, "isSelected"},
            {AlreadyAddedRole, "alreadyAdded"}};
}
