#include "sandbox/codesign/codesigntool.h"

#include "sandbox/codesign/arguments.h"
#include "sandbox/codesign/codesignfailure.h"
#include "sandbox/codesign/description.h"
#include "sandbox/codesign/requirement.h"
#include "sandbox/codesign/signing.h"
#include "sandbox/codesign/verification.h"

#include <cstdio>

namespace {

constexpr int succeeded = 0;
constexpr int failed = 1;
constexpr int wrongUsage = 2;
constexpr int requirementFailed = 3;

void print(const QString &text, FILE *stream = stderr)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

void printLine(const QString &line)
{
    print(line + u'\n');
}

void sign(const QString &path, const CodesignArguments &arguments)
{
    SigningRequest request{.signer = signingIdentity(arguments.identity),
                           .identifier = arguments.identifier,
                           .deep = arguments.deep,
                           .force = arguments.force};
    if (!arguments.entitlements.isEmpty())
        request.entitlements = readEntitlements(arguments.entitlements);
    signCode(path, request);
}

int testRequirement(const QString &path, const CodesignArguments &arguments)
{
    const auto satisfied
        = satisfiesRequirement(signatureOf(existingBundle(path)), arguments.requirement);
    if (!satisfied)
        throw CodesignFailure(arguments.requirement, QStringLiteral("invalid requirement"));
    if (*satisfied)
        return succeeded;
    printLine(path + u": test-requirement: code failed to satisfy specified code requirement(s)");
    return requirementFailed;
}

int verify(const QString &path, const CodesignArguments &arguments)
{
    verifyCode(path, {.deep = arguments.deep, .strict = arguments.strict});
    if (arguments.verbosity > 0)
        printLine(path + u": valid on disk");
    return arguments.requirement.isEmpty() ? succeeded : testRequirement(path, arguments);
}

void display(const QString &path, const CodesignArguments &arguments)
{
    for (const QString &line : describeSignature(path, arguments.verbosity))
        printLine(line);
    if (!arguments.entitlements.isEmpty())
        print(QString::fromUtf8(signatureOf(existingBundle(path)).entitlements), stdout);
}

int handle(const QString &path, const CodesignArguments &arguments)
{
    switch (arguments.operation) {
    case CodesignArguments::Operation::sign:
        sign(path, arguments);
        return succeeded;
    case CodesignArguments::Operation::verify:
        return verify(path, arguments);
    case CodesignArguments::Operation::display:
        display(path, arguments);
        return succeeded;
    }
    return failed;
}

int handleReporting(const QString &path, const CodesignArguments &arguments)
{
    try {
        return handle(path, arguments);
    } catch (const CodesignFailure &failure) {
        printLine(failure.description());
    } catch (const Error &error) {
        printLine(path + u": " + error.description());
    }
    return failed;
}

} // namespace

int runCodesign(const QStringList &arguments)
{
    const auto parsed = parseCodesignArguments(arguments);
    if (!parsed) {
        print(codesignUsage());
        return wrongUsage;
    }
    int status = succeeded;
    for (const QString &path : parsed->paths) {
        const int result = handleReporting(path, *parsed);
        if (status != failed && result != succeeded) // an unmet requirement is the lesser failure
            status = result;
    }
    return status;
}
