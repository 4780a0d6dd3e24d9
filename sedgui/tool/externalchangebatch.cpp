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

// As handleExternalChange() decides: a file deleted since the document last
// dealt with it, or one that differs and is not reloaded without asking.
bool ExternalChangeBatch::wouldAsk(const SedGUI *document)
{
    const DocumentState &doc = *document->m_doc;
    if (doc.filePath.isEmpty() || doc.closing)
        return false;
    const FileIdentity now = FileIdentity::of(doc.filePath);
    if (now == doc.diskIdentity)
        return false;
    if (!now.exists)
        return doc.diskIdentity.exists;
    return document->isModified() || !doc.diskIdentity.exists ||
           !EditorSettings::load().reloadUnmodifiedSilently;
}

void ExternalChangeBatch::ask()
{
    if (m_documents.size() < 2)
        return;
    QStringList names;
    QList<bool> modified;
    QList<bool> deleted;
    for (const QPointer<SedGUI> &document : std::as_const(m_documents)) {
        names.append(QDir::toNativeSeparators(document->getFileName()));
        modified.append(document->isModified());
        deleted.append(!FileIdentity::of(document->getFileName()).exists);
    }
    QList<bool> reload;
    for (qsizetype i = 0; i < modified.size(); ++i)
        reload.append(!modified.at(i) && !deleted.at(i));
    if (!ExternalChangesDialog::ask(m_documents.first()->window(), names, modified, deleted,
                                    &reload))
        reload.fill(false);
    for (qsizetype i = 0; i < m_documents.size(); ++i) {
        if (deleted.at(i))
            m_answers.append(reload.value(i) ? UserPrompt::Close : UserPrompt::KeepInEditor);
        else
            m_answers.append(reload.value(i) ? UserPrompt::Reload : UserPrompt::Keep);
    }
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
