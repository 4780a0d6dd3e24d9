#pragma once

#include <QByteArrayView>

#include <Qsci/qsciscintillabase.h>

namespace koru::sedgui::scintilla {

// One message to the editing component with integer arguments.
inline qint64 send(QsciScintillaBase *editor, unsigned int message, qint64 wParam = 0,
                   qint64 lParam = 0)
{
    return editor->SendScintilla(message, static_cast<unsigned long>(wParam),
                                 static_cast<long>(lParam));
}

// The whole buffer as one run of bytes, read in place. The component closes
// the gap it keeps for insertions to hand it out; any change to the text may
// move the bytes, so the view is taken again after each one.
inline QByteArrayView buffer(QsciScintillaBase *editor)
{
    const qint64 length = send(editor, QsciScintillaBase::SCI_GETLENGTH);
    const auto *data = static_cast<const char *>(
        editor->SendScintillaPtrResult(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
    return {data, length};
}

} // namespace koru::sedgui::scintilla
