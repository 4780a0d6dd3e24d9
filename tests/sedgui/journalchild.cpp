// A separate editor process for tst_workkeeper: opens an untitled document
// and the files named on the command line and types into them until a signal
// ends it, in bursts of a piece every few milliseconds round the documents.
// After each burst it rests a little longer than the journal's delay, then
// checks that every document's journal holds the text as it stands. On
// stdout: "t D N" once document D has N pieces, "j D N" after a rest when
// D's journal holds its N pieces, "stale D N" when it does not.
#include "journalchildtext.h"
#include "sedgui.h"
#include "tool/documentjournal.h"
#include "tool/journalwriter.h"
#include "workkeeper.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>

#include <cstdio>

using namespace koru::sedgui;

namespace {

void say(const char *what, int document, int pieces)
{
    std::printf("%s %d %d\n", what, document, pieces);
    std::fflush(stdout);
}

bool journalHolds(const DocumentJournal *journal)
{
    JournalEntry entry;
    return JournalChildText::journalText(JournalWriter::instance()->store()->folder(),
                                         journal->documentId(), &entry) == journal->snapshot();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    new WorkKeeper(&window);
    QStringList paths = app.arguments().mid(1);
    paths.prepend(QString());
    QList<SedGUI *> documents;
    for (const QString &path : std::as_const(paths)) {
        documents.append(new SedGUI(&window));
        if (!path.isEmpty() && !documents.last()->openFile(path, nullptr))
            return 2;
    }

    QList<int> pieces(documents.size(), 0);
    int typed = 0;
    QTimer typing;
    typing.setInterval(20);
    // The journal's timer is a coarse one, late by at most 5 %; timers due
    // together fire in the order of their due times, so when the rest ends
    // every journal has been queued, however slow the machine.
    QTimer rest;
    rest.setSingleShot(true);
    rest.setTimerType(Qt::PreciseTimer);
    rest.setInterval(DocumentJournal::DelayMs * 5 / 4);
    QObject::connect(&typing, &QTimer::timeout, [&] {
        const int document = typed++ % int(documents.size());
        JournalChildText::typePiece(documents[document]->editor(), pieces[document]++);
        say("t", document, pieces[document]);
        if (typed % JournalChildText::BurstPieces == 0) {
            typing.stop();
            rest.start();
        }
    });
    QObject::connect(&rest, &QTimer::timeout, [&] {
        JournalWriter::instance()->waitUntilIdle();
        for (int document = 0; document < documents.size(); ++document) {
            const auto *journal = documents[document]->findChild<DocumentJournal *>();
            say(journalHolds(journal) ? "j" : "stale", document, pieces[document]);
        }
        typing.start();
    });
    typing.start();
    return app.exec();
}
