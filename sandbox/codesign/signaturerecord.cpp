#include "sandbox/codesign/signaturerecord.h"

#include "sandbox/codesign/seal.h"

#include "platform/error.h"
#include "platform/propertylist.h"

#include <QCryptographicHash>

namespace {

constexpr qint64 adHocFlag = 0x2;

const QString identifierKey = QStringLiteral("identifier");
const QString authorityKey = QStringLiteral("authority");
const QString teamKey = QStringLiteral("team");
const QString flagsKey = QStringLiteral("flags");
const QString entitlementsKey = QStringLiteral("entitlements");
const QString codeResourcesKey = QStringLiteral("codeResources");
const QString infoPlistKey = QStringLiteral("infoPlist");
const QString executableKey = QStringLiteral("executable");
const QString digestKey = QStringLiteral("digest");

QVariantMap fieldsOf(const SignatureRecord &record)
{
    return {{identifierKey, record.identifier},     {authorityKey, record.signer.authority},
            {teamKey, record.signer.team},          {flagsKey, record.flags()},
            {entitlementsKey, record.entitlements}, {codeResourcesKey, record.codeResourcesHash},
            {infoPlistKey, record.infoPlistHash},   {executableKey, record.executableHash}};
}

SignatureRecord recordFromFields(const QVariantMap &fields)
{
    return {.identifier = fields.value(identifierKey).toString(),
            .signer = {.authority = fields.value(authorityKey).toString(),
                       .team = fields.value(teamKey).toString()},
            .entitlements = fields.value(entitlementsKey).toByteArray(),
            .codeResourcesHash = fields.value(codeResourcesKey).toByteArray(),
            .infoPlistHash = fields.value(infoPlistKey).toByteArray(),
            .executableHash = fields.value(executableKey).toByteArray()};
}

QByteArray digestOf(const QVariantMap &fields)
{
    return QCryptographicHash::hash(serializePropertyList(fields, PropertyListFormat::XML),
                                    QCryptographicHash::Sha256);
}

QVariantMap dictionaryFrom(const QByteArray &bytes)
{
    try {
        return parsePropertyList(bytes, QString()).toMap();
    } catch (const Error &) {
        return {};
    }
}

} // namespace

SigningIdentity signingIdentity(const QString &argument)
{
    if (argument == u"-")
        return {};
    const qsizetype open = argument.lastIndexOf(u'(');
    const bool hasTeam = open >= 0 && argument.endsWith(u')');
    return {.authority = argument,
            .team = hasTeam ? argument.sliced(open + 1).chopped(1) : QString()};
}

qint64 SignatureRecord::flags() const
{
    return signer.isAdHoc() ? adHocFlag : 0;
}

QByteArray SignatureRecord::codeDirectoryHash() const
{
    return digestOf(fieldsOf(*this));
}

QByteArray encodeSignatureRecord(const SignatureRecord &record)
{
    QVariantMap fields = fieldsOf(record);
    fields.insert(digestKey, digestOf(fields));
    return serializePropertyList(fields, PropertyListFormat::XML);
}

std::optional<SignatureRecord> decodeSignatureRecord(const QByteArray &bytes)
{
    QVariantMap fields = dictionaryFrom(bytes);
    const QByteArray digest = fields.take(digestKey).toByteArray();
    if (fields.isEmpty() || digest != digestOf(fields))
        return std::nullopt;
    return recordFromFields(fields);
}

SignatureRecord describeCode(const CodeBundle &bundle, const QByteArray &codeResources)
{
    return {
        .identifier = bundle.identifier(),
        .codeResourcesHash = QCryptographicHash::hash(codeResources, QCryptographicHash::Sha256),
        .infoPlistHash = fileHash(bundle.infoPlist),
        .executableHash = bundle.executable.isEmpty() ? QByteArray() : fileHash(bundle.executable)};
}
