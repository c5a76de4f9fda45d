#include "bench/system/applicationtree.h"

#include <QDir>
#include <QHash>
#include <QRandomGenerator>

namespace {

constexpr int bundlesInRoots = 2000;
constexpr int foldersInRoots = 200;
constexpr int bundlesPerFolder = 10;

/// Names as applications have them: one or two words, a few of them accented, with a number where
/// the words have been had before.
class Names {
public:
    QString next()
    {
        QString name = word();
        if (m_random.bounded(2) == 0)
            name += u' ' + word();
        const int earlier = m_uses[name]++;
        return earlier == 0 ? name : name + u' ' + QString::number(earlier + 1);
    }

private:
    QString word()
    {
        static const QStringList syllables
            = QStringLiteral("dra wing pho to edi tor ma ni cal ter mi nal über sicht mö we sé "
                             "lec tion key note chess mail box scan ner studio pro web kit")
                  .split(u' ');
        QString text;
        for (int more = 1 + m_random.bounded(3); more > 0; --more)
            text += syllables.at(m_random.bounded(static_cast<int>(syllables.size())));
        text[0] = text.at(0).toUpper();
        return text;
    }

    QRandomGenerator m_random{4000};
    QHash<QString, int> m_uses;
};

void makeBundle(const QString &folder, Names &names)
{
    QDir(folder).mkdir(names.next() + QStringLiteral(".app"));
}

} // namespace

ApplicationTree::ApplicationTree()
{
    Names names;
    const QStringList all = roots();
    for (const QString &root : all) {
        QDir().mkpath(root);
        m_folders.append(root);
    }
    for (int i = 0; i < bundlesInRoots; ++i)
        makeBundle(all.at(i % all.size()), names);
    for (int i = 0; i < foldersInRoots; ++i) {
        const QString folder = all.at(i % all.size()) + u'/' + names.next();
        QDir().mkpath(folder);
        m_folders.append(folder);
        for (int n = 0; n < bundlesPerFolder; ++n)
            makeBundle(folder, names);
    }
}

QStringList ApplicationTree::roots() const
{
    return {system(QStringLiteral("/Applications/")).path(),
            system(QStringLiteral("/System/Applications/")).path(), userApplications().path()};
}
