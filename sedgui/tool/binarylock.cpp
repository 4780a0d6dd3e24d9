#include "tool/binarylock.h"

#include "dialogs/infobar.h"

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

BinaryLock::BinaryLock(QsciScintilla *editor, InfoBar *infoBar, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
    , m_infoBar(infoBar)
{}

bool BinaryLock::looksBinary(const QByteArray &text)
{
    const QByteArrayView sample = QByteArrayView(text).first(std::min(text.size(), SampleBytes));
    qsizetype controls = 0;
    for (const char c : sample) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0)
            return true;
        const bool whitespace = byte == '\t' || byte == '\n' || byte == '\r' || byte == '\f' ||
                                byte == '\v' || byte == 0x1B;
        if ((byte < 0x20 && !whitespace) || byte == 0x7F)
            ++controls;
    }
    return controls * 10 > sample.size();
}

void BinaryLock::check(const QByteArray &text)
{
    if (m_editChosen || !looksBinary(text)) {
        m_notice.clear();
        return;
    }
    m_wasReadOnly = m_editor->isReadOnly();
    m_editor->setReadOnly(true);
    const QString others = m_infoBar->message();
    m_notice = tr("This looks like a binary file, not text: it is shown read-only so that it "
                  "is not changed by mistake.");
    if (!others.isEmpty())
        m_notice += QLatin1Char(' ') + others;
    m_infoBar->showMessage(m_notice, tr("Edit Anyway"));
}

bool BinaryLock::takeAction()
{
    if (m_notice.isEmpty() || m_infoBar->message() != m_notice)
        return false;
    m_notice.clear();
    m_editChosen = true;
    m_editor->setReadOnly(m_wasReadOnly);
    m_infoBar->clearMessage();
    return true;
}

} // namespace koru::sedgui
