#include "dialogs/findbar.h"
#include "dialogs/gotodialog.h"
#include "editing/editorcommands.h"
#include "sedgui.h"

#include <QBoxLayout>

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

namespace {

// The find bar is made the first time it is needed and sits under the text.
FindBar *findBar(SedGUI *tool)
{
    auto *bar = tool->findChild<FindBar *>(QString(), Qt::FindDirectChildrenOnly);
    if (!bar) {
        bar = new FindBar(tool->editor(), tool);
        bar->hide();
        if (auto *box = qobject_cast<QBoxLayout *>(tool->layout())) {
            box->addWidget(bar);
        }
    }
    return bar;
}

// Find Next and Find Previous: the bar's query, or the last one of any bar.
void findInDirection(SedGUI *tool, bool reverse)
{
    FindBar *bar = findBar(tool);
    if (bar->query().pattern.isEmpty()) {
        bar->setQuery(FindBar::lastQuery());
    }
    if (bar->query().pattern.isEmpty()) {
        tool->find();
        return;
    }
    const SearchMatch match = bar->findNext(reverse);
    if (!match.found()) {
        // Say so where the user can see it.
        bar->show();
    }
}

} // namespace

void SedGUI::find()
{
    findBar(this)->showFind(m_editor->selectedText());
}

void SedGUI::replace()
{
    findBar(this)->showReplace(m_editor->selectedText());
}

void SedGUI::findNext()
{
    findInDirection(this, false);
}

void SedGUI::findPrevious()
{
    findInDirection(this, true);
}

void SedGUI::goTo()
{
    int line = 0;
    int index = 0;
    m_editor->getCursorPosition(&line, &index);
    GoToDialog dialog(line + 1, m_editor->lines(), this);
    if (dialog.exec() == QDialog::Accepted) {
        EditorCommands::goToLine(m_editor, dialog.line(), dialog.column());
        m_editor->setFocus();
    }
}

} // namespace koru::sedgui
