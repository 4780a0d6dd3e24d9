#pragma once

#include "dialogs/userprompt.h"

#include <QList>
#include <QPointer>

class QWidget;

namespace koru::sedgui {

class SedGUI;

// Several open files changed on disk at once. The documents that would each
// ask the user about their change are asked in one list (see
// ExternalChangesDialog); while the batch exists, each document's
// handleExternalChange() takes its answer from there instead of asking. A
// single question is asked by its document as usual.
class ExternalChangeBatch
{
public:
    explicit ExternalChangeBatch(const QList<SedGUI *> &documents);
    ~ExternalChangeBatch();
    ExternalChangeBatch(const ExternalChangeBatch &) = delete;
    ExternalChangeBatch &operator=(const ExternalChangeBatch &) = delete;

    // Asks about every question at once when there are several.
    void ask();

    // The answer given for document in the current batch: Reload or Keep, or
    // for a deleted file Close or KeepInEditor; false when no batch answered for it.
    static bool answerFor(const SedGUI *document, UserPrompt::Button *answer);

private:
    static bool wouldAsk(const SedGUI *document);

    static ExternalChangeBatch *s_current;

    ExternalChangeBatch *m_previous = nullptr;
    QList<QPointer<SedGUI>> m_documents;
    QList<UserPrompt::Button> m_answers;
};

} // namespace koru::sedgui
