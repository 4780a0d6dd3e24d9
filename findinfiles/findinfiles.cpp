#include "findinfiles.h"

#include "documentdisposer.h"
#include "filenameescape.h"
#include "findinfilesdialog.h"
#include "hitformatter.h"
#include "opendocuments.h"
#include "replacepreview.h"
#include "replacerunner.h"
#include "resultwindow.h"
#include "searchengine.h"
#include "textmatcher.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QMetaObject>
#include <QPlainTextDocumentLayout>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBlock>

#include <algorithm>
#include <climits>

FindInFiles::FindInFiles(QMainWindow *window, QAction *findInFilesAction)
    : QObject(window)
    , m_window(window)
    , m_engine(new SearchEngine(this))
    , m_replacer(new ReplaceRunner(this))
    , m_disposer(std::make_unique<DocumentDisposer>())
{
    setObjectName(QStringLiteral("FindInFiles"));
    if (findInFilesAction) {
        connect(findInFilesAction, &QAction::triggered, this, &FindInFiles::showDialog);
        // The menus are built only as they open: on the window, the shortcut works at once.
        window->addAction(findInFilesAction);
    }
    connect(m_engine, &SearchEngine::hitsReady, this,
            [this](const QString &lines, int, const HitSpans &spans) { showHits(lines, spans); });

    // On the window, so that they work wherever the focus is in it.
    m_nextHit = new QAction(tr("Next Search Hit"), this);
    m_nextHit->setObjectName(QStringLiteral("FindInFilesNextHit"));
    m_nextHit->setShortcut(QKeySequence(Qt::Key_F4));
    m_previousHit = new QAction(tr("Previous Search Hit"), this);
    m_previousHit->setObjectName(QStringLiteral("FindInFilesPreviousHit"));
    m_previousHit->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F4));
    for (QAction *action : {m_nextHit, m_previousHit}) {
        action->setShortcutContext(Qt::WindowShortcut);
        window->addAction(action);
    }
    connect(m_nextHit, &QAction::triggered, this, [this] { goToHit(1); });
    connect(m_previousHit, &QAction::triggered, this, [this] { goToHit(-1); });
    connect(m_engine, &SearchEngine::progress, this, &FindInFiles::showProgress);
    connect(m_engine, &SearchEngine::finished, this, &FindInFiles::searchFinished);
    connect(m_replacer, &ReplaceRunner::progress, this, &FindInFiles::showReplaceProgress);
    connect(m_replacer, &ReplaceRunner::planned, this, &FindInFiles::showReplacePlan);
    connect(m_replacer, &ReplaceRunner::applied, this, &FindInFiles::showReplaceSummary);
}

FindInFiles::~FindInFiles()
{
    // The engine ends its worker before the window's widgets go.
    delete m_engine;
    m_engine = nullptr;
    delete m_replacer;
    m_replacer = nullptr;
    // Before the window's widgets go: no document of the pane is still being freed.
    m_disposer.reset();
}

void FindInFiles::showDialog()
{
    if (!m_dialog) {
        m_dialog = new FindInFilesDialog(m_window);
        connect(m_dialog, &FindInFilesDialog::findRequested, this, &FindInFiles::startSearch);
        connect(m_dialog, &FindInFilesDialog::stopRequested, this, &FindInFiles::stopSearch);
        connect(m_dialog, &FindInFilesDialog::replaceRequested, this, &FindInFiles::startReplace);
    }
    // The shell makes the front tool's folder the working directory; follow it
    // unless the user chose another folder since it last changed.
    const QString working = QDir::currentPath();
    if (working != m_lastWorkingFolder || m_dialog->folder().isEmpty()) {
        m_lastWorkingFolder = working;
        m_dialog->setFolder(working);
    }
    const QString selection = frontToolSelection();
    if (!selection.isEmpty())
        m_dialog->setSearchText(selection);
    m_dialog->setSearching(m_engine->isRunning() || m_replacer->isRunning());
    m_dialog->show();
    m_dialog->focusSearchText();
    m_dialog->raise();
    m_dialog->activateWindow();
}

QString FindInFiles::frontToolSelection() const
{
    const auto *tabs = qobject_cast<QTabWidget *>(m_window->centralWidget());
    QWidget *front = tabs ? tabs->currentWidget() : nullptr;
    if (!front)
        return QString();
    // Tools that have no such method leave the text as it was.
    if (front->metaObject()->indexOfMethod("selectedText()") < 0)
        return QString();
    QString text;
    if (!QMetaObject::invokeMethod(front, "selectedText", Qt::DirectConnection,
                                   Q_RETURN_ARG(QString, text)))
        return QString();
    // Only a selection within one line makes a search text.
    if (text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r')) ||
        text.contains(QChar::ParagraphSeparator) || text.size() > 200)
        return QString();
    return text;
}

