#include "replacerunner.h"

#include "filenameescape.h"
#include "filewalker.h"
#include "replaceplanner.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMetaObject>
#include <QWidget>

#include <algorithm>
#include <atomic>
#include <optional>

namespace {

// Time one turn of the event loop spends planning or changing open documents;
// at least one step is taken per turn.
constexpr qint64 SliceMs = 20;
constexpr int ProgressIntervalMs = 100;
// The part of an open document's text planned in one step.
constexpr qsizetype SliceBytes = 4 * 1024 * 1024;

QString comparablePath(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

} // namespace

struct ReplaceRunner::Run
{
    SearchOptions options;
    QString replacement;
    std::atomic<bool> cancel{false};
    std::atomic<qint64> filesRead{0};
    std::atomic<qint64> changes{0};

    // The open documents, and the files among them by comparablePath().
    QList<OpenDocuments::Document> docs;
    QHash<QString, qsizetype> docByPath;

    // Filled by the worker, read by the GUI thread once it has ended. For each
    // entry, the open document it stands for (planned later), or -1.
    QList<ReplaceFile> plan;
    QList<qsizetype> docIndex;

    // GUI thread only. The document being planned and how far.
    std::optional<ReplacePlanner> planner;
    OpenDocuments::Document current;
    bool reading = false;
    qsizetype scanned = 0;
    bool applying = false;
    qsizetype next = 0;
    ReplaceSummary summary;
    // Files on disk are written by the worker, which counts them here.
    ReplaceSummary filesSummary;
    bool filesWritten = false;
};

ReplaceRunner::ReplaceRunner(QObject *parent)
    : QObject(parent)
{
    m_progressTimer.setInterval(ProgressIntervalMs);
    connect(&m_progressTimer, &QTimer::timeout, this, &ReplaceRunner::reportProgress);
}

ReplaceRunner::~ReplaceRunner()
{
    if (m_run)
        m_run->cancel = true;
    if (m_worker.joinable())
        m_worker.join();
}

bool ReplaceRunner::isRunning() const
{
    return m_run != nullptr;
}

void ReplaceRunner::plan(const SearchOptions &options, const QString &replacement,
                         const QList<OpenDocuments::Document> &docs)
{
    stop();
    auto run = std::make_shared<Run>();
    m_run = run;
    run->options = options;
    run->replacement = replacement;
    run->planner.emplace(options, replacement);
    if (!run->planner->isValid()) {
        QMetaObject::invokeMethod(
            this, [this, run] { finishPlan(run, false); }, Qt::QueuedConnection);
        return;
    }
    // Only the tools are kept: a document is read again when it is planned.
    for (const OpenDocuments::Document &doc : docs) {
        OpenDocuments::Document kept = doc;
        kept.text.clear();
        run->docs.append(kept);
    }
    m_progressTimer.start();
    if (options.openDocumentsOnly) {
        for (qsizetype i = 0; i < run->docs.size(); ++i) {
            run->plan.append(ReplaceFile());
            run->docIndex.append(i);
        }
        QMetaObject::invokeMethod(
            this, [this, run] { planDocuments(run); }, Qt::QueuedConnection);
        return;
    }
    for (qsizetype i = 0; i < run->docs.size(); ++i) {
        if (!run->docs.at(i).file.isEmpty())
            run->docByPath.insert(comparablePath(run->docs.at(i).file), i);
    }
    m_worker = std::thread([this, run] { walkFolder(run); });
}

void ReplaceRunner::walkFolder(const std::shared_ptr<Run> &run)
{
    // A planner of its own: the GUI thread's plans the open documents.
    const ReplacePlanner planner(run->options, run->replacement);
    FileWalker walker(run->options);
    walker.walk(
        [&](const QByteArray &path) {
            ++run->filesRead;
            if (!run->docByPath.isEmpty()) {
                const auto doc = run->docByPath.constFind(comparablePath(QFile::decodeName(path)));
                if (doc != run->docByPath.cend()) {
                    run->plan.append(ReplaceFile());
                    run->docIndex.append(*doc);
                    return !run->cancel.load();
                }
            }
            ReplaceFile file;
            if (planner.planFile(path, &file)) {
                file.shownName = koru::sedgui::FileNameEscape::fromBytes(path);
                run->changes += file.changes.size();
                run->plan.append(file);
                run->docIndex.append(-1);
            }
            return !run->cancel.load();
        },
        &run->cancel);
    // The GUI thread reads the plan once this call arrives, after the worker's last write.
    QMetaObject::invokeMethod(
        this,
        [this, run] {
            if (run != m_run)
                return;
            if (m_worker.joinable())
                m_worker.join();
            planDocuments(run);
        },
        Qt::QueuedConnection);
}

void ReplaceRunner::planDocuments(const std::shared_ptr<Run> &run)
{
    if (run != m_run)
        return; // stopped
    QElapsedTimer slice;
    slice.start();
    while (run->next < run->plan.size()) {
        const qsizetype index = run->docIndex.at(run->next);
        if (index < 0) {
            ++run->next;
            continue;
        }
        ReplaceFile &file = run->plan[run->next];
        if (!run->reading) {
            // Read now, not when the plan started: the user may have typed since.
            if (!OpenDocuments::read(run->docs.at(index).tool, &run->current)) {
                ++run->next;
                continue;
            }
            file.path = run->current.file;
            file.shownName = run->current.shownName();
            file.inEditor = true;
            file.document = run->current.tool.data();
            // What the text was read at: a change since makes the apply skip it.
            file.serial = run->current.serial;
            run->scanned = 0;
            run->reading = true;
        }
        // A large document is gone through a slice per step.
        const QByteArrayView text = run->current.text;
        const qsizetype from = run->scanned;
        run->scanned = std::min(text.size(), from + SliceBytes);
        const qsizetype before = file.changes.size();
        const bool done = run->planner->appendChanges(text, run->scanned, &file.changes) &&
                          run->scanned == text.size();
        run->changes += file.changes.size() - before;
        if (done) {
            run->reading = false;
            run->current = OpenDocuments::Document();
            ++run->next;
        }
        if (slice.elapsed() >= SliceMs && run->next < run->plan.size()) {
            QMetaObject::invokeMethod(
                this, [this, run] { planDocuments(run); }, Qt::QueuedConnection);
            return;
        }
    }
    finishPlan(run, false);
}

void ReplaceRunner::finishPlan(const std::shared_ptr<Run> &run, bool cancelled)
{
    if (run == m_run) {
        m_run.reset();
        m_progressTimer.stop();
    }
    // A stopped plan is dropped whole: the user would check changes of a part.
    QList<ReplaceFile> plan;
    for (ReplaceFile &file : run->plan) {
        if (!cancelled && !file.changes.isEmpty())
            plan.append(std::move(file));
    }
    run->plan.clear();
    if (!cancelled)
        emit progress(run->filesRead, run->changes);
    emit planned(plan, run->planner->isValid() ? QString() : run->planner->errorString(),
                 cancelled);
}

void ReplaceRunner::apply(const QList<ReplaceFile> &plan)
{
    stop();
    auto run = std::make_shared<Run>();
    m_run = run;
    run->applying = true;
    run->plan = plan;
    m_worker = std::thread([this, run] { writeFiles(run); });
    QMetaObject::invokeMethod(
        this, [this, run] { applySome(run); }, Qt::QueuedConnection);
}

void ReplaceRunner::writeFiles(const std::shared_ptr<Run> &run)
{
    for (const ReplaceFile &file : std::as_const(run->plan)) {
        if (run->cancel)
            break;
        if (!file.inEditor)
            applyFile(file, &run->filesSummary);
    }
    QMetaObject::invokeMethod(
        this,
        [this, run] {
            run->filesWritten = true;
            finishApply(run);
        },
        Qt::QueuedConnection);
}

void ReplaceRunner::applySome(const std::shared_ptr<Run> &run)
{
    if (run != m_run)
        return; // stopped
    QElapsedTimer slice;
    slice.start();
    while (run->next < run->plan.size()) {
        const ReplaceFile &file = run->plan.at(run->next++);
        if (file.inEditor)
            applyFile(file, &run->summary);
        if (slice.elapsed() >= SliceMs && run->next < run->plan.size()) {
            QMetaObject::invokeMethod(
                this, [this, run] { applySome(run); }, Qt::QueuedConnection);
            return;
        }
    }
    finishApply(run);
}

void ReplaceRunner::finishApply(const std::shared_ptr<Run> &run)
{
    if (run != m_run || !run->filesWritten || run->next < run->plan.size())
        return; // stopped, or the other half is not done yet
    if (m_worker.joinable())
        m_worker.join();
    m_run.reset();
    emit applied(mergedSummary(*run), false);
}

ReplaceSummary ReplaceRunner::mergedSummary(const Run &run)
{
    // Read once the worker has ended.
    ReplaceSummary summary = run.filesSummary;
    summary.replacements += run.summary.replacements;
    summary.files += run.summary.files;
    summary.changedSincePreview += run.summary.changedSincePreview;
    summary.failed += run.summary.failed;
    return summary;
}

// On the GUI thread for an open document, on the worker for a file on disk.
void ReplaceRunner::applyFile(const ReplaceFile &file, ReplaceSummary *summary)
{
    const qsizetype count = file.checkedChanges();
    if (count == 0)
        return;
    const QString name = QDir::toNativeSeparators(file.shownName);
    if (file.inEditor) {
        // The buffer's serial, not its text, tells whether it changed: a
        // copy and digest of a large document would hold up the window.
        auto *tool = qobject_cast<QWidget *>(file.document.data());
        if (file.serial < 0 || OpenDocuments::serial(tool) != file.serial) {
            summary->changedSincePreview.append(name);
            return;
        }
        if (!OpenDocuments::replace(tool, file.changes)) {
            summary->failed.append(tr("%1: the document cannot be changed").arg(name));
            return;
        }
    } else {
        QString error;
        switch (ReplacePlanner::write(file, &error)) {
        case ReplacePlanner::Outcome::Changed:
            summary->changedSincePreview.append(name);
            return;
        case ReplacePlanner::Outcome::Failed:
            summary->failed.append(error);
            return;
        case ReplacePlanner::Outcome::Written:
            break;
        }
    }
    summary->replacements += count;
    ++summary->files;
}

void ReplaceRunner::stop()
{
    if (!m_run)
        return;
    const std::shared_ptr<Run> run = std::move(m_run);
    run->cancel = true;
    if (m_worker.joinable())
        m_worker.join();
    m_progressTimer.stop();
    if (run->applying)
        emit applied(mergedSummary(*run), true);
    else
        finishPlan(run, true);
}

void ReplaceRunner::reportProgress()
{
    if (m_run && !m_run->applying)
        emit progress(m_run->filesRead, m_run->changes);
}
