#pragma once

#include "sedguiexport.h"

#include <QDialog>
#include <QList>
#include <QStringList>

#include <functional>

class QListWidget;
class QPushButton;

namespace koru::sedgui {

// The one question asked before several modified documents close together:
// a list with a check per document, Save (the checked ones; the others are
// discarded), Discard All and Cancel.
class SEDGUI_EXPORT SaveChangesDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Answer { Save, DiscardAll, Cancel };

    // names: how each document is shown. checked: one flag per name, in: the
    // initial checks, out: the documents to save (meaningful for Save only).
    using Answerer = std::function<Answer(const QStringList &names, QList<bool> *checked)>;

    static Answer ask(QWidget *parent, const QStringList &names, QList<bool> *checked);
    // Replaces the dialog (for tests); an empty function restores it.
    static void setAnswerer(Answerer answerer);

    SaveChangesDialog(const QStringList &names, const QList<bool> &checked,
                      QWidget *parent = nullptr);

    QList<bool> checkedFlags() const;
    Answer answer() const { return m_answer; }

private:
    void finish(Answer answer);
    void updateSaveButton();

    QListWidget *m_list = nullptr;
    QPushButton *m_save = nullptr;
    Answer m_answer = Answer::Cancel;
};

} // namespace koru::sedgui
