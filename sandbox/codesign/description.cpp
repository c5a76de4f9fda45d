#include "sandbox/codesign/description.h"

#include "sandbox/codesign/seal.h"
#include "sandbox/codesign/signaturerecord.h"
#include "sandbox/codesign/verification.h"
#include "sandbox/common/files.h"

#include <QFileInfo>

namespace {

constexpr int hashedPage = 4096;

QString executableLine(const CodeBundle &bundle)
{
    const QString path = bundle.executable.isEmpty() ? bundle.path : bundle.executable;
    return u"Executable=" + QFileInfo(path).absoluteFilePath();
}

QString codeDirectoryLine(const CodeBundle &bundle, const SignatureRecord &record)
{
    const qint64 size = bundle.executable.isEmpty() ? 0 : QFileInfo(bundle.executable).size();
    return QStringLiteral(
               "CodeDirectory v=20400 size=%1 flags=0x%2(%3) hashes=%4+3 location=bundle")
        .arg(encodeSignatureRecord(record).size())
        .arg(record.flags(), 0, 16)
        .arg(record.signer.isAdHoc() ? u"adhoc" : u"none")
        .arg((size + hashedPage - 1) / hashedPage);
}

QStringList hashLines(const SignatureRecord &record)
{
    const QString hash = QString::fromLatin1(record.codeDirectoryHash().toHex());
    return {QStringLiteral("Hash type=sha256 size=32"), u"CandidateCDHash sha256=" + hash.left(40),
            u"CandidateCDHashFull sha256=" + hash, u"CDHash=" + hash.left(40)};
}

QStringList signerLines(const CodeBundle &bundle, const SignatureRecord &record, int verbosity)
{
    if (record.signer.isAdHoc())
        return {QStringLiteral("Signature=adhoc")};
    QStringList lines{
        QStringLiteral("Signature size=%1").arg(QFileInfo(bundle.signatureRecord()).size())};
    if (verbosity >= 2)
        lines.append(u"Authority=" + record.signer.authority);
    return lines;
}

QString sealedResourcesLine(const CodeBundle &bundle)
{
    const Seal seal
        = sealFromCodeResources(readFile(bundle.codeResources()), bundle.codeResources());
    return QStringLiteral("Sealed Resources version=2 rules=%1 files=%2")
        .arg(sealRuleCount())
        .arg(seal.size());
}

} // namespace

QStringList describeSignature(const QString &path, int verbosity)
{
    const CodeBundle bundle = existingBundle(path);
    const SignatureRecord record = signatureOf(bundle);
    QStringList lines{executableLine(bundle)};
    if (verbosity < 1)
        return lines;
    lines << u"Identifier=" + record.identifier << u"Format=" + bundle.format()
          << codeDirectoryLine(bundle, record);
    if (verbosity >= 3)
        lines << hashLines(record);
    const QString team
        = record.signer.team.isEmpty() ? QStringLiteral("not set") : record.signer.team;
    lines << signerLines(bundle, record, verbosity)
          << QStringLiteral("Info.plist entries=%1").arg(bundle.info.value_or(QVariantMap()).size())
          << u"TeamIdentifier=" + team << sealedResourcesLine(bundle)
          << QStringLiteral("Internal requirements count=0 size=12");
    return lines;
}
