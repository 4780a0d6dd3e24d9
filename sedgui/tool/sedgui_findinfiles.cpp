#include "editing/changeserial.h"
#include "editing/scintillacalls.h"
#include "editing/textsearcher.h"
#include "sedgui.h"
#include "tool/documentstate.h"

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

using scintilla::send;
using Sci = QsciScintillaBase;

QVariantMap SedGUI::documentText() const
{
    QString name = getTabText();
    if (isModified() && name.endsWith(QLatin1Char('*')))
        name.chop(1);
    const QByteArrayView text = scintilla::buffer(m_editor);
    return {{QStringLiteral("text"), QByteArray(text.data(), text.size())},
            {QStringLiteral("file"), m_doc->filePath},
            {QStringLiteral("name"), name},
            {QStringLiteral("serial"), m_changeSerial->value()}};
}

qint64 SedGUI::changeSerial() const
{
    return m_changeSerial->value();
}

bool SedGUI::replaceRanges(const QVariantList &ranges)
{
    if (m_editor->isReadOnly())
        return false;
    // Checked whole before the first change, so that a bad list changes nothing.
    const qint64 length = send(m_editor, Sci::SCI_GETLENGTH);
    qint64 previousEnd = 0;
    for (const QVariant &range : ranges) {
        const QVariantList parts = range.toList();
        if (parts.size() != 3)
            return false;
        const qint64 begin = parts.at(0).toLongLong();
        const qint64 end = parts.at(1).toLongLong();
        if (begin < previousEnd || end < begin || end > length)
            return false;
        previousEnd = end;
    }
    if (ranges.isEmpty())
        return true;
    // From the last range to the first, so the earlier offsets stay valid.
    // The component reports no change on the way: each report reaches several
    // listeners (ChangeRelay, the completer, the bracket marker), a hundred
    // thousand times over in a large replace. It is told once at the end, as
    // replace all does.
    const qint64 eventMask = send(m_editor, Sci::SCI_GETMODEVENTMASK);
    send(m_editor, Sci::SCI_SETMODEVENTMASK, 0);
    send(m_editor, Sci::SCI_BEGINUNDOACTION);
    for (auto it = ranges.crbegin(); it != ranges.crend(); ++it) {
        const QVariantList parts = it->toList();
        const QByteArray text = parts.at(2).toByteArray();
        send(m_editor, Sci::SCI_SETTARGETRANGE, parts.at(0).toLongLong(), parts.at(1).toLongLong());
        m_editor->SendScintilla(Sci::SCI_REPLACETARGET, static_cast<unsigned long>(text.size()),
                                text.constData());
    }
    send(m_editor, Sci::SCI_ENDUNDOACTION);
    send(m_editor, Sci::SCI_SETMODEVENTMASK, eventMask);
    TextSearcher::announceChange(m_editor);
    return true;
}

} // namespace koru::sedgui
