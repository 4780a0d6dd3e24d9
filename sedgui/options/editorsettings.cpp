#include "options/editorsettings.h"

#include "baseusrsettings.h"
#include "lexers/colourscheme.h"
#include "textfilecodec.h"

#include <QFontDatabase>

namespace koru::sedgui {

namespace {

const char *const s_store = "SRC_EDITOR";

const QString s_fontFamily = QStringLiteral("Editor/FontFamily");
const QString s_fontSize = QStringLiteral("Editor/FontSize");
const QString s_tabWidth = QStringLiteral("Editor/TabWidth");
const QString s_indentWidth = QStringLiteral("Editor/IndentWidth");
const QString s_indentWithSpaces = QStringLiteral("Editor/IndentWithSpaces");
const QString s_autoIndent = QStringLiteral("Editor/AutoIndent");
const QString s_lineNumbers = QStringLiteral("Editor/LineNumbers");
const QString s_wordWrap = QStringLiteral("Editor/WordWrap");
const QString s_showWhitespace = QStringLiteral("Editor/ShowWhitespace");
const QString s_highlightCurrentLine = QStringLiteral("Editor/HighlightCurrentLine");
const QString s_braceMatching = QStringLiteral("Editor/BraceMatching");
const QString s_autoCloseBrackets = QStringLiteral("Editor/AutoCloseBrackets");
const QString s_colourScheme = QStringLiteral("Editor/ColourScheme");

const QString s_defaultEncoding = QStringLiteral("Files/DefaultEncoding");
const QString s_defaultLineEnding = QStringLiteral("Files/DefaultLineEnding");
const QString s_reloadUnmodified = QStringLiteral("Files/ReloadUnmodifiedSilently");
const QString s_trimTrailing = QStringLiteral("Files/TrimTrailingWhitespace");
const QString s_restoreSession = QStringLiteral("Files/RestoreSession");
const QString s_keepWorkOnQuit = QStringLiteral("Files/KeepWorkOnQuit");

// The store holds text; anything that does not read back as the expected kind
// of value gives the default instead.
bool readBool(const QSettings &settings, const QString &key, bool fallback)
{
    const QString text = settings.value(key).toString().trimmed().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1")) {
        return true;
    }
    if (text == QLatin1String("false") || text == QLatin1String("0")) {
        return false;
    }
    return fallback;
}

int readInt(const QSettings &settings, const QString &key, int fallback, int min, int max)
{
    bool ok = false;
    const int value = settings.value(key).toString().trimmed().toInt(&ok);
    return ok && value >= min && value <= max ? value : fallback;
}

} // namespace

QString EditorSettings::lineEndingName(LineEnding ending)
{
    switch (ending) {
    case LineEnding::CRLF:
        return QStringLiteral("CRLF");
    case LineEnding::CR:
        return QStringLiteral("CR");
    case LineEnding::LF:
        break;
    }
    return QStringLiteral("LF");
}

bool EditorSettings::lineEndingFromName(const QString &name, LineEnding *ending)
{
    for (LineEnding candidate : {LineEnding::LF, LineEnding::CRLF, LineEnding::CR}) {
        if (name.compare(lineEndingName(candidate), Qt::CaseInsensitive) == 0) {
            *ending = candidate;
            return true;
        }
    }
    return false;
}

EditorSettings::Values EditorSettings::defaults()
{
    Values values;
    values.font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (values.font.pointSize() <= 0) {
        values.font.setPointSize(10);
    }
    return values;
}

EditorSettings::Values EditorSettings::load()
{
    Values values = defaults();
    BaseUsrSettings settings(s_store);

    const QString family = settings.value(s_fontFamily).toString().trimmed();
    if (!family.isEmpty()) {
        values.font.setFamily(family);
    }
    values.font.setPointSize(
        readInt(settings, s_fontSize, values.font.pointSize(), MinFontSize, MaxFontSize));
    values.tabWidth = readInt(settings, s_tabWidth, values.tabWidth, MinTabWidth, MaxTabWidth);
    // Stores from before the two widths were separate hold the tab width only.
    values.indentWidth =
        readInt(settings, s_indentWidth, values.tabWidth, MinTabWidth, MaxTabWidth);
    values.indentWithSpaces = readBool(settings, s_indentWithSpaces, values.indentWithSpaces);
    values.autoIndent = readBool(settings, s_autoIndent, values.autoIndent);
    values.lineNumbers = readBool(settings, s_lineNumbers, values.lineNumbers);
    values.wordWrap = readBool(settings, s_wordWrap, values.wordWrap);
    values.showWhitespace = readBool(settings, s_showWhitespace, values.showWhitespace);
    values.highlightCurrentLine =
        readBool(settings, s_highlightCurrentLine, values.highlightCurrentLine);
    values.braceMatching = readBool(settings, s_braceMatching, values.braceMatching);
    values.autoCloseBrackets = readBool(settings, s_autoCloseBrackets, values.autoCloseBrackets);
    const QString scheme = settings.value(s_colourScheme).toString().trimmed();
    if (ColourScheme::ids().contains(scheme)) {
        values.colourScheme = scheme;
    }

    const QByteArray encoding = TextFileCodec::canonicalEncoding(
        settings.value(s_defaultEncoding).toString().trimmed().toLatin1());
    if (!encoding.isEmpty()) {
        values.defaultEncoding = encoding;
    }
    lineEndingFromName(settings.value(s_defaultLineEnding).toString().trimmed(),
                       &values.defaultLineEnding);
    values.reloadUnmodifiedSilently =
        readBool(settings, s_reloadUnmodified, values.reloadUnmodifiedSilently);
    values.trimTrailingWhitespace =
        readBool(settings, s_trimTrailing, values.trimTrailingWhitespace);
    values.restoreSession = readBool(settings, s_restoreSession, values.restoreSession);
    values.keepWorkOnQuit = readBool(settings, s_keepWorkOnQuit, values.keepWorkOnQuit);
    return values;
}

bool EditorSettings::store(const Values &values)
{
    BaseUsrSettings settings(s_store);
    // A store that could not be read is not overwritten with the little that was understood.
    if (settings.status() != QSettings::NoError) {
        return false;
    }
    settings.setValue(s_fontFamily, values.font.family());
    settings.setValue(s_fontSize, values.font.pointSize());
    settings.setValue(s_tabWidth, values.tabWidth);
    settings.setValue(s_indentWidth, values.indentWidth);
    settings.setValue(s_indentWithSpaces, values.indentWithSpaces);
    settings.setValue(s_autoIndent, values.autoIndent);
    settings.setValue(s_lineNumbers, values.lineNumbers);
    settings.setValue(s_wordWrap, values.wordWrap);
    settings.setValue(s_showWhitespace, values.showWhitespace);
    settings.setValue(s_highlightCurrentLine, values.highlightCurrentLine);
    settings.setValue(s_braceMatching, values.braceMatching);
    settings.setValue(s_autoCloseBrackets, values.autoCloseBrackets);
    settings.setValue(s_colourScheme, values.colourScheme);

    settings.setValue(s_defaultEncoding, QString::fromLatin1(values.defaultEncoding));
    settings.setValue(s_defaultLineEnding, lineEndingName(values.defaultLineEnding));
    settings.setValue(s_reloadUnmodified, values.reloadUnmodifiedSilently);
    settings.setValue(s_trimTrailing, values.trimTrailingWhitespace);
    settings.setValue(s_restoreSession, values.restoreSession);
    settings.setValue(s_keepWorkOnQuit, values.keepWorkOnQuit);
    settings.sync();
    return settings.status() == QSettings::NoError;
}

} // namespace koru::sedgui
