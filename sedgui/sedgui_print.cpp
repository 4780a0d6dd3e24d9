#include "sedgui.h"

namespace koru::sedgui {

void SedGUI::pageSetup() {}

void SedGUI::printPreview() {}

void SedGUI::print() {}

} // namespace koru::sedgui
