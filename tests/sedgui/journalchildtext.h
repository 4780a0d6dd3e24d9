#pragma once

#include "journalstore.h"

#include <QFile>

#include <Qsci/qsciscintilla.h>

// What the child editor types; tst_workkeeper types the same pieces to know
// every text a document goes through.
namespace JournalChildText {

// Documents typed into (an untitled one and the two files), and the pieces
// typed, round the documents, in one burst before a rest.
constexpr int Documents = 3;
constexpr int BurstPieces = 12;

// Types a document's piece n (from 0). Every piece adds text, so no two texts
// of a document are the same. Some go at the start, which leaves the editor's
// gap there, the text split around it; a line break is typed as Enter makes
// it, in the document's line ending.
inline void typePiece(QsciScintilla *editor, int n)
{
    static const char *const pieces[] = {"caf\xc3\xa9", " na\xc3\xafve", "\n", ">> ", "\xc3\xa8"};
    const char *piece = pieces[n % 5];
    editor->SendScintilla(n % 5 == 3 ? QsciScintillaBase::SCI_DOCUMENTSTART
                                     : QsciScintillaBase::SCI_DOCUMENTEND);
    if (*piece == '\n')
        editor->SendScintilla(QsciScintillaBase::SCI_NEWLINE);
    else
        editor->SendScintilla(QsciScintillaBase::SCI_ADDTEXT, qstrlen(piece), piece);
}

// The text of a document's journal in folder, its header in *entry; empty
// when there is no whole journal.
inline QByteArray journalText(const QString &folder, const QByteArray &documentId,
                              koru::sedgui::JournalEntry *entry)
{
    QFile file(folder + '/' + documentId + ".journal");
    QByteArray text;
    QString problem;
    return file.open(QIODevice::ReadOnly) &&
                   koru::sedgui::JournalStore::decode(file.readAll(), entry, &text, &problem)
               ? text
               : QByteArray();
}

} // namespace JournalChildText
