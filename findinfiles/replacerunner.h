#pragma once

#include "opendocuments.h"
#include "replaceplan.h"
#include "searchoptions.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QTimer>

#include <memory>
#include <thread>

// Plans and makes a replace in files without holding up the event loop.
//
// Planning walks the folder and reads the files on disk on a thread of its
// own, the way SearchEngine searches; a file open in the editor is planned on
// its buffer instead, on the GUI thread once the walk is done, one document
// per turn of the event loop. The plan keeps, per change, only the line the
// preview shows, and per file a digest of the bytes it was found in (for an
// open document, the change serial its buffer had).
//
// Making the changes writes the files on disk on the worker, through the
// editor's safe save (each waits for the disk), while the open documents are
// changed on the GUI thread, the only one that may touch them, for a few
// milliseconds per turn of the event loop.
//
// One job at a time: plan() and apply() stop the running one. stop() returns
// once the worker has ended; a stopped plan reports cancelled, a stopped apply
// reports what it made so far.
class ReplaceRunner : public QObject
{
    Q_OBJECT

public:
    explicit ReplaceRunner(QObject *parent = nullptr);
    ~ReplaceRunner() override;

    // docs are the open documents (their texts are not used: each is read
    // again when it is planned); a file among them is planned on its buffer.
    void plan(const SearchOptions &options, const QString &replacement,
              const QList<OpenDocuments::Document> &docs);
    void apply(const QList<ReplaceFile> &plan);
    void stop();
    bool isRunning() const;

signals:
    // While planning: the files read so far and the changes found in them.
    void progress(qint64 filesRead, qint64 changes);
    // error says why there is no plan when the search is not valid.
    void planned(const QList<ReplaceFile> &plan, const QString &error, bool cancelled);
    void applied(const ReplaceSummary &summary, bool cancelled);

private:
    struct Run;

    void walkFolder(const std::shared_ptr<Run> &run);
    void planDocuments(const std::shared_ptr<Run> &run);
    void finishPlan(const std::shared_ptr<Run> &run, bool cancelled);
    void writeFiles(const std::shared_ptr<Run> &run);
    void applySome(const std::shared_ptr<Run> &run);
    void finishApply(const std::shared_ptr<Run> &run);
    static void applyFile(const ReplaceFile &file, ReplaceSummary *summary);
    static ReplaceSummary mergedSummary(const Run &run);
    void reportProgress();

    std::shared_ptr<Run> m_run;
    std::thread m_worker;
    QTimer m_progressTimer;
};
