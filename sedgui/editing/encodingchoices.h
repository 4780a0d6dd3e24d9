#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

class QAction;
class QMenu;

namespace koru::sedgui {

struct TextFormat;

// The encodings offered to the user (the Encoding menus, the Files page),
// described by the script or region they serve, e.g. "Western European
// (Windows-1252)", grouped by region. One table; only the encodings the text
// codec supports are listed. UTF-8 with a byte order mark is a choice of its own.
class EncodingChoices
{
public:
    struct Choice
    {
        QByteArray encoding; // the codec's canonical name
        bool bom = false;    // UTF-8 written with a byte order mark
        QString region;      // translated, e.g. "Cyrillic"
        QString label;       // translated, e.g. "Cyrillic (KOI8-R)"
    };

    // In the order shown: Unicode first, then by region.
    static QList<Choice> all();
    // True when a document saved in format is saved as this choice (UTF-8
    // with and without a BOM are told apart).
    static bool matches(const Choice &choice, const TextFormat &format);
    // A description of an encoding; the bare name when it is not in the table.
    static QString label(const QByteArray &encoding, bool bom);
    // Adds every choice to menu: the Unicode ones directly, the others in one
    // sub-menu per region. setUp gives each new action its data and behaviour.
    static void fillMenu(QMenu *menu, const std::function<void(QAction *, const Choice &)> &setUp);
};

} // namespace koru::sedgui
