#include "platform/fileurl.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1StringView fileScheme{"file://"};
constexpr QLatin1StringView bareFileScheme{"file:"};

constexpr std::array<bool, 128> makeURLCharacters()
{
    std::array<bool, 128> legal{};
    for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                         "0123456789-._~:/?#[]@!$&'()*+,;=%")) {
        legal.at(static_cast<unsigned char>(c)) = true;
    }
    return legal;
}
constexpr std::array<bool, 128> urlCharacters = makeURLCharacters();

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// What a file URL leaves unescaped in its path: the unreserved characters and those delimiters that
// mean nothing there.
QString escapedPath(const QString &path)
{
    return QString::fromLatin1(path.toUtf8().toPercentEncoding("!$&'()*+,:=@/"));
}

QString withoutTrailingSlash(const QString &path)
{
    qsizetype length = path.size();
    while (length > 1 && path.at(length - 1) == u'/')
        --length;
    return path.left(length);
}

// Characters that end the search for an extension: a name such as "Mr. Smith" has none, and
// direction marks must not hide one.
bool isAllowedInExtension(QChar c)
{
    const char16_t u = c.unicode();
    return u != u' ' && u != u'/' && u != 0x061c && u != 0x200e && u != 0x200f
        && !(u >= 0x202a && u <= 0x202e) && !(u >= 0x2066 && u <= 0x2069);
}

// Where the extension's dot stands in a path component, or -1.
qsizetype extensionDot(QStringView component)
{
    const qsizetype dot = component.lastIndexOf(u'.');
    if (dot <= 0 || dot == component.size() - 1)
        return -1;
    const QStringView extension = component.sliced(dot + 1);
    return std::ranges::all_of(extension, isAllowedInExtension) ? dot : -1;
}

} // namespace

bool isURLText(QByteArrayView text)
{
    if (text.isEmpty())
        return false;
    bool hasFragment = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) >= urlCharacters.size()
            || !urlCharacters.at(static_cast<unsigned char>(c)))
            return false;
        if (c == '%' && (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2])))
            return false;
        if (c == '#' && std::exchange(hasFragment, true))
            return false;
    }
    return true;
}

QString standardizedPath(const QString &path)
{
    QStringList kept;
    for (const QStringView segment : QStringView(path).split(u'/', Qt::SkipEmptyParts)) {
        if (segment == u"..") {
            if (!kept.isEmpty())
                kept.removeLast();
        } else if (segment != u".") {
            kept.append(segment.toString());
        }
    }
    return u'/' + kept.join(u'/');
}

std::optional<FileURL> FileURL::fromText(const QString &text)
{
    if (!isURLText(text.toUtf8()))
        return std::nullopt;
    return FileURL(text);
}

FileURL FileURL::fromValidText(const QString &text)
{
    return FileURL(text);
}

FileURL FileURL::file(const QString &path)
{
    return FileURL(fileScheme + escapedPath(withoutTrailingSlash(path)));
}

FileURL FileURL::directory(const QString &path)
{
    const QString bare = withoutTrailingSlash(path);
    return FileURL(fileScheme + escapedPath(bare) + (bare == u"/" ? QString() : QStringLiteral("/")));
}

bool FileURL::isFileURL() const
{
    return m_text.startsWith(bareFileScheme, Qt::CaseInsensitive);
}

bool FileURL::hasDirectoryPath() const
{
    return m_text.endsWith(u'/');
}

QString FileURL::path() const
{
    QStringView rest = m_text;
    if (const qsizetype colon = rest.indexOf(u':'); colon >= 0)
        rest = rest.sliced(colon + 1);
    if (rest.startsWith(u"//")) { // an authority, empty or "localhost", up to the next slash
        const qsizetype slash = rest.indexOf(u'/', 2);
        rest = slash < 0 ? QStringView() : rest.sliced(slash);
    }
    const auto end = std::ranges::find_if(rest, [](QChar c) { return c == u'?' || c == u'#'; });
    const QByteArray escaped = rest.first(std::distance(rest.begin(), end)).toUtf8();
    return withoutTrailingSlash(QString::fromUtf8(QByteArray::fromPercentEncoding(escaped)));
}

QString FileURL::standardizedPath() const
{
    return ::standardizedPath(path());
}

QString FileURL::lastPathComponent() const
{
    const QString whole = path();
    return whole == u"/" ? whole : whole.sliced(whole.lastIndexOf(u'/') + 1);
}

QString FileURL::pathExtension() const
{
    const QString component = lastPathComponent();
    const qsizetype dot = extensionDot(component);
    return dot < 0 ? QString() : component.sliced(dot + 1);
}

QString FileURL::displayName() const
{
    const QString component = lastPathComponent();
    const qsizetype dot = extensionDot(component);
    return dot < 0 ? component : component.left(dot);
}

FileURL FileURL::appendingFile(const QString &component) const
{
    const QString base = hasDirectoryPath() ? m_text : m_text + u'/';
    return FileURL(base + escapedPath(component));
}

FileURL FileURL::appendingDirectory(const QString &component) const
{
    return FileURL(appendingFile(component).m_text + u'/');
}

FileURL FileURL::deletingLastPathComponent() const
{
    const QString bare = withoutTrailingSlash(m_text);
    return FileURL(bare.left(bare.lastIndexOf(u'/') + 1));
}

size_t qHash(const FileURL &url, size_t seed)
{
    return qHash(url.text(), seed);
}
