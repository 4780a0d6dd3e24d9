#include "appsetup.h"
#include "findinfiles.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "workkeeper.h"

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
    new koru::sedgui::WorkKeeper(&window);
    window.resize(800, 600);
    window.show();
    return app.exec();
}
