#include "hitformatter.h"

namespace {

// Put between ")" and ":" so that the pane's pattern cannot end a file name there;
// it takes no room on screen.
constexpr char16_t ZeroWidthSpace = 0x200B;
constexpr char16_t Ellipsis = 0x2026;

bool isLineBreakOrControl(char16_t c)
{
    return (c < 0x20 && c != u'\t') || c == 0x7F || c == 0x85 || c == 0x2028 || c == 0x2029;
}

} // namespace

QString HitFormatter::blankControls(QStringView text)
{
    QString result = text.toString();
    for (QChar &c : result) {
        if (isLineBreakOrControl(c.unicode()))
            c = QLatin1Char(' ');
    }
    return result;
}

void HitFormatter::breakParenColon(QString &text)
{
    qsizetype at = text.indexOf(QLatin1String("):"));
    while (at >= 0) {
        text.insert(at + 1, QChar(ZeroWidthSpace));
        at = text.indexOf(QLatin1String("):"), at + 2);
    }
}

QString HitFormatter::displayText(QStringView text, qsizetype column)
{
    QString shown = blankControls(text);
    qsizetype leading = 0;
    while (leading < shown.size() && shown.at(leading).isSpace())
        ++leading;
    shown = shown.trimmed();
    column = std::clamp<qsizetype>(column - leading, 0, shown.size());

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
    if (shown.isEmpty())
        shown = QStringLiteral(" ");
    breakParenColon(shown);
    return shown;
}

QString HitFormatter::hitLine(const QString &file, qint64 line, QStringView text, qsizetype column)
{
    return file + QLatin1Char('(') + QString::number(line) + QStringLiteral("):") +
           displayText(text, column);
}

QString HitFormatter::noteLine(QStringView text)
{
    QString note = blankControls(text);
    breakParenColon(note);
    return note;
}
