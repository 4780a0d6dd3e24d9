#include "sedgui.h"

namespace koru::sedgui {

QList<QAction *> *SedGUI::getMenuActions(int)
{
    return nullptr;
}

void SedGUI::applySettings() {}

void SedGUI::prepareForSave() {}

} // namespace koru::sedgui
