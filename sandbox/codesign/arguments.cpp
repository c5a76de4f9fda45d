#include "sandbox/codesign/arguments.h"

#include <algorithm>
#include <array>

namespace {

using Operation = CodesignArguments::Operation;

enum class Value { none, optional, required };

struct Option {
    char16_t letter; ///< 0: there is only the long form
    QLatin1StringView name;
    Value value;
};

constexpr std::array options{
    Option{u's', QLatin1StringView("sign"), Value::required},
    Option{u'd', QLatin1StringView("display"), Value::none},
    Option{u'v', QLatin1StringView("verbose"), Value::optional},
    Option{0, QLatin1StringView("verify"), Value::none},
    Option{u'f', QLatin1StringView("force"), Value::none},
    Option{u'i', QLatin1StringView("identifier"), Value::required},
    Option{u'R', QLatin1StringView("test-requirement"), Value::required},
    Option{0, QLatin1StringView("entitlements"), Value::required},
    Option{0, QLatin1StringView("deep"), Value::none},
    Option{0, QLatin1StringView("strict"), Value::optional},
};

/// Reads one argument after the other.
class Parser {
public:
    explicit Parser(const QStringList &arguments)
        : m_rest(arguments)
    {
    }

    std::optional<CodesignArguments> run()
    {
        while (!m_rest.isEmpty() && !m_failed)
            takeArgument(m_rest.takeFirst());
        settleOperation();
        if (m_failed || m_result.paths.isEmpty())
            return std::nullopt;
        return m_result;
    }

private:
    void takeArgument(const QString &argument)
    {
        if (m_onlyPaths || !argument.startsWith(u'-') || argument == u"-")
            m_result.paths.append(argument);
        else if (argument == u"--")
            m_onlyPaths = true;
        else if (argument.startsWith(u"--"))
            takeLongOption(argument.sliced(2));
        else
            takeLetters(argument.sliced(1));
    }

    void takeLongOption(const QString &text)
    {
        const qsizetype equals = text.indexOf(u'=');
        const QString name = equals < 0 ? text : text.left(equals);
        const auto *option = std::ranges::find_if(
            options, [&](const Option &candidate) { return candidate.name == name; });
        if (option == options.end())
            return fail();
        if (option->value == Value::none && equals >= 0)
            return fail();
        if (option->value == Value::required && equals < 0)
            return apply(*option, nextValue());
        apply(*option, equals < 0 ? QString() : text.sliced(equals + 1));
    }

    // "-dvvv" is "-d -v -v -v"; "-s-" is "-s -".
    void takeLetters(const QString &letters)
    {
        for (qsizetype i = 0; i < letters.size() && !m_failed; ++i) {
            const auto *option = std::ranges::find_if(options, [&](const Option &candidate) {
                return candidate.letter != 0 && letters.at(i) == candidate.letter;
            });
            if (option == options.end())
                return fail();
            if (option->value == Value::required) {
                const QString attached = letters.sliced(i + 1);
                return apply(*option, attached.isEmpty() ? nextValue() : attached);
            }
            apply(*option, {});
        }
    }

    QString nextValue()
    {
        if (m_rest.isEmpty())
            fail();
        return m_failed ? QString() : m_rest.takeFirst();
    }

    void apply(const Option &option, const QString &value)
    {
        if (option.name == u"sign")
            choose(Operation::sign, &m_result.identity, value);
        else if (option.name == u"display")
            choose(Operation::display, nullptr, {});
        else if (option.name == u"verify")
            choose(Operation::verify, nullptr, {});
        else if (option.name == u"verbose")
            addVerbosity(value);
        else
            applyDetail(option, value);
    }

    void applyDetail(const Option &option, const QString &value)
    {
        if (option.name == u"force")
            m_result.force = true;
        else if (option.name == u"deep")
            m_result.deep = true;
        else if (option.name == u"strict")
            m_result.strict = true;
        else if (option.name == u"identifier")
            m_result.identifier = value;
        else if (option.name == u"entitlements")
            m_result.entitlements = value;
        else
            m_result.requirement = value;
    }

    void choose(Operation operation, QString *field, const QString &value)
    {
        if (m_operation && *m_operation != operation)
            return fail();
        m_operation = operation;
        if (!field)
            return;
        *field = value;
        if (value.isEmpty())
            fail();
    }

    void addVerbosity(const QString &value)
    {
        bool isNumber = true;
        m_result.verbosity = value.isEmpty() ? m_result.verbosity + 1 : value.toInt(&isNumber);
        if (!isNumber)
            fail();
    }

    // The letter v alone stands for "verify"; beside an operation it is "verbose".
    void settleOperation()
    {
        if (!m_operation && m_result.verbosity > 0) {
            m_operation = Operation::verify;
            --m_result.verbosity;
        }
        if (!m_operation)
            return fail();
        m_result.operation = *m_operation;
    }

    void fail() { m_failed = true; }

    QStringList m_rest;
    CodesignArguments m_result;
    std::optional<Operation> m_operation;
    bool m_onlyPaths = false;
    bool m_failed = false;
};

} // namespace

std::optional<CodesignArguments> parseCodesignArguments(const QStringList &arguments)
{
    return Parser(arguments).run();
}

QString codesignUsage()
{
    return QStringLiteral(
        "Usage: codesign -s identity [-fv*] [-i identifier] [--deep] [--entitlements file] path "
        "... # sign\n"
        "       codesign -v [-v*] [-R=requirement] [--deep] [--strict] path ... # verify\n"
        "       codesign -d [-v*] [--entitlements -] path ... # display contents\n");
}
