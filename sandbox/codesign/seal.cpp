#include "sandbox/codesign/seal.h"

#include "sandbox/codesign/codesignfailure.h"
#include "sandbox/codesign/sealedtree.h"

#include "platform/propertylist.h"

#include <QCryptographicHash>
#include <QFile>
#include <QVariantMap>

namespace {

const QString filesKey = QStringLiteral("files2");
const QString rulesKey = QStringLiteral("rules2");
const QString hashKey = QStringLiteral("hash2");
const QString linkKey = QStringLiteral("symlink");
const QString nestedKey = QStringLiteral("cdhash");

// What the list says about itself: everything is sealed but what the signature record covers.
QVariantMap rules()
{
    const QVariantMap omitted{{QStringLiteral("omit"), true}};
    return {{QStringLiteral("^.*"), true},
            {QStringLiteral("^Info\\.plist$"), omitted},
            {QStringLiteral("^_CodeSignature/"), omitted}};
}

QByteArray nestedHash(const QString &path)
{
    const auto nested = codeBundleAt(path);
    if (!nested || !nested->isSigned())
        throw CodesignFailure(path, QStringLiteral("code object is not signed at all"));
    return fileHash(nested->signatureRecord());
}

QVariantMap propertyListForm(const SealedEntry &entry)
{
    if (!entry.linkTarget.isEmpty())
        return {{linkKey, entry.linkTarget}};
    if (!entry.nestedCodeHash.isEmpty())
        return {{nestedKey, entry.nestedCodeHash}};
    return {{hashKey, entry.hash}};
}

SealedEntry entryFromPropertyList(const QVariantMap &form)
{
    return {.hash = form.value(hashKey).toByteArray(),
            .linkTarget = form.value(linkKey).toString(),
            .nestedCodeHash = form.value(nestedKey).toByteArray()};
}

} // namespace

QByteArray fileHash(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw PlatformError(
            QStringLiteral("Could not read “%1”: %2").arg(path, file.errorString()));
    if (const qint64 size = file.size(); size > 0) {
        const auto *bytes
            = reinterpret_cast<const char *>(file.map(0, size)); // NOLINT(*-reinterpret-cast)
        if (bytes)
            return QCryptographicHash::hash(QByteArrayView(bytes, size),
                                            QCryptographicHash::Sha256);
    }
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

Seal sealOf(const CodeBundle &bundle)
{
    const SealedTree tree = sealedTreeOf(bundle);
    const QString base = bundle.sealedRoot + u'/';
    Seal seal;
    for (const QString &name : tree.files)
        seal.insert(name, {.hash = fileHash(base + name)});
    for (const QString &name : tree.links)
        seal.insert(name, {.linkTarget = linkTarget(base + name)});
    for (const QString &name : tree.nestedCode)
        seal.insert(name, {.nestedCodeHash = nestedHash(base + name)});
    return seal;
}

QByteArray codeResourcesFromSeal(const Seal &seal)
{
    QVariantMap files;
    for (auto entry = seal.cbegin(); entry != seal.cend(); ++entry)
        files.insert(entry.key(), propertyListForm(entry.value()));
    return serializePropertyList(QVariantMap{{filesKey, files}, {rulesKey, rules()}},
                                 PropertyListFormat::XML);
}

Seal sealFromCodeResources(const QByteArray &bytes, const QString &path)
{
    const QVariantMap files = parsePropertyList(bytes, path).toMap().value(filesKey).toMap();
    Seal seal;
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        seal.insert(file.key(), entryFromPropertyList(file.value().toMap()));
    return seal;
}

qsizetype sealRuleCount()
{
    return rules().size();
}
