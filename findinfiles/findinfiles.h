#pragma once

#include "findinfilesdialog.h"
#include "hitspan.h"
#include "replaceplan.h"
#include "resultwindow.h"
#include "searchoptions.h"
#include "searchsummary.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

class QAction;
class QDockWidget;
class DocumentDisposer;
class QMainWindow;
class ReplaceRunner;
class SearchEngine;

// Attaches Find in Files to a main window: the action opens the dialog, the
// search streams its hits into a result pane in a dock at the bottom (made on
// first use), the status bar shows progress and the outcome. A double-clicked
// hit goes to the window's onOpenFile(QString,int) slot, called by name so
// that nothing here depends on the window's class; the tool then in front is
// asked to select the match (its selectRange method, called by name). A hit in
// an untitled document, which has no file to open, brings its tab to the front
// instead. F4 and Shift+F4 go to the next and previous hit from anywhere in
// the window. Owned by the window.
class FindInFiles : public QObject
{
    Q_OBJECT

public:
    // A pane of more lines than this is not emptied in place for the next
    // search: it gets a new document, and the old one is freed on another
    // thread, as freeing it holds the event loop for milliseconds.
    static constexpr int PaneDisposedAbove = 5000;

    FindInFiles(QMainWindow *window, QAction *findInFilesAction);
    ~FindInFiles() override;

    void showDialog();
    void startSearch(const SearchOptions &options);
    void stopSearch();

    // Replace in files: finds every change (the dialog shows the progress and
    // can stop it), shows them for the user to check and confirm, then makes
    // the checked ones and reports in the pane. Files open in the editor are
    // changed in their buffers, the others on disk.
    void startReplace(const SearchOptions &options, const QString &replacement);

    FindInFilesDialog *dialog() const { return m_dialog; }
    ResultWindow *resultWindow() const { return m_results; }
    SearchEngine *engine() const { return m_engine; }
    QAction *nextHitAction() const { return m_nextHit; }
    QAction *previousHitAction() const { return m_previousHit; }

    // Selects the next (step 1) or previous (step -1) hit line of the pane
    // after the pane's caret, wrapping around, and opens it.
    void goToHit(int step);

    // The pane's first line for a search.
    static QString headingFor(const SearchOptions &options);
    // The outcome, as the status bar and the pane's last line say it.
    static QString summaryText(const SearchSummary &summary);
    static QString replaceSummaryText(const ReplaceSummary &summary);

private:
    void ensureResultWindow();
    void clearPane(const QString &heading);
    void emptyPane();
    void searchOpenDocuments(const SearchOptions &options);
    void openHit(const QString &file, int line);
    void showReplacePlan(const QList<ReplaceFile> &plan, const QString &error, bool cancelled);
    void showReplaceProgress(qint64 filesRead, qint64 changes);
    void showReplaceSummary(const ReplaceSummary &summary, bool cancelled);
    static QString whereText(const SearchOptions &options);
    QString frontToolSelection() const;
    void showHits(const QString &lines, const HitSpans &spans);
    HitSpan spanAt(int paneLine) const;
    void selectMatch(const QString &file, int line);
    void showProgress(qint64 filesSearched, qint64 hits);
    void searchFinished(const SearchSummary &summary);
    void showStatus(const QString &text, int timeoutMs = 0);

    QMainWindow *m_window = nullptr;
    SearchEngine *m_engine = nullptr;
    ReplaceRunner *m_replacer = nullptr;
    std::unique_ptr<DocumentDisposer> m_disposer;
    QString m_replaceHeading;
    QPointer<FindInFilesDialog> m_dialog;
    QPointer<QDockWidget> m_dock;
    QPointer<ResultWindow> m_results;
    QString m_lastWorkingFolder;
    QAction *m_nextHit = nullptr;
    QAction *m_previousHit = nullptr;
    // The span of each line of the pane, by line number; lines past its end
    // and lines without a valid span are not hits.
    HitSpans m_spans;
    // The untitled documents that hits of the pane lie in, by the name the
    // pane gives them: a name that is no file, so the tab is found here.
    QHash<QString, QPointer<QWidget>> m_untitled;
};
