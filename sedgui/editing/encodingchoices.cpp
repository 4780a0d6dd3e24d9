#include "editing/encodingchoices.h"

#include "textfilecodec.h"
#include "textformat.h"

#include <QCoreApplication>
#include <QMenu>

namespace koru::sedgui {

namespace {

const char *const Context = "EncodingChoices";

struct Row
{
    const char *encoding;
    const char *shown; // how the name is written in the description
    const char *region;
    bool bom = false;
};

const char *const Unicode = QT_TRANSLATE_NOOP("EncodingChoices", "Unicode");

// Within a region, the most used encoding first.
const Row Rows[] = {
    {"UTF-8", "UTF-8", Unicode},
    {"UTF-8", "UTF-8", Unicode, true},
    {"UTF-16LE", "UTF-16LE", Unicode},
    {"UTF-16BE", "UTF-16BE", Unicode},
    {"UTF-32LE", "UTF-32LE", Unicode},
    {"UTF-32BE", "UTF-32BE", Unicode},
    {"WINDOWS-1252", "Windows-1252", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"ISO-8859-1", "ISO-8859-1", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"ISO-8859-15", "ISO-8859-15", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"MACINTOSH", "Mac Roman", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"IBM850", "DOS 850", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"IBM437", "DOS 437", QT_TRANSLATE_NOOP("EncodingChoices", "Western European")},
    {"WINDOWS-1250", "Windows-1250", QT_TRANSLATE_NOOP("EncodingChoices", "Central European")},
    {"ISO-8859-2", "ISO-8859-2", QT_TRANSLATE_NOOP("EncodingChoices", "Central European")},
    {"ISO-8859-16", "ISO-8859-16", QT_TRANSLATE_NOOP("EncodingChoices", "South-Eastern European")},
    {"ISO-8859-3", "ISO-8859-3", QT_TRANSLATE_NOOP("EncodingChoices", "South European")},
    {"ISO-8859-10", "ISO-8859-10", QT_TRANSLATE_NOOP("EncodingChoices", "Nordic")},
    {"ISO-8859-14", "ISO-8859-14", QT_TRANSLATE_NOOP("EncodingChoices", "Celtic")},
    {"WINDOWS-1251", "Windows-1251", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"KOI8-R", "KOI8-R", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"KOI8-U", "KOI8-U", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"ISO-8859-5", "ISO-8859-5", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"IBM866", "DOS 866", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"MAC-CYRILLIC", "Mac Cyrillic", QT_TRANSLATE_NOOP("EncodingChoices", "Cyrillic")},
    {"WINDOWS-1253", "Windows-1253", QT_TRANSLATE_NOOP("EncodingChoices", "Greek")},
    {"ISO-8859-7", "ISO-8859-7", QT_TRANSLATE_NOOP("EncodingChoices", "Greek")},
    {"WINDOWS-1254", "Windows-1254", QT_TRANSLATE_NOOP("EncodingChoices", "Turkish")},
    {"ISO-8859-9", "ISO-8859-9", QT_TRANSLATE_NOOP("EncodingChoices", "Turkish")},
    {"WINDOWS-1255", "Windows-1255", QT_TRANSLATE_NOOP("EncodingChoices", "Hebrew")},
    {"ISO-8859-8", "ISO-8859-8", QT_TRANSLATE_NOOP("EncodingChoices", "Hebrew")},
    {"WINDOWS-1256", "Windows-1256", QT_TRANSLATE_NOOP("EncodingChoices", "Arabic")},
    {"ISO-8859-6", "ISO-8859-6", QT_TRANSLATE_NOOP("EncodingChoices", "Arabic")},
    {"WINDOWS-1257", "Windows-1257", QT_TRANSLATE_NOOP("EncodingChoices", "Baltic")},
    {"ISO-8859-13", "ISO-8859-13", QT_TRANSLATE_NOOP("EncodingChoices", "Baltic")},
    {"ISO-8859-4", "ISO-8859-4", QT_TRANSLATE_NOOP("EncodingChoices", "Baltic")},
    {"WINDOWS-1258", "Windows-1258", QT_TRANSLATE_NOOP("EncodingChoices", "Vietnamese")},
    {"GB18030", "GB18030", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Simplified")},
    {"GBK", "GBK", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Simplified")},
    {"GB2312", "GB2312", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Simplified")},
    {"BIG5", "Big5", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Traditional")},
    {"BIG5-HKSCS", "Big5-HKSCS", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Traditional")},
    {"EUC-TW", "EUC-TW", QT_TRANSLATE_NOOP("EncodingChoices", "Chinese Traditional")},
    {"SHIFT_JIS", "Shift_JIS", QT_TRANSLATE_NOOP("EncodingChoices", "Japanese")},
    {"CP932", "Windows-31J", QT_TRANSLATE_NOOP("EncodingChoices", "Japanese")},
    {"EUC-JP", "EUC-JP", QT_TRANSLATE_NOOP("EncodingChoices", "Japanese")},
    {"ISO-2022-JP", "ISO-2022-JP", QT_TRANSLATE_NOOP("EncodingChoices", "Japanese")},
    {"EUC-KR", "EUC-KR", QT_TRANSLATE_NOOP("EncodingChoices", "Korean")},
    {"UHC", "Windows-949", QT_TRANSLATE_NOOP("EncodingChoices", "Korean")},
    {"TIS-620", "TIS-620", QT_TRANSLATE_NOOP("EncodingChoices", "Thai")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate(Context, text);
}

} // namespace

QList<EncodingChoices::Choice> EncodingChoices::all()
{
    const QList<QByteArray> supported = TextFileCodec::availableEncodings();
    QList<Choice> choices;
    for (const Row &row : Rows) {
        if (!supported.contains(row.encoding))
            continue;
        Choice choice;
        choice.encoding = row.encoding;
        choice.bom = row.bom;
        choice.region = translated(row.region);
        const QString name = row.bom
                                 ? translated(QT_TRANSLATE_NOOP("EncodingChoices", "%1 with BOM"))
                                       .arg(QLatin1String(row.shown))
                                 : QString::fromLatin1(row.shown);
        choice.label =
            translated(QT_TRANSLATE_NOOP("EncodingChoices", "%1 (%2)")).arg(choice.region, name);
        choices.append(choice);
    }
    return choices;
}

bool EncodingChoices::matches(const Choice &choice, const TextFormat &format)
{
    return choice.encoding == format.encoding &&
           (choice.encoding != "UTF-8" || choice.bom == format.bom);
}

QString EncodingChoices::label(const QByteArray &encoding, bool bom)
{
    for (const Choice &choice : all()) {
        if (choice.encoding == encoding && choice.bom == (bom && encoding == "UTF-8"))
            return choice.label;
    }
    return QString::fromLatin1(encoding);
}

void EncodingChoices::fillMenu(QMenu *menu,
                               const std::function<void(QAction *, const Choice &)> &setUp)
{
    const QString unicode = translated(Unicode);
    QMenu *regionMenu = nullptr;
    for (const Choice &choice : all()) {
        QMenu *into = menu;
        if (choice.region != unicode) {
            if (!regionMenu || regionMenu->title() != choice.region) {
                if (!regionMenu)
                    menu->addSeparator();
                regionMenu = menu->addMenu(choice.region);
            }
            into = regionMenu;
        }
        setUp(into->addAction(choice.label), choice);
    }
}

} // namespace koru::sedgui
