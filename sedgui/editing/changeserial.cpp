#include "editing/changeserial.h"

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

ChangeSerial::ChangeSerial(QsciScintilla *editor)
    : QObject(editor)
{
    setObjectName(QStringLiteral("ChangeSerial"));
    constexpr int Changes =
        QsciScintillaBase::SC_MOD_BEFOREINSERT | QsciScintillaBase::SC_MOD_BEFOREDELETE |
        QsciScintillaBase::SC_MOD_INSERTTEXT | QsciScintillaBase::SC_MOD_DELETETEXT;
    connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int, int type, const char *, int, int, int, int, int, int, int) {
                if (type & Changes)
                    ++m_value;
            });
    connect(editor, &QsciScintilla::textChanged, this, [this] { ++m_value; });
}

} // namespace koru::sedgui
