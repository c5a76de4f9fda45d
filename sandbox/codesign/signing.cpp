#include "sandbox/codesign/signing.h"

#include "sandbox/codesign/codesignfailure.h"
#include "sandbox/codesign/seal.h"
#include "sandbox/codesign/sealedtree.h"
#include "sandbox/codesign/verification.h"
#include "sandbox/common/files.h"

#include "platform/propertylist.h"

#include <QDir>
#include <QFileInfo>

namespace {

CodeBundle signableBundle(const QString &path, bool force)
{
    CodeBundle bundle = existingBundle(path);
    if (!bundle.info)
        throw CodesignFailure(path, QStringLiteral("invalid or unreadable Info.plist"));
    if (!bundle.executable.isEmpty() && !QFileInfo(bundle.executable).isFile())
        throw CodesignFailure(path, QStringLiteral("code object has no main executable"));
    if (const QStringList strays = unsealedRootContents(bundle); !strays.isEmpty())
        throw CodesignFailure(path, unsealedContentsText);
    if (bundle.isSigned() && !force)
        throw CodesignFailure(path, QStringLiteral("is already signed"));
    return bundle;
}

void signNestedCode(const CodeBundle &bundle, SigningRequest request)
{
    request.identifier.clear(); // it is meant for the outermost bundle
    for (const QString &name : sealedTreeOf(bundle).nestedCode)
        signCode(bundle.sealedRoot + u'/' + name, request);
}

void removeSignature(const CodeBundle &bundle)
{
    const QString directory = bundle.signatureDirectory();
    if (QFileInfo::exists(directory) && !QDir(directory).removeRecursively())
        throw CodesignFailure(bundle.path, QStringLiteral("could not remove the old signature"));
}

Seal sealForSigning(const CodeBundle &bundle)
{
    try {
        return sealOf(bundle);
    } catch (const CodesignFailure &failure) { // speaks of the code inside
        const QString subcomponent = failure.description().section(u':', 0, 0);
        throw CodesignFailure(bundle.path, QStringLiteral("code object is not signed at all"),
                              {u"In subcomponent: " + subcomponent});
    }
}

} // namespace

void signCode(const QString &path, const SigningRequest &request)
{
    const CodeBundle bundle = signableBundle(path, request.force);
    if (request.deep)
        signNestedCode(bundle, request);
    const QByteArray codeResources = codeResourcesFromSeal(sealForSigning(bundle));
    SignatureRecord record = describeCode(bundle, codeResources);
    record.signer = request.signer;
    record.entitlements = request.entitlements;
    if (!request.identifier.isEmpty())
        record.identifier = request.identifier;
    removeSignature(bundle);
    writeFile(bundle.codeResources(), codeResources);
    writeFile(bundle.signatureRecord(), encodeSignatureRecord(record));
}

QByteArray readEntitlements(const QString &path)
{
    if (!QFileInfo(path).isFile())
        throw CodesignFailure(path, QStringLiteral("cannot read entitlement data"));
    if (!readDictionary(path))
        throw CodesignFailure(path, QStringLiteral("unrecognized entitlement data"));
    return readFile(path);
}
