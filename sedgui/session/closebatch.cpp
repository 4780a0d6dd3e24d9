#include "session/closebatch.h"

#include "dialogs/userprompt.h"
#include "displayname.h"
#include "sedgui.h"
#include "session/savechangesdialog.h"

#include <QCoreApplication>

namespace koru::sedgui {

CloseBatch *CloseBatch::s_current = nullptr;

namespace {

QString displayName(const SedGUI *document)
{
    const QString path = document->getFileName();
    return path.isEmpty() ? document->getTabText().remove(QLatin1Char('*'))
                          : DisplayName::visible(path);
}

// The question a single document asks when it closes on its own.
UserPrompt::Button askOne(QWidget *parent, const SedGUI *document)
{
    UserPrompt::Question question;
    question.icon = UserPrompt::Icon::Warning;
    question.title = QCoreApplication::translate("koru::sedgui::CloseBatch", "Close Document");
    question.text = QCoreApplication::translate("koru::sedgui::CloseBatch",
                                                "Save the changes to %1 before closing?")
                        .arg(displayName(document));
    question.buttons = {UserPrompt::Save, UserPrompt::Discard, UserPrompt::Cancel};
    question.defaultButton = UserPrompt::Save;
    question.escapeButton = UserPrompt::Cancel;
    return UserPrompt::ask(parent, question);
}

} // namespace

CloseBatch::CloseBatch(const QList<SedGUI *> &documents)
    : m_previous(s_current)
{
    for (SedGUI *document : documents)
        m_documents.append(document);
    s_current = this;
}

CloseBatch::~CloseBatch()
{
    s_current = m_previous;
}

bool CloseBatch::settle(QWidget *parent)
{
    QList<QPointer<SedGUI>> modified;
    for (const QPointer<SedGUI> &document : std::as_const(m_documents)) {
        if (document && document->isModified())
            modified.append(document);
    }

    QList<bool> save(modified.size(), true);
    bool cancelled = false;
    if (modified.size() == 1) {
        const UserPrompt::Button answer = askOne(parent, modified.first());
        cancelled = answer == UserPrompt::Cancel;
        save[0] = answer == UserPrompt::Save;
    } else if (modified.size() > 1) {
        QStringList names;
        for (const QPointer<SedGUI> &document : std::as_const(modified))
            names.append(displayName(document));
        const SaveChangesDialog::Answer answer = SaveChangesDialog::ask(parent, names, &save);
        cancelled = answer == SaveChangesDialog::Answer::Cancel;
        if (answer == SaveChangesDialog::Answer::DiscardAll)
            save.fill(false);
    }
    for (qsizetype i = 0; i < modified.size() && !cancelled; ++i) {
        // A document may have gone while a dialog was open.
        const QPointer<SedGUI> &document = modified.at(i);
        if (save.value(i) && document && !document->save())
            cancelled = true;
    }
    m_settled = !cancelled;
    return m_settled;
}

CloseBatch::Verdict CloseBatch::verdict(const SedGUI *document)
{
    for (const CloseBatch *batch = s_current; batch; batch = batch->m_previous) {
        for (const QPointer<SedGUI> &held : batch->m_documents) {
            if (held == document)
                return batch->m_settled ? Verdict::Close : Verdict::Keep;
        }
    }
    return Verdict::Ask;
}

} // namespace koru::sedgui
