#pragma once

#include "options/editorsettings.h"
#include "sedguiexport.h"

#include <QStringList>

class OptWidget;
class QWidget;

namespace koru::sedgui {

// The tool library's option pages, as the factory hands them to the options
// dialog.
class SEDGUI_EXPORT OptionPages
{
public:
    // "Editor", "Files", in the user's language.
    static QStringList names();
    // A new page for the name, or null; the caller owns it.
    static OptWidget *create(const QString &name);

    // Stores the values and applies them to every open editor at once. When the
    // settings cannot be written the user is told (over page) and the open
    // editors keep what they have.
    static bool storeAndApply(const EditorSettings::Values &values, QWidget *page);
};

} // namespace koru::sedgui
