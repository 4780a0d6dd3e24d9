#include "tool/externalchangebatch.h"

#include "dialogs/externalchangesdialog.h"
#include "options/editorsettings.h"
#include "sedgui.h"
#include "tool/documentstate.h"

#include <QDir>

namespace koru::sedgui {

ExternalChangeBatch *ExternalChangeBatch::s_current = nullptr;

ExternalChangeBatch::ExternalChangeBatch(const QList<SedGUI *> &documents)
    : m_previous(s_current)
{
    for (SedGUI *document : documents) {
        if (wouldAsk(document))
            m_documents.append(document);
    }
    s_current = this;
}

ExternalChangeBatch::~ExternalChangeBatch()
{
    s_current = m_previous;
}

// As handleExternalChange() decides: a file that is there and differs from
// what the document last dealt with, and is not reloaded without asking.
bool ExternalChangeBatch::wouldAsk(const SedGUI *document)
{
    const DocumentState &doc = *document->m_doc;
    if (doc.filePath.isEmpty() || doc.closing)
        return false;
    const FileIdentity now = FileIdentity::of(doc.filePath);
    if (!now.exists || now == doc.diskIdentity)
        return false;
    return document->isModified() || !doc.diskIdentity.exists ||
           !EditorSettings::load().reloadUnmodifiedSilently;
}

void ExternalChangeBatch::ask()
{
    if (m_documents.size() < 2)
        return;
    QStringList names;
    QList<bool> modified;
    for (const QPointer<SedGUI> &document : std::as_const(m_documents)) {
        names.append(QDir::toNativeSeparators(document->getFileName()));
        modified.append(document->isModified());
    }
    QList<bool> reload;
    for (const bool mine : std::as_const(modified))
        reload.append(!mine);
    if (!ExternalChangesDialog::ask(m_documents.first()->window(), names, modified, &reload))
        reload.fill(false);
    for (qsizetype i = 0; i < m_documents.size(); ++i)
        m_answers.append(reload.value(i) ? UserPrompt::Reload : UserPrompt::Keep);
}

bool ExternalChangeBatch::answerFor(const SedGUI *document, UserPrompt::Button *answer)
{
    for (const ExternalChangeBatch *batch = s_current; batch; batch = batch->m_previous) {
        const qsizetype at = batch->m_documents.indexOf(document);
        if (at >= 0 && at < batch->m_answers.size()) {
            *answer = batch->m_answers.at(at);
            return true;
        }
    }
    return false;
}

} // namespace koru::sedgui
