#include "filenameescape.h"

#include "textfilecodec.h"

#include <QChar>
#include <QRegularExpression>

namespace koru::sedgui {

namespace {

void appendEscape(QString &out, char kind, uint value, int digits)
{
    out += QLatin1Char('\\');
    out += QLatin1Char(kind);
    out += QLatin1Char('{');
    out += QString::number(value, 16).rightJustified(digits, QLatin1Char('0')).toUpper();
    out += QLatin1Char('}');
}

void appendCodePoint(QString &out, char32_t c, bool escape = true)
{
    if (escape && FileNameEscape::needsEscape(c))
        appendEscape(out, 'u', c, 4);
    else if (QChar::requiresSurrogates(c))
        out += QChar(QChar::highSurrogate(c)), out += QChar(QChar::lowSurrogate(c));
    else
        out += QChar(char16_t(c));
}

const QRegularExpression &escapePattern()
{
    static const QRegularExpression pattern(QStringLiteral("\\\\([ux])\\{([0-9A-F]{2,6})\\}"));
    return pattern;
}

// Whether text (which starts with a backslash) begins with something
// unescape or toNative would read as an escape.
bool beginsEscape(QByteArrayView text)
{
    if (text.size() < 5 || (text[1] != 'u' && text[1] != 'x') || text[2] != '{')
        return false;
    qsizetype digits = 0;
    while (3 + digits < text.size() && digits <= 6 &&
           ((text[3 + digits] >= '0' && text[3 + digits] <= '9') ||
            (text[3 + digits] >= 'A' && text[3 + digits] <= 'F')))
        ++digits;
    return digits >= 2 && digits <= 6 && 3 + digits < text.size() && text[3 + digits] == '}';
}

// fromBytes (every escape) or fromNative (bytes and backslashes only).
// A backslash that would begin an escape is written \u{005C} by both.
QString decode(QByteArrayView name, bool escapeAll)
{
    QString out;
    out.reserve(name.size());
    const auto *p = reinterpret_cast<const uchar *>(name.data());
    const auto *end = p + name.size();
    while (p < end) {
        const uchar c = *p;
        int length = 0;
        char32_t min = 0;
        char32_t cp = 0;
        if (c == '\\' && beginsEscape(QByteArrayView(p, end))) {
            appendEscape(out, 'u', c, 4);
            ++p;
            continue;
        }
        if (c < 0x80) {
            appendCodePoint(out, c, escapeAll);
            ++p;
            continue;
        }
        if (c >= 0xC2 && c <= 0xDF) {
            length = 2, min = 0x80, cp = c & 0x1F;
        } else if ((c & 0xF0) == 0xE0) {
            length = 3, min = 0x800, cp = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            length = 4, min = 0x10000, cp = c & 0x07;
        }
        bool valid = length > 0 && end - p >= length;
        for (int i = 1; valid && i < length; ++i) {
            valid = (p[i] & 0xC0) == 0x80;
            cp = (cp << 6) | (p[i] & 0x3F);
        }
        valid = valid && cp >= min && cp <= 0x10FFFF && !(cp >= 0xD800 && cp <= 0xDFFF);
        if (!valid) {
            appendEscape(out, 'x', c, 2);
            ++p;
            continue;
        }
        appendCodePoint(out, cp, escapeAll);
        p += length;
    }
    return out;
}

} // namespace

bool FileNameEscape::needsEscape(char32_t c)
{
    if (c >= 0x20 && c < 0x7F)
        return false; // printable ASCII, most of every name
    if (c < 0x20 || (c >= 0x7F && c <= 0x9F))
        return true; // C0 and C1 controls: tab, LF, VT, FF, CR, NEL among them
    if (c == 0x2028 || c == 0x2029 || c == 0xFFFC)
        return true; // line and paragraph separators, the object character
    if ((c >= 0xFDD0 && c <= 0xFDEF) || (c & 0xFFFE) == 0xFFFE)
        return true; // non-characters, two of which separate Qt's text blocks
    if (c >= 0xD800 && c <= 0xDFFF)
        return true; // a lone surrogate
    // Bidi controls, zero widths; none lies below the soft hyphen.
    return c >= 0xAD && QChar::category(c) == QChar::Other_Format;
}

QString FileNameEscape::fromBytes(QByteArrayView name)
{
    return decode(name, true);
}

QString FileNameEscape::fromNative(QByteArrayView name)
{
    if (!name.contains('\\') && TextFileCodec::isValidUtf8(name.data(), name.size()))
        return QString::fromUtf8(name);
    return decode(name, false);
}

QByteArray FileNameEscape::toNative(QStringView name)
{
    if (!name.contains(u'\\'))
        return name.toUtf8();
    QByteArray out;
    out.reserve(name.size());
    qsizetype done = 0;
    QRegularExpressionMatchIterator it = escapePattern().globalMatch(name);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        const char32_t value = match.captured(2).toUInt(nullptr, 16);
        const bool isByte = match.capturedView(1) == QLatin1String("x");
        if (isByte ? value > 0xFF : value > 0x10FFFF)
            continue; // not an escape: stays as written
        out += name.sliced(done, match.capturedStart() - done).toUtf8();
        done = match.capturedEnd();
        if (isByte)
            out += char(value);
        else
            out += QString::fromUcs4(&value, 1).toUtf8();
    }
    out += name.sliced(done).toUtf8();
    return out;
}

QString FileNameEscape::escape(QStringView name)
{
    QString out;
    out.reserve(name.size());
    for (qsizetype i = 0; i < name.size(); ++i) {
        char32_t c = name[i].unicode();
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate())
            c = QChar::surrogateToUcs4(name[i], name[i + 1]), ++i;
        appendCodePoint(out, c);
    }
    return out;
}

bool FileNameEscape::hasEscapes(QStringView text)
{
    return text.contains(QLatin1String("\\u{")) || text.contains(QLatin1String("\\x{"));
}

} // namespace koru::sedgui
