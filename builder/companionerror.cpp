#include "builder/companionerror.h"

#include "platform/text.h"

#include <QCoreApplication>

namespace {

QString message(CompanionError::Kind kind)
{
    using Kind = CompanionError::Kind;
    switch (kind) {
    case Kind::missingNestletApp:
        return QCoreApplication::translate("CompanionError",
                                           "Nestlet was not found at %@. Install Nestlet first.");
    case Kind::invalidInfoPlist:
        return QCoreApplication::translate("CompanionError", "Could not read Info.plist at %@.");
    case Kind::invalidNestletApp:
        return QCoreApplication::translate("CompanionError",
                                           "Nestlet Companion requires a signed Nestlet app. %@");
    case Kind::signingFailed:
        return QCoreApplication::translate("CompanionError", "Ad-hoc signing failed: %@");
    }
    Q_UNREACHABLE();
}

} // namespace

QString CompanionError::description() const
{
    return filledIn(message(m_kind), m_text);
}
