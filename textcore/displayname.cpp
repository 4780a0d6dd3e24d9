#include "displayname.h"

#include <QStringView>

namespace koru::sedgui {

namespace {

bool isHidden(char32_t code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Other_Surrogate:
        return true;
    default:
        return false;
    }
}

void appendEscaped(QString &out, char32_t code)
{
    out += QStringLiteral("<U+%1>").arg(
        QString::number(code, 16).toUpper().rightJustified(4, QLatin1Char('0')));
}

} // namespace

QString DisplayName::visible(const QString &name)
{
    QString out;
    out.reserve(name.size());
    const qsizetype size = name.size();
    for (qsizetype i = 0; i < size; ++i) {
        const QChar c = name.at(i);
        char32_t code = c.unicode();
        qsizetype units = 1;
        if (c.isHighSurrogate() && i + 1 < size && name.at(i + 1).isLowSurrogate()) {
            code = QChar::surrogateToUcs4(c, name.at(i + 1));
            units = 2;
        }
        const bool literalEscape =
            code == U'<' && QStringView(name).sliced(i + 1).startsWith(QLatin1String("U+"));
        if (isHidden(code) || literalEscape)
            appendEscaped(out, code);
        else
            out += QStringView(name).sliced(i, units);
        i += units - 1;
    }
    return out;
}

QString DisplayName::forMnemonicText(const QString &name)
{
    return visible(name).replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace koru::sedgui