void FindInFiles::ensureResultWindow()
{
    if (m_results)
        return;
    m_dock = new QDockWidget(tr("Find in Files"), m_window);
    m_dock->setObjectName(QStringLiteral("FindInFilesDock"));
    m_dock->setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
    m_results = new ResultWindow(m_dock);
    m_results->setObjectName(QStringLiteral("FindInFilesResults"));
    // The pane is a log of hits: no undo history, which would double its memory.
    m_results->document()->setUndoRedoEnabled(false);
    m_dock->setWidget(m_results);
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_dock);

    connect(m_results, &ResultWindow::sigOpenFile, this, &FindInFiles::openHit);
    connect(m_results, &ResultWindow::sigForceStopFindInFiles, this, &FindInFiles::stopSearch);
}

void FindInFiles::openHit(const QString &file, int line)
{
    const auto untitled = m_untitled.constFind(file);
    if (untitled != m_untitled.cend()) {
        const HitSpan span = spanAt(m_results->textCursor().blockNumber());
        if (!OpenDocuments::show(m_window, untitled->data(), line, std::max(span.column, 0),
                                 span.length))
            showStatus(tr("%1 is no longer open").arg(file), 3000);
        return;
    }
    // By name: the window's class is not known here. The tool in front is then
    // the hit's file, whose match is selected.
    QMetaObject::invokeMethod(m_window, "onOpenFile", Qt::DirectConnection, Q_ARG(QString, file),
                              Q_ARG(int, line));
    selectMatch(file, line);
}

HitSpan FindInFiles::spanAt(int paneLine) const
{
    return paneLine >= 0 && paneLine < m_spans.size() ? m_spans.at(paneLine) : HitSpan();
}

void FindInFiles::goToHit(int step)
{
    if (!m_results)
        return;
    const QTextDocument *pane = m_results->document();
    const int lines = pane->blockCount();
    const int from = m_results->textCursor().blockNumber();
    for (int i = 1; i <= lines; ++i) {
        const int line = ((from + i * step) % lines + lines) % lines;
        if (!spanAt(line).isValid())
            continue;
        m_dock->show();
        m_dock->raise();
        m_results->openLineAt(QTextCursor(pane->findBlockByNumber(line)));
        return;
    }
    showStatus(tr("No search hits"), 3000);
}

void FindInFiles::selectMatch(const QString &file, int line)
{
    const HitSpan span = spanAt(m_results->textCursor().blockNumber());
    const auto *tabs = qobject_cast<QTabWidget *>(m_window->centralWidget());
    QWidget *front = tabs ? tabs->currentWidget() : nullptr;
    if (file.isEmpty() || !span.isValid() || !front ||
        front->metaObject()->indexOfMethod("selectRange(QString,int,int,int)") < 0)
        return;
    // The tool checks that it shows that file: if the open failed, the tool in
    // front is another document.
    QMetaObject::invokeMethod(front, "selectRange", Qt::DirectConnection, Q_ARG(QString, file),
                              Q_ARG(int, line), Q_ARG(int, span.column), Q_ARG(int, span.length));
}

void FindInFiles::clearPane(const QString &heading)
{
    ensureResultWindow();
    m_engine->stop();
    emptyPane();
    m_spans.clear();
    m_untitled.clear();
    m_results->appendPlainText(HitFormatter::noteLine(heading));
    m_dock->show();
    m_dock->raise();
}

void FindInFiles::emptyPane()
{
    QTextDocument *old = m_results->document();
    if (old->blockCount() > PaneDisposedAbove) {
        // A new document set up as the view sets up its first one; the old one
        // is freed on the disposer's thread. The view deletes only a document
        // that is its control's child, so the old one is taken from it first.
        auto *fresh = new QTextDocument(m_results);
        fresh->setDocumentLayout(new QPlainTextDocumentLayout(fresh));
        fresh->setDefaultFont(m_results->font());
        fresh->setUndoRedoEnabled(false);
        old->setParent(nullptr);
        m_results->setDocument(fresh);
        fresh->documentLayout()->setPaintDevice(m_results->viewport());
        m_disposer->dispose(old);
    }
    // A small pane is emptied in place; a new one is empty already.
    m_results->clear();
}

