// A separate editor process for tst_workkeeper: opens an untitled document
// and the files named on the command line, types into each, says "typed" on
// stdout and runs until a signal ends it.
#include "journalchildtext.h"
#include "sedgui.h"
#include "workkeeper.h"

#include <QApplication>
#include <QMainWindow>

#include <Qsci/qsciscintilla.h>

#include <cstdio>

using namespace koru::sedgui;

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    new WorkKeeper(&window);
    QStringList paths = app.arguments().mid(1);
    paths.prepend(QString());
    for (const QString &path : std::as_const(paths)) {
        auto *tool = new SedGUI(&window);
        if (!path.isEmpty() && !tool->openFile(path, nullptr))
            return 2;
        JournalChildText::type(tool->editor());
    }
    std::fputs("typed\n", stdout);
    std::fflush(stdout);
    return app.exec();
}
