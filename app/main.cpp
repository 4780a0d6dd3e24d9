#include "appsetup.h"
#include "findinfiles.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "session/sessionkeeper.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    AppSetup::apply(app);
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLatin1(argv[i]));

    MainWindow window(args);
    new FindInFiles(&window, MenuActionMan::instance()->findShellAction("EDIT > FIND IN FILES..."));
    auto *session = new koru::sedgui::SessionKeeper(
        &window, window.tabWidget(),
        MenuActionMan::instance()->findShellAction("FILE > CLOSE ALL"));
    window.resize(800, 600);
    session->start(args.isEmpty());
    window.show();
    return app.exec();
}