void FindInFiles::startSearch(const SearchOptions &options)
{
    m_replacer->stop();
    clearPane(headingFor(options));
    if (options.openDocumentsOnly) {
        searchOpenDocuments(options);
        return;
    }
    if (m_dialog) {
        m_dialog->setSearching(true);
        m_dialog->setStatus(tr("Searching..."));
    }
    showStatus(tr("Searching..."));
    m_engine->start(options);
}

void FindInFiles::searchOpenDocuments(const SearchOptions &options)
{
    // The buffers are in memory and read in place by the tools, on this thread.
    SearchSummary summary;
    const TextMatcher matcher(options);
    if (!matcher.isValid())
        summary.error = matcher.errorString();
    QString lines;
    HitSpans spans;
    const QList<OpenDocuments::Document> docs =
        matcher.isValid() ? OpenDocuments::collect(m_window) : QList<OpenDocuments::Document>();
    for (const OpenDocuments::Document &doc : docs) {
        const QString name = doc.shownName();
        const qint64 hitsBefore = summary.hits;
        matcher.findLines(doc.text, [&](const TextMatcher::LineHit &hit) {
            if (++summary.hits > options.maxHitLines) {
                ++summary.hitsNotShown;
                return true;
            }
            if (!spans.isEmpty())
                lines += QLatin1Char('\n');
            lines += HitFormatter::hitLine(name, hit.line, hit.text, hit.column);
            spans.append({int(std::min<qsizetype>(hit.column, INT_MAX)),
                          int(std::min<qsizetype>(hit.length, INT_MAX))});
            return true;
        });
        ++summary.filesSearched;
        if (summary.hits > hitsBefore) {
            ++summary.filesWithHits;
            if (doc.file.isEmpty())
                m_untitled.insert(name, doc.tool);
        }
    }
    if (!spans.isEmpty())
        showHits(lines, spans);
    searchFinished(summary);
}

void FindInFiles::startReplace(const SearchOptions &options, const QString &replacement)
{
    m_engine->stop();
    m_replaceHeading =
        tr("Replacing \"%1\" with \"%2\" in %3").arg(options.text, replacement, whereText(options));
    if (m_dialog) {
        m_dialog->setSearching(true);
        m_dialog->setStatus(tr("Finding the changes..."));
    }
    showStatus(tr("Finding the changes..."));
    m_replacer->plan(options, replacement, OpenDocuments::collect(m_window));
}

void FindInFiles::showReplaceProgress(qint64 filesRead, qint64 changes)
{
    const QString text =
        tr("Finding the changes: %1 files read, %2 changes").arg(filesRead).arg(changes);
    showStatus(text);
    if (m_dialog)
        m_dialog->setStatus(text);
}

void FindInFiles::showReplacePlan(const QList<ReplaceFile> &plan, const QString &error,
                                  bool cancelled)
{
    if (m_dialog)
        m_dialog->setSearching(false);
    QString nothing = error.isEmpty() ? tr("Nothing to replace: no match") : error;
    if (cancelled)
        nothing = tr("Replace cancelled: nothing was changed");
    if (plan.isEmpty()) {
        showStatus(nothing, 5000);
        if (m_dialog)
            m_dialog->setStatus(nothing);
        return;
    }
    ReplacePreview preview(plan, m_replaceHeading,
                           m_dialog ? static_cast<QWidget *>(m_dialog) : m_window);
    if (preview.exec() != QDialog::Accepted) {
        showStatus(tr("Replace cancelled: nothing was changed"), 5000);
        if (m_dialog)
            m_dialog->setStatus(tr("Replace cancelled: nothing was changed"));
        return;
    }
    if (m_dialog) {
        m_dialog->setSearching(true);
        m_dialog->setStatus(tr("Replacing..."));
    }
    showStatus(tr("Replacing..."));
    m_replacer->apply(preview.plan());
}

void FindInFiles::showReplaceSummary(const ReplaceSummary &summary, bool cancelled)
{
    clearPane(m_replaceHeading);
    for (const QString &file : summary.changedSincePreview)
        m_results->appendPlainText(
            HitFormatter::noteLine(tr("Changed since the preview, left as it is: %1").arg(file)));
    for (const QString &failure : summary.failed)
        m_results->appendPlainText(HitFormatter::noteLine(tr("Not replaced: %1").arg(failure)));
    QString text = replaceSummaryText(summary);
    if (cancelled)
        text += tr("; replace stopped");
    m_results->appendPlainText(HitFormatter::noteLine(text));
    showStatus(text);
    if (m_dialog) {
        m_dialog->setSearching(false);
        m_dialog->setStatus(text);
    }
}

