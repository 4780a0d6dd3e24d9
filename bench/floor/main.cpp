// The floor the editor is measured against: a main window holding one
// QsciScintilla that loads the file named on the command line, and nothing
// else. Whatever the editor does beyond this is what the benchmark prices.
// With --cpp first, the file is coloured by the C++ lexer, as the editor
// colours a C file: the floor for typing into coloured text. With several
// files, each is opened in turn into an editor of its own on a tab, the
// last one in front: the floor for bringing back a session of open files.
#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QTabWidget>

#include <Qsci/qscilexercpp.h>
#include <Qsci/qsciscintilla.h>

#include <cstdio>

namespace {

bool load(QsciScintilla *editor, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "floor: cannot open %s\n", qPrintable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    editor->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT,
                          static_cast<unsigned long>(bytes.size()), bytes.constData());
    editor->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    editor->SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
    editor->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0UL);
    return true;
}

QsciScintilla *newEditor(QWidget *parent, bool cpp)
{
    auto *editor = new QsciScintilla(parent);
    editor->setUtf8(true);
    if (cpp)
        editor->setLexer(new QsciLexerCPP(editor));
    return editor;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    QStringList args = QApplication::arguments();
    args.removeFirst();
    const bool cpp = args.value(0) == QLatin1String("--cpp");
    if (cpp)
        args.removeFirst();

    if (args.size() > 1) {
        auto *tabs = new QTabWidget(&window);
        window.setCentralWidget(tabs);
        for (const QString &path : std::as_const(args)) {
            QsciScintilla *editor = newEditor(tabs, cpp);
            if (!load(editor, path))
                return 1;
            tabs->setCurrentIndex(tabs->addTab(editor, path.section(u'/', -1)));
        }
    } else {
        QsciScintilla *editor = newEditor(&window, cpp);
        window.setCentralWidget(editor);
        if (!args.isEmpty()) {
            if (!load(editor, args.first()))
                return 1;
            window.setWindowTitle(args.first());
        }
    }

    // The editor's window opens at this size too: the same area to paint.
    window.resize(800, 600);
    window.show();
    return app.exec();
}
