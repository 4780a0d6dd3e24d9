#pragma once

#include "sedguiexport.h"

#include <QDialog>
#include <QList>
#include <QStringList>

#include <functional>

class QListWidget;

namespace koru::sedgui {

// The one question when several open files changed on disk at once: a list
// with a check per file, meaning reload, or close for a file deleted from
// disk. Files without unsaved changes start checked; files with unsaved
// changes and deleted files unchecked (keeping the user's text). Apply to
// Checked applies the checks, Keep All (and Escape) reloads and closes nothing.
class SEDGUI_EXPORT ExternalChangesDialog : public QDialog
{
    Q_OBJECT

public:
    // names: how each file is shown; modified, deleted: one flag per name;
    // reload, out: the files to reload (or close, when deleted). Returns false
    // for Keep All.
    using Answerer = std::function<bool(const QStringList &names, const QList<bool> &modified,
                                        const QList<bool> &deleted, QList<bool> *reload)>;

    static bool ask(QWidget *parent, const QStringList &names, const QList<bool> &modified,
                    const QList<bool> &deleted, QList<bool> *reload);
    // Replaces the dialog (for tests); an empty function restores it.
    static void setAnswerer(Answerer answerer);

    ExternalChangesDialog(const QStringList &names, const QList<bool> &modified,
                          const QList<bool> &deleted, QWidget *parent = nullptr);

    QList<bool> reloadFlags() const;

private:
    QListWidget *m_list = nullptr;
};

} // namespace koru::sedgui
