#include "sedgui.h"

#include "templatetree.h"

namespace koru::sedgui {

SedGUI::SedGUI(QWidget *parent)
    : HubGUITool(parent)
{
    TemplateTree::Instance()->addDocument(this);
}

SedGUI::~SedGUI()
{
    TemplateTree::Instance()->removeDocument(this);
}

bool SedGUI::handleExternalChange()
{
    return false;
}

QString SedGUI::selectedText() const
{
    return {};
}

} // namespace koru::sedgui
