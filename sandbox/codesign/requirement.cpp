#include "sandbox/codesign/requirement.h"

#include <QRegularExpression>

namespace {

// What a clause demands against what the record has; nothing for a clause of another kind.
std::optional<bool> satisfiesClause(const SignatureRecord &record, const QString &clause)
{
    static const QRegularExpression form(QStringLiteral(
        R"/(^\s*(identifier|certificate leaf\[subject\.OU\]\s*=)\s*"?([^"\s]+)"?\s*$)/"));
    const QRegularExpressionMatch match = form.match(clause);
    if (!match.hasMatch())
        return std::nullopt;
    const bool isIdentifier = match.captured(1) == u"identifier";
    return match.captured(2) == (isIdentifier ? record.identifier : record.signer.team);
}

} // namespace

std::optional<bool> satisfiesRequirement(const SignatureRecord &record, const QString &requirement)
{
    const QString text = requirement.startsWith(u'=') ? requirement.sliced(1) : requirement;
    bool satisfied = true;
    for (const QString &clause : text.split(QStringLiteral(" and "))) {
        const auto result = satisfiesClause(record, clause);
        if (!result)
            return std::nullopt;
        satisfied = satisfied && *result;
    }
    return satisfied;
}
