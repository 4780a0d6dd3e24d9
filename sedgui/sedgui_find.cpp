#include "sedgui.h"

namespace koru::sedgui {

void SedGUI::find() {}

void SedGUI::findNext() {}

void SedGUI::replace() {}

void SedGUI::goTo() {}

} // namespace koru::sedgui
