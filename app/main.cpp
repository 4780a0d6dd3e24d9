#include "appsetup.h"
#include "filenameescape.h"
#include "findinfiles.h"
#include "mainwindow.h"
#include "menuactionman.h"

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
    window.resize(800, 600);
    window.show();
    return app.exec();
}
