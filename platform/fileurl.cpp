#include "platform/fileurl.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1StringView fileScheme{"file://"};
constexpr QLatin1StringView bareFileScheme{"file:"};

// What each byte of a text means to isURLText, to be OR-ed together.
enum ByteClass : quint8 { Plain = 0, Illegal = 1, Percent = 2, Hash = 4 };

constexpr std::array<quint8, 256> makeByteClasses()
{
    std::array<quint8, 256> classes{};
    classes.fill(Illegal);
    for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                         "0123456789-._~:/?[]@!$&'()*+,;=")) {
        classes.at(static_cast<unsigned char>(c)) = Plain;
    }
    classes.at('%') = Percent;
    classes.at('#') = Hash;
    return classes;
}
constexpr std::array<quint8, 256> byteClasses = makeByteClasses();

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool hasWholeEscapes(QByteArrayView text)
{
    for (qsizetype at = text.indexOf('%'); at >= 0; at = text.indexOf('%', at + 1)) {
        if (at + 2 >= text.size() || !isHexDigit(text[at + 1]) || !isHexDigit(text[at + 2]))
            return false;
    }
    return true;
}

// What a file URL leaves unescaped in its path: the unreserved characters and those delimiters that
// mean nothing there.
constexpr std::array<bool, 256> makeUnescaped()
{
    std::array<bool, 256> unescaped{};
    for (const char c : std::string_view("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                         "0123456789-._~!$&'()*+,:=@/")) {
        unescaped.at(static_cast<unsigned char>(c)) = true;
    }
    return unescaped;
}
constexpr std::array<bool, 256> unescapedBytes = makeUnescaped();

bool staysUnescaped(char c)
{
    return unescapedBytes[static_cast<unsigned char>(c)];
}

char byteOf(char c)
{
    return c;
}

char byteOf(QChar c)
{
    return c.toLatin1();
}

// Writes by hand, since a scan makes thousands of URLs: QByteArray's way takes four buffers and
// several times as long. The name is in UTF-8 or, if all of it is ASCII, in either encoding.
template <typename Name> void appendEscapedBytes(QString &text, Name name)
{
    constexpr QStringView digits{u"0123456789ABCDEF"};
    const qsizetype escapes = std::ranges::count_if(
        name, [](auto character) { return !staysUnescaped(byteOf(character)); });
    const qsizetype start = text.size();
    text.resize(start + name.size() + 2 * escapes);
    QChar *out = text.data() + start;
    for (const auto character : name) {
        const char c = byteOf(character);
        if (staysUnescaped(c)) {
            *out++ = QLatin1Char(c);
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        *out++ = u'%';
        *out++ = digits[byte >> 4];
        *out++ = digits[byte & 15];
    }
}

void appendEscaped(QString &text, QByteArrayView name)
{
    appendEscapedBytes(text, name);
}

void appendEscaped(QString &text, QStringView name)
{
    if (std::ranges::all_of(name, [](QChar c) { return c < QChar(128); }))
        appendEscapedBytes(text, name);
    else
        appendEscapedBytes(text, QByteArrayView(name.toUtf8()));
}

int hexValue(char digit)
{
    return digit <= '9' ? digit - '0' : (digit | 0x20) - 'a' + 10;
}

// Every URL's text is ASCII and its escapes are whole (see isURLText).
QByteArray unescaped(QStringView text)
{
    QByteArray bytes = text.toLatin1();
    const qsizetype firstEscape = bytes.indexOf('%');
    if (firstEscape < 0)
        return bytes;
    char *out = bytes.data() + firstEscape;
    for (const char *in = out; in != bytes.constEnd(); ++in) {
        if (*in == '%') {
            *out++ = static_cast<char>(hexValue(in[1]) << 4 | hexValue(in[2]));
            in += 2;
        } else {
            *out++ = *in;
        }
    }
    bytes.truncate(out - bytes.constData());
    return bytes;
}

QString escaped(const QString &path)
{
    QString text;
    appendEscaped(text, path);
    return text;
}

template <typename Name>
QString entryText(const QString &before, Name name, bool isDirectory, const QString &after)
{
    QString text;
    text.reserve(before.size() + name.size() + name.size() / 2 + after.size() + 1); // some escapes
    text.append(before);
    appendEscaped(text, name);
    if (isDirectory)
        text.append(u'/');
    return text.append(after);
}

// The length of "scheme:", 0 when a text has none: a colon further on belongs to a path.
qsizetype schemeLength(QStringView text)
{
    const auto end = std::ranges::find_if(
        text, [](QChar c) { return c == u':' || c == u'/' || c == u'?' || c == u'#'; });
    return end != text.end() && *end == u':' ? std::distance(text.begin(), end) + 1 : 0;
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
        && (u < 0x202a || u > 0x202e) && (u < 0x2066 || u > 0x2069);
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
    // One pass without a branch: nearly every text has nothing to look at twice.
    unsigned found = Plain;
    for (const char c : text)
        found |= byteClasses[static_cast<unsigned char>(c)];
    if (text.isEmpty() || (found & Illegal))
        return false;
    return (!(found & Percent) || hasWholeEscapes(text))
        && (!(found & Hash) || std::ranges::count(text, '#') == 1);
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
    return FileURL(fileScheme + escaped(withoutTrailingSlash(path)));
}

FileURL FileURL::directory(const QString &path)
{
    const QString bare = withoutTrailingSlash(path);
    return FileURL(fileScheme + escaped(bare) + (bare == u"/" ? QString() : QStringLiteral("/")));
}

bool FileURL::isFileURL() const
{
    return m_text.startsWith(fileScheme) // what nearly all have, and quicker to tell
        || m_text.startsWith(bareFileScheme, Qt::CaseInsensitive);
}

// The path as the text has it: behind the scheme and the authority, empty or "localhost", and
// before a query or fragment.
QStringView FileURL::escapedPath() const
{
    QStringView rest = QStringView(m_text).sliced(schemeLength(m_text));
    for (const QChar end : {u'?', u'#'}) {
        if (const qsizetype at = rest.indexOf(end); at >= 0)
            rest.truncate(at);
    }
    if (!rest.startsWith(u"//"))
        return rest;
    const qsizetype slash = rest.indexOf(u'/', 2);
    return slash < 0 ? rest.last(0) : rest.sliced(slash);
}

bool FileURL::hasDirectoryPath() const
{
    return escapedPath().endsWith(u'/');
}

QByteArray FileURL::nativePath() const
{
    QByteArray path = unescaped(escapedPath());
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QString FileURL::path() const
{
    return QString::fromUtf8(nativePath());
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
    return EntryURLs(*this).entry(QStringView(component), false);
}

FileURL FileURL::appendingDirectory(const QString &component) const
{
    return EntryURLs(*this).entry(QStringView(component), true);
}

FileURL FileURL::appendingNative(QByteArrayView name, bool isDirectory) const
{
    return EntryURLs(*this).entry(name, isDirectory);
}

FileURL FileURL::deletingLastPathComponent() const
{
    QStringView path = escapedPath();
    const qsizetype start = path.data() - QStringView(m_text).data();
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    return FileURL(m_text.left(start + path.lastIndexOf(u'/') + 1));
}

EntryURLs::EntryURLs(const FileURL &directory)
{
    const QStringView text(directory.m_text);
    const QStringView path = directory.escapedPath();
    const qsizetype end = path.data() + path.size() - text.data();
    m_before = text.first(end) + (path.endsWith(u'/') ? QStringView() : QStringView(u"/"));
    m_after = text.sliced(end).toString();
}

FileURL EntryURLs::entry(QStringView name, bool isDirectory) const
{
    return FileURL(entryText(m_before, name, isDirectory, m_after));
}

FileURL EntryURLs::entry(QByteArrayView name, bool isDirectory) const
{
    return FileURL(entryText(m_before, name, isDirectory, m_after));
}

size_t qHash(const FileURL &url, size_t seed)
{
    return qHash(url.text(), seed);
}
