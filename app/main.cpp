#include "appsetup.h"
#include "filenameescape.h"
#include "findinfiles.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "sedgui.h"
#include "session/sessionkeeper.h"
#include "session/workkeeper.h"
#include "window/drophandler.h"
#include "window/screenfitter.h"
#include "window/tabkeeper.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    AppSetup::apply(app);
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(koru::sedgui::FileNameEscape::fromBytes(argv[i]));

    MainWindow window(args);
    new FindInFiles(&window, MenuActionMan::instance()->findShellAction("EDIT > FIND IN FILES..."));
    auto *session = new koru::sedgui::SessionKeeper(
        &window, window.tabWidget(),
        MenuActionMan::instance()->findShellAction("FILE > CLOSE ALL"));
    new koru::sedgui::TabKeeper(&window, window.tabWidget());
    // Files dropped anywhere on the window open, also with no document open.
    new koru::sedgui::DropHandler(&window, &window);
    new koru::sedgui::ScreenFitter(&window);
    auto *work = new koru::sedgui::WorkKeeper(&window);
    // An end by signal or logout keeps the session as a clean exit does.
    QObject::connect(work, &koru::sedgui::WorkKeeper::workKept, session,
                     &koru::sedgui::SessionKeeper::keep);
    // Recovered documents go to their places in the last session's tabs.
    QObject::connect(work, &koru::sedgui::WorkKeeper::restored, session,
                     &koru::sedgui::SessionKeeper::place);
    window.resize(800, 600);
    session->start(args.isEmpty());
    window.show();
    return app.exec();
}
