#include "sandbox/codesign/sealedtree.h"

#include "platform/error.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

QString textOf(const fs::path &path)
{
    return QFile::decodeName(path.c_str());
}

class Walk {
public:
    explicit Walk(const CodeBundle &bundle)
        : m_bundle(bundle)
    {
    }

    SealedTree run()
    {
        enter(m_bundle.sealedRoot);
        for (QStringList *list : {&m_tree.files, &m_tree.links, &m_tree.nestedCode})
            list->sort();
        return std::move(m_tree);
    }

private:
    void enter(const QString &directory)
    {
        try {
            for (const fs::directory_entry &entry : fs::directory_iterator(nativePath(directory)))
                take(textOf(entry.path()), entry.symlink_status().type());
        } catch (const fs::filesystem_error &error) {
            throw PlatformError::fromErrno(PlatformError::Action::Read, directory,
                                           error.code().value());
        }
    }

    void take(const QString &path, fs::file_type type)
    {
        const QString relative = path.sliced(m_bundle.sealedRoot.size() + 1);
        if (isCoveredByRecord(path))
            return;
        if (type == fs::file_type::symlink)
            m_tree.links.append(relative);
        else if (type == fs::file_type::regular)
            m_tree.files.append(relative);
        else if (type != fs::file_type::directory)
            throw PlatformError(QStringLiteral("Could not seal “%1”: not a file").arg(path));
        else if (isNestedCode(path, relative))
            m_tree.nestedCode.append(relative);
        else
            enter(path);
    }

    bool isCoveredByRecord(const QString &path) const
    {
        return path == m_bundle.infoPlist || path == m_bundle.executable
            || path == m_bundle.signatureDirectory();
    }

    // A bundle that lies among the resources is a resource like any other.
    bool isNestedCode(const QString &path, const QString &relative) const
    {
        return hasCodeBundleName(path) && !relative.startsWith(u"Resources/")
            && codeBundleAt(path).has_value();
    }

    const CodeBundle &m_bundle;
    SealedTree m_tree;
};

} // namespace

SealedTree sealedTreeOf(const CodeBundle &bundle)
{
    return Walk(bundle).run();
}

QString linkTarget(const QString &path)
{
    std::error_code error;
    const fs::path target = fs::read_symlink(nativePath(path), error);
    if (error)
        throw PlatformError::fromErrno(PlatformError::Action::Read, path, error.value());
    return textOf(target);
}
