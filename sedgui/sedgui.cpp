#include "sedgui.h"

#include "templatetree.h"

#include <QVBoxLayout>

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

SedGUI::SedGUI(QWidget *parent)
    : HubGUITool(parent)
    , m_editor(new QsciScintilla(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_editor);
    applySettings();
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
    return m_editor->selectedText();
}

} // namespace koru::sedgui