QString FindInFiles::replaceSummaryText(const ReplaceSummary &summary)
{
    QString text = (summary.replacements == 1 ? tr("1 replacement")
                                              : tr("%1 replacements").arg(summary.replacements)) +
                   (summary.files == 1 ? tr(" in 1 file") : tr(" in %1 files").arg(summary.files));
    if (!summary.changedSincePreview.isEmpty())
        text +=
            tr("; %1 skipped, changed since the preview").arg(summary.changedSincePreview.size());
    if (!summary.failed.isEmpty())
        text += tr("; %1 failed").arg(summary.failed.size());
    return text;
}

void FindInFiles::stopSearch()
{
    m_engine->stop();
    m_replacer->stop();
}

void FindInFiles::showHits(const QString &lines, const HitSpans &spans)
{
    if (!m_results)
        return;
    // The lines take the pane's next line numbers (the first one when the pane
    // was cleared), one per hit: the formatter keeps each hit on one line.
    const QTextDocument *pane = m_results->document();
    m_spans.resize(pane->isEmpty() ? 0 : pane->blockCount());
    m_spans.append(spans);
    // appendPlainText keeps following the end only while the view is at the end.
    m_results->appendPlainText(lines);
}

void FindInFiles::showProgress(qint64 filesSearched, qint64 hits)
{
    if (!m_engine->isRunning())
        return;
    const QString text = tr("Searching: %1 files searched, %2 hits").arg(filesSearched).arg(hits);
    showStatus(text);
    if (m_dialog)
        m_dialog->setStatus(text);
}

void FindInFiles::searchFinished(const SearchSummary &summary)
{
    const QString text = summaryText(summary);
    if (m_results) {
        if (summary.hitsNotShown > 0)
            m_results->appendPlainText(
                HitFormatter::noteLine(tr("... %1 more hits not shown").arg(summary.hitsNotShown)));
        for (const QString &file : summary.changedFiles)
            m_results->appendPlainText(HitFormatter::noteLine(
                tr("Changed by another program while it was searched, hits may be "
                   "incomplete: %1")
                    .arg(QDir::toNativeSeparators(file))));
        for (const QString &file : summary.deletedFiles)
            m_results->appendPlainText(HitFormatter::noteLine(
                tr("Deleted while it was searched: %1").arg(QDir::toNativeSeparators(file))));
        m_results->appendPlainText(HitFormatter::noteLine(text));
    }
    showStatus(text);
    if (m_dialog) {
        m_dialog->setSearching(false);
        m_dialog->setStatus(text);
    }
}

void FindInFiles::showStatus(const QString &text, int timeoutMs)
{
    m_window->statusBar()->showMessage(text, timeoutMs);
}

QString FindInFiles::headingFor(const SearchOptions &options)
{
    QStringList how;
    if (options.regularExpression)
        how << tr("regular expression");
    how << (options.caseSensitive ? tr("match case") : tr("any case"));
    if (options.wholeWord)
        how << tr("whole words");
    if (!options.includeGlobs.isEmpty() && !options.openDocumentsOnly)
        how << tr("files %1").arg(options.includeGlobs.join(QStringLiteral(", ")));
    return tr("Searching for \"%1\" in %2 (%3)")
        .arg(options.text, whereText(options), how.join(QStringLiteral(", ")));
}

QString FindInFiles::whereText(const SearchOptions &options)
{
    return options.openDocumentsOnly ? tr("the open documents")
                                     : QDir::toNativeSeparators(options.folder);
}

QString FindInFiles::summaryText(const SearchSummary &summary)
{
    if (!summary.error.isEmpty())
        return summary.error;
    QString text = (summary.hits == 1 ? tr("1 hit") : tr("%1 hits").arg(summary.hits)) +
                   (summary.filesWithHits == 1 ? tr(" in 1 file")
                                               : tr(" in %1 files").arg(summary.filesWithHits));
    text += tr(" (%1 files searched").arg(summary.filesSearched);
    if (summary.binaryFilesSkipped > 0)
        text += tr(", %1 binary skipped").arg(summary.binaryFilesSkipped);
    if (summary.unreadable > 0)
        text += tr(", %1 could not be read").arg(summary.unreadable);
    if (summary.changed > 0)
        text += tr(", %1 changed while searched").arg(summary.changed);
    if (summary.deleted > 0)
        text += tr(", %1 deleted while searched").arg(summary.deleted);
    text += QLatin1Char(')');
    if (summary.cancelled)
        text += tr("; search stopped");
    return text;
}
