#pragma once

#include <Qsci/qsciscintilla.h>

// What the child editor types into every document; tst_workkeeper types the
// same to know the text a journal must hold.
namespace JournalChildText {

inline void type(QsciScintilla *editor)
{
    editor->SendScintilla(QsciScintillaBase::SCI_DOCUMENTEND);
    for (const char *piece : {"na\xc3\xafve ", "caf\xc3\xa9", "\n", "end"})
        editor->SendScintilla(QsciScintillaBase::SCI_ADDTEXT, qstrlen(piece), piece);
    // Typing near the start leaves the editor's gap there, the text split around it.
    editor->SendScintilla(QsciScintillaBase::SCI_DOCUMENTSTART);
    editor->SendScintilla(QsciScintillaBase::SCI_ADDTEXT, 3UL, ">> ");
}

} // namespace JournalChildText
