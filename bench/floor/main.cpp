// The floor the editor is measured against: a main window holding one
// QsciScintilla that loads the file named on the command line, and nothing
// else. Whatever the editor does beyond this is what the benchmark prices.
// With --cpp first, the file is coloured by the C++ lexer, as the editor
// colours a C file: the floor for typing into coloured text.
#include <QApplication>
#include <QFile>
#include <QMainWindow>

#include <Qsci/qscilexercpp.h>
#include <Qsci/qsciscintilla.h>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    auto *editor = new QsciScintilla(&window);
    editor->setUtf8(true);
    window.setCentralWidget(editor);

    QStringList args = QApplication::arguments();
    if (args.value(1) == QLatin1String("--cpp")) {
        editor->setLexer(new QsciLexerCPP(editor));
        args.removeAt(1);
    }
    if (args.size() > 1) {
        QFile file(args.at(1));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "floor: cannot open %s\n", qPrintable(args.at(1)));
            return 1;
        }
        const QByteArray bytes = file.readAll();
        editor->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT,
                              static_cast<unsigned long>(bytes.size()), bytes.constData());
        editor->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        editor->SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
        editor->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0UL);
        window.setWindowTitle(args.at(1));
    }

    // The editor's window opens at this size too: the same area to paint.
    window.resize(800, 600);
    window.show();
    return app.exec();
}
