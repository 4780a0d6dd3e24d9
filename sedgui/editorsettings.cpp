#include "editorsettings.h"

#include <QFontDatabase>

namespace koru::sedgui {

EditorSettings::Values EditorSettings::defaults()
{
    Values values;
    values.font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    return values;
}

EditorSettings::Values EditorSettings::load()
{
    return defaults();
}

void EditorSettings::store(const Values &) {}

} // namespace koru::sedgui
