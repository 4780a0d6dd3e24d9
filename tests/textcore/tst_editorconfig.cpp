#include "editorconfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace koru::sedgui;

namespace {

// The indentation properties, which the rows set.
QString describe(const EditorConfig::Properties &p)
{
    const char *styles[] = {"", "tabs ", "spaces "};
    return styles[int(p.indentStyle)] +
           (p.indentSizeIsTab ? QStringLiteral("size=tab") : QString::number(p.indentSize));
}

} // namespace

class TstEditorConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // files: path, content, path, content, ... below a top folder whose own
    // file says "root = true" (the first entry), so nothing above it counts.
    void forFile_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *tag, const QStringList &files, const char *file,
                            const char *expected) {
            QTest::newRow(tag) << files << QString(file) << QString(expected);
        };
        row("in the file's folder", {"root = true\n", "p/.editorconfig", "[*.c]\nindent_style=tab"},
            "p/x.c", "tabs size=tab");
        row("parents add to it, the nearer file wins",
            {"root = true\n[*]\nindent_style = space\nindent_size = 2\n", "a/b/.editorconfig",
             "[*.py]\nindent_size = 4\n"},
            "a/b/c/x.py", "spaces 4");
        row("root = true stops the search",
            {"root = true\n[*]\nindent_size = 8\n", "sub/.editorconfig",
             "root = true\n[*]\nindent_style = tab\n"},
            "sub/x.txt", "tabs size=tab");
        row("** across folders, other sections ignored",
            {"root = true\n[*.{js,ts}]\nindent_size = 2\n[lib/**.py]\nindent_size = 3\n"},
            "lib/a/b.py", "3");
        row("unset and nonsense values",
            {"root = true\n[*]\nindent_style = tab\n", "s/.editorconfig",
             "[*]\nindent_style = unset\nindent_size = wide\ncharset = ebcdic\n"},
            "s/x", "0");
    }
    void forFile()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, file);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        const QDir top(dir.path());
        files.prepend(QStringLiteral(".editorconfig"));
        for (qsizetype i = 0; i + 1 < files.size(); i += 2) {
            QVERIFY(top.mkpath(QFileInfo(top.filePath(files[i])).path()));
            QFile out(top.filePath(files[i]));
            QVERIFY(out.open(QIODevice::WriteOnly) && out.write(files[i + 1].toUtf8()) > 0);
        }
        QString error;
        QCOMPARE(describe(EditorConfig::forFile(top.filePath(file), &error)), expected);
        QCOMPARE(error, QString());
    }
};

QTEST_GUILESS_MAIN(TstEditorConfig)
#include "tst_editorconfig.moc"
