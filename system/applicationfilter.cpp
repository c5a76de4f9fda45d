#include "system/installedapplications.h"

#include "system/searchfolding.h"

#include <cstring>
#include <numeric>

namespace {

QList<qsizetype> allPositions(qsizetype count)
{
    QList<qsizetype> positions(count);
    std::iota(positions.begin(), positions.end(), 0);
    return positions;
}

} // namespace

ApplicationFilter::ApplicationFilter(const QList<FileURL> &applications)
{
    m_nameEnds.reserve(applications.size());
    for (const FileURL &application : applications) {
        m_foldedNames += foldedForSearch(application.displayName());
        m_foldedNames += '\0';
        m_nameEnds.append(m_foldedNames.size());
    }
}

// One pass over all names at once. A match ends its name's turn: the search goes on at the next
// one.
QList<qsizetype> ApplicationFilter::matches(const QString &searchText) const
{
    if (searchText.isEmpty())
        return allPositions(m_nameEnds.size());
    QList<qsizetype> positions;
    const QByteArray wanted = foldedForSearch(searchText);
    if (wanted.contains('\0')) // would match across two names
        return positions;

    qsizetype name = 0;
    const char *const begin = m_foldedNames.cbegin();
    const char *const end = m_foldedNames.cend();
    for (const char *from = begin; from < end; from = begin + m_nameEnds.at(name++)) {
        const void *hit = memmem(from, static_cast<size_t>(end - from), wanted.cbegin(),
                                 static_cast<size_t>(wanted.size()));
        if (!hit)
            break;
        while (m_nameEnds.at(name) <= static_cast<const char *>(hit) - begin)
            ++name;
        positions.append(name);
    }
    return positions;
}
