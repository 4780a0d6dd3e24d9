#include "findinfiles.h"

#include "findinfilesdialog.h"
#include "hitformatter.h"
#include "resultwindow.h"
#include "searchengine.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QMetaObject>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextBlock>

FindInFiles::FindInFiles(QMainWindow *window, QAction *findInFilesAction)
    : QObject(window)
    , m_window(window)
    , m_engine(new SearchEngine(this))
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
}

FindInFiles::~FindInFiles()
{
    // The engine ends its worker before the window's widgets go.
    delete m_engine;
    m_engine = nullptr;
}

void FindInFiles::showDialog()
{
    if (!m_dialog) {
        m_dialog = new FindInFilesDialog(m_window);
        connect(m_dialog, &FindInFilesDialog::findRequested, this, &FindInFiles::startSearch);
        connect(m_dialog, &FindInFilesDialog::stopRequested, this, &FindInFiles::stopSearch);
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
    m_dialog->setSearching(m_engine->isRunning());
    m_dialog->show();
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

    // By signature: the window's class is not known here.
    QObject::connect(m_results, "2sigOpenFile(QString,int)", m_window, "1onOpenFile(QString,int)");
    connect(m_results, &ResultWindow::sigForceStopFindInFiles, this, &FindInFiles::stopSearch);
    // Connected after the window's slot, so the hit's file is open by then.
    connect(m_results, &ResultWindow::sigOpenFile, this, &FindInFiles::selectMatch);
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

void FindInFiles::startSearch(const SearchOptions &options)
{
    ensureResultWindow();
    m_engine->stop();
    m_results->clear();
    m_spans.clear();
    m_results->appendPlainText(HitFormatter::noteLine(headingFor(options)));
    m_dock->show();
    m_dock->raise();
    if (m_dialog) {
        m_dialog->setSearching(true);
        m_dialog->setStatus(tr("Searching..."));
    }
    showStatus(tr("Searching..."));
    m_engine->start(options);
}

void FindInFiles::stopSearch()
{
    m_engine->stop();
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
    if (!options.includeGlobs.isEmpty())
        how << tr("files %1").arg(options.includeGlobs.join(QStringLiteral(", ")));
    return tr("Searching for \"%1\" in %2 (%3)")
        .arg(options.text, QDir::toNativeSeparators(options.folder),
             how.join(QStringLiteral(", ")));
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
