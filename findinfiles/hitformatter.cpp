#include "hitformatter.h"

#include "filenameescape.h"

#include <QChar>

#include <algorithm>
#include <iterator>

using koru::sedgui::FileNameEscape;

namespace {

// Put between ")" and ":" so that the pane's pattern cannot end a file name there;
// it takes no room on screen.
constexpr char16_t ZeroWidthSpace = 0x200B;
constexpr char16_t Ellipsis = 0x2026;

bool isFormat(char16_t c)
{
    // None lies below the soft hyphen: ASCII text is passed at once.
    return c >= 0xAD && QChar::category(char32_t(c)) == QChar::Other_Format;
}

// A character that would break the pane's line or that is a control: shown
// as a space. Format characters (bidirectional controls, zero widths) are
// written out instead, as file names are; surrogate pairs stay.
bool isLineBreakOrControl(char16_t c)
{
    if (c >= 0x20 && c < 0x7F)
        return false; // printable ASCII, most of every line
    return c != u'\t' && !QChar::isSurrogate(c) && FileNameEscape::needsEscape(c) && !isFormat(c);
}

} // namespace

QString HitFormatter::blankControls(QStringView text)
{
    QString result = text.toString();
    const auto isControl = [](QChar c) { return isLineBreakOrControl(c.unicode()); };
    if (std::none_of(text.begin(), text.end(), isControl))
        return result;
    std::replace_if(result.begin(), result.end(), isControl, QLatin1Char(' '));
    return result;
}

QString HitFormatter::showFormatCharacters(const QString &text)
{
    const auto isFormatChar = [](QChar c) { return isFormat(c.unicode()); };
    if (std::none_of(text.begin(), text.end(), isFormatChar))
        return text;
    QString shown;
    for (const QChar c : text) {
        if (isFormat(c.unicode()))
            shown += FileNameEscape::escape(QStringView(&c, 1));
        else
            shown += c;
    }
    return shown;
}

void HitFormatter::breakParenColon(QString &text)
{
    qsizetype at = text.indexOf(QLatin1Char(':'));
    while (at >= 0) {
        if (at > 0 && text.at(at - 1) == QLatin1Char(')')) {
            text.insert(at, QChar(ZeroWidthSpace));
            ++at;
        }
        at = text.indexOf(QLatin1Char(':'), at + 1);
    }
}

QString HitFormatter::displayText(QStringView text, qsizetype column)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && (text[first].isSpace() || isLineBreakOrControl(text[first].unicode())))
        ++first;
    while (last > first &&
           (text[last - 1].isSpace() || isLineBreakOrControl(text[last - 1].unicode())))
        --last;
    QString shown = blankControls(text.sliced(first, last - first));
    column = std::clamp<qsizetype>(column - first, 0, shown.size());

    if (shown.size() > MaxTextLength) {
        // Keep some context before the match, and the match itself in view.
        qsizetype start =
            std::clamp<qsizetype>(column - MaxTextLength / 4, 0, shown.size() - MaxTextLength);
        if (start > 0 && shown.at(start).isLowSurrogate())
            ++start;
        qsizetype length = std::min(MaxTextLength, shown.size() - start);
        if (start + length < shown.size() && shown.at(start + length - 1).isHighSurrogate())
            --length;
        QString cut = shown.mid(start, length);
        if (start > 0)
            cut.prepend(QChar(Ellipsis));
        if (start + length < shown.size())
            cut.append(QChar(Ellipsis));
        shown = cut;
    }
    shown = showFormatCharacters(shown);
    if (shown.isEmpty())
        shown = QStringLiteral(" ");
    breakParenColon(shown);
    return shown;
}

QString HitFormatter::hitLine(const QString &file, qint64 line, QStringView text, qsizetype column)
{
    QString hit;
    appendHitLine(hit, file, line, text, column);
    return hit;
}

void HitFormatter::appendHitLine(QString &out, QStringView file, qint64 line, QStringView text,
                                 qsizetype column)
{
    out += file;
    out += QLatin1Char('(');
    // Digits from the back; no formatting machinery for a million numbers.
    char digits[24];
    char *start = std::end(digits);
    auto value = static_cast<unsigned long long>(std::max<qint64>(line, 0));
    do {
        *--start = char('0' + value % 10);
        value /= 10;
    } while (value != 0);
    out += QLatin1StringView(start, std::end(digits));
    out += QLatin1StringView("):");

    // What displayText does, for text that it would only trim and keep "):" out of.
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && (text[first] == u' ' || text[first] == u'\t'))
        ++first;
    while (last > first && (text[last - 1] == u' ' || text[last - 1] == u'\t'))
        --last;
    const QStringView shown = text.sliced(first, last - first);
    const bool plain =
        !shown.isEmpty() && shown.size() <= MaxTextLength &&
        std::all_of(shown.begin(), shown.end(), [](QChar c) {
            return (c.unicode() > 0x20 && c.unicode() < 0x7F) || c == u' ' || c == u'\t';
        });
    if (!plain) {
        out += displayText(text, column);
        return;
    }
    qsizetype done = 0;
    for (qsizetype at = shown.indexOf(u':', 1); at > 0; at = shown.indexOf(u':', at + 1)) {
        if (shown[at - 1] == u')') {
            out += shown.sliced(done, at - done);
            out += QChar(ZeroWidthSpace);
            done = at;
        }
    }
    out += shown.sliced(done);
}

QString HitFormatter::noteLine(QStringView text)
{
    QString note = showFormatCharacters(blankControls(text));
    breakParenColon(note);
    return note;
}
