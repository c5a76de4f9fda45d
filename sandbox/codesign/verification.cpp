#include "sandbox/codesign/verification.h"

#include "sandbox/codesign/codesignfailure.h"
#include "sandbox/codesign/seal.h"
#include "sandbox/codesign/sealedtree.h"
#include "sandbox/common/files.h"

#include <QDir>
#include <QFileInfo>

namespace {

const QString brokenSealText = QStringLiteral("a sealed resource is missing or invalid");
const QString brokenSignatureText
    = QStringLiteral("invalid signature (code or signature have been modified)");
const QString brokenInfoText
    = QStringLiteral("invalid Info.plist (plist or signature have been modified)");

void verifyInfoPlist(const CodeBundle &bundle, const SignatureRecord &record)
{
    if (!QFileInfo(bundle.infoPlist).isFile() || QFileInfo(bundle.infoPlist).isSymLink()
        || fileHash(bundle.infoPlist) != record.infoPlistHash)
        throw CodesignFailure(bundle.path, brokenInfoText);
}

void verifyExecutable(const CodeBundle &bundle, const SignatureRecord &record)
{
    const QFileInfo file(bundle.executable);
    if (!bundle.executable.isEmpty() && (!file.isFile() || file.isSymLink()))
        throw CodesignFailure(bundle.path, brokenSignatureText);
    if (record.executableHash
        != (bundle.executable.isEmpty() ? QByteArray() : fileHash(bundle.executable)))
        throw CodesignFailure(bundle.path, brokenSignatureText);
}

Seal verifiedSeal(const CodeBundle &bundle, const SignatureRecord &record)
{
    if (!QFileInfo(bundle.codeResources()).isFile()
        || fileHash(bundle.codeResources()) != record.codeResourcesHash)
        throw CodesignFailure(bundle.path, brokenSignatureText);
    return sealFromCodeResources(readFile(bundle.codeResources()), bundle.codeResources());
}

QStringList differences(const Seal &sealed, const Seal &found, const QString &base)
{
    QStringList lines;
    for (auto entry = found.cbegin(); entry != found.cend(); ++entry) {
        const auto before = sealed.constFind(entry.key());
        if (before == sealed.cend())
            lines.append(u"file added: " + base + entry.key());
        else if (before.value() != entry.value())
            lines.append(u"file modified: " + base + entry.key());
    }
    for (auto entry = sealed.cbegin(); entry != sealed.cend(); ++entry) {
        if (!found.contains(entry.key()))
            lines.append(u"file missing: " + base + entry.key());
    }
    return lines;
}

Seal presentSeal(const CodeBundle &bundle)
{
    try {
        return sealOf(bundle);
    } catch (const CodesignFailure &failure) { // code inside has lost its signature
        throw CodesignFailure(bundle.path, brokenSealText,
                              {u"In subcomponent: " + failure.description().section(u':', 0, 0)});
    }
}

void verifyNestedCode(const CodeBundle &bundle, const SealedTree &tree,
                      const VerificationRequest &request)
{
    for (const QString &name : tree.nestedCode) {
        const QString path = bundle.sealedRoot + u'/' + name;
        try {
            verifyCode(path, request);
        } catch (const CodesignFailure &failure) {
            throw CodesignFailure(bundle.path, brokenSealText,
                                  QStringList{u"In subcomponent: " + path} + failure.details());
        }
    }
}

// Where a link leads, as the system would follow it; links on the way included. One that leads
// nowhere counts by its text.
QString linkDestination(const QString &path)
{
    const QString target = linkTarget(path);
    const QString place = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
    const QString written
        = QDir::cleanPath(target.startsWith(u'/') ? target : place + u'/' + target);
    const QString followed = QFileInfo(path).canonicalFilePath();
    return followed.isEmpty() ? written : followed;
}

void verifyLinks(const CodeBundle &bundle, const SealedTree &tree)
{
    const QString inside = QFileInfo(bundle.path).canonicalFilePath() + u'/';
    for (const QString &name : tree.links) {
        const QString path = bundle.sealedRoot + u'/' + name;
        if (linkTarget(path).startsWith(u'/') || !linkDestination(path).startsWith(inside))
            throw CodesignFailure(bundle.path,
                                  QStringLiteral("invalid destination for symbolic link in bundle"),
                                  {u"file: " + path});
    }
}

} // namespace

CodeBundle existingBundle(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw CodesignFailure(path, QStringLiteral("No such file or directory"));
    if (info.isFile())
        throw CodesignFailure(path, QStringLiteral("code object is not signed at all"));
    const QString bare = QDir::cleanPath(path);
    if (auto bundle = codeBundleAt(bare))
        return *bundle;
    throw CodesignFailure(path,
                          QStringLiteral("bundle format unrecognized, invalid, or unsuitable"));
}

SignatureRecord signatureOf(const CodeBundle &bundle)
{
    if (!bundle.isSigned())
        throw CodesignFailure(bundle.path, QStringLiteral("code object is not signed at all"));
    if (auto record = decodeSignatureRecord(readFile(bundle.signatureRecord())))
        return *record;
    throw CodesignFailure(bundle.path, brokenSignatureText);
}

QStringList unsealedRootContents(const CodeBundle &bundle)
{
    if (bundle.layout != CodeBundle::Layout::application)
        return {};
    QStringList names
        = QDir(bundle.path)
              .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    names.removeAll(QStringLiteral("Contents"));
    return names;
}

void verifyCode(const QString &path, const VerificationRequest &request)
{
    const CodeBundle bundle = existingBundle(path);
    const SignatureRecord record = signatureOf(bundle);
    verifyInfoPlist(bundle, record);
    verifyExecutable(bundle, record);
    const Seal sealed = verifiedSeal(bundle, record);
    const SealedTree tree = sealedTreeOf(bundle);
    if (request.deep)
        verifyNestedCode(bundle, tree, request);
    if (const QStringList lines
        = differences(sealed, presentSeal(bundle), bundle.sealedRoot + u'/');
        !lines.isEmpty())
        throw CodesignFailure(bundle.path, brokenSealText, lines);
    if (!unsealedRootContents(bundle).isEmpty())
        throw CodesignFailure(bundle.path, unsealedContentsText);
    if (request.strict)
        verifyLinks(bundle, tree);
}
