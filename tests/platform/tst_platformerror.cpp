#include "platform/error.h"
#include "platform/propertylist.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSet>
#include <QTest>
#include <QTranslator>

#include <cerrno>

using namespace std::chrono_literals;

using Action = PlatformError::Action;

namespace {

/// A language in which every text of the platform is the English one in brackets.
class Brackets final : public QTranslator {
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char *context, const char *text, const char *,
                                    int) const override
    {
        return qstrcmp(context, "PlatformError") == 0 ? u'[' + QString::fromUtf8(text) + u']'
                                                      : QString();
    }
};

} // namespace

class PlatformErrorTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void namesThePathAndTheSystemsReason();
    void everyActionHasATextOfItsOwn();
    void aPathThatLooksLikeAPlaceIsNoPlace();
    void saysWhichProgramTookTooLong();
    void speaksTheUsersLanguage();
};

void PlatformErrorTest::namesThePathAndTheSystemsReason()
{
    QCOMPARE(PlatformError::fromErrno(Action::Write, QStringLiteral("/a b"), ENOSPC).description(),
             QStringLiteral("Could not write “/a b”: No space left on device"));
    QCOMPARE(PlatformError(Action::Launch, QStringLiteral("/a"), QStringLiteral("why")),
             PlatformError(QStringLiteral("Could not launch “/a”: why")));
}

void PlatformErrorTest::everyActionHasATextOfItsOwn()
{
    QSet<QString> texts;
    for (int action = 0; action <= static_cast<int>(Action::WaitFor); ++action) {
        const PlatformError error(static_cast<Action>(action), QStringLiteral("/path"),
                                  QStringLiteral("reason"));
        QVERIFY2(error.description().contains(u"“/path”")
                     && error.description().endsWith(u": reason"),
                 qPrintable(error.description()));
        texts.insert(error.description());
    }
    QCOMPARE(texts.size(), static_cast<int>(Action::WaitFor) + 1);
}

void PlatformErrorTest::aPathThatLooksLikeAPlaceIsNoPlace()
{
    QCOMPARE(
        PlatformError(Action::Read, QStringLiteral("/%2"), QStringLiteral("why")).description(),
        QStringLiteral("Could not read “/%2”: why"));
}

void PlatformErrorTest::saysWhichProgramTookTooLong()
{
    QLocale::setDefault(QLocale::c());
    QCOMPARE(PlatformError::tookTooLong(QStringLiteral("/bin/sh"), 1500ms).description(),
             QStringLiteral("“/bin/sh” did not finish in 1.5 s and was ended"));
}

void PlatformErrorTest::speaksTheUsersLanguage()
{
    Brackets language;
    QVERIFY(QCoreApplication::installTranslator(&language));
    QCOMPARE(PlatformError(Action::Copy, QStringLiteral("/a"), QStringLiteral("why")).description(),
             QStringLiteral("[Could not copy “/a”: why]"));
    QCOMPARE(PlatformError::withoutReason().description(),
             QStringLiteral("[The system gave no reason.]"));
    try {
        static_cast<void>(parsePropertyList("bplist00", QStringLiteral("/a")));
        QFAIL("was accepted");
    } catch (const PlatformError &error) {
        QCOMPARE(error.description(),
                 QStringLiteral("[Could not read “/a”: [Damaged property list]]"));
    }
}

QTEST_GUILESS_MAIN(PlatformErrorTest)
#include "tst_platformerror.moc"
