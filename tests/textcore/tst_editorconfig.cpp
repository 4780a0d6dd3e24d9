#include "editorconfig.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace koru::sedgui;

namespace {

// The properties as one line, unset ones left out, so that a table row can
// say everything that is expected of a lookup.
QString describe(const EditorConfig::Properties &p)
{
    QStringList parts;
    if (p.indentStyle != EditorConfig::IndentStyle::Unset)
        parts << (p.indentStyle == EditorConfig::IndentStyle::Tabs ? "tabs" : "spaces");
    if (p.indentSizeIsTab)
        parts << "size=tab";
    if (p.indentSize)
        parts << QStringLiteral("size=%1").arg(p.indentSize);
    if (p.tabWidth)
        parts << QStringLiteral("tab=%1").arg(p.tabWidth);
    if (p.lineEnding)
        parts << (*p.lineEnding == LineEnding::CRLF ? "crlf"
                  : *p.lineEnding == LineEnding::CR ? "cr"
                                                    : "lf");
    if (!p.encoding.isEmpty())
        parts << QString::fromLatin1(p.encoding) + (p.bom ? "+bom" : "");
    if (p.trimTrailingWhitespace)
        parts << (*p.trimTrailingWhitespace ? "trim=true" : "trim=false");
    if (p.insertFinalNewline)
        parts << (*p.insertFinalNewline ? "final=true" : "final=false");
    return parts.join(' ');
}

} // namespace

class TstEditorConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void forFile_data()
    {
        // files: relative path, content, relative path, content, ...; the
        // top folder always holds a root file so that nothing above it counts.
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("expected");

        QTest::newRow("in the file's folder")
            << QStringList{"p/.editorconfig", "[*.c]\nindent_style = tab\n"} << "p/x.c"
            << "tabs size=tab";
        QTest::newRow("section does not match")
            << QStringList{"p/.editorconfig", "[*.c]\nindent_style = tab\n"} << "p/x.h"
            << "";
        QTest::newRow("parents add to it, the nearer file wins")
            << QStringList{".editorconfig",
                           "root = true\n[*]\nindent_style = space\nindent_size = 2\n"
                           "end_of_line = crlf\n",
                           "a/b/.editorconfig", "[*.py]\nindent_size = 4\n"}
            << "a/b/c/x.py"
            << "spaces size=4 tab=4 crlf";
        QTest::newRow("root = true stops the search")
            << QStringList{".editorconfig", "root = true\n[*]\ncharset = latin1\n",
                           "sub/.editorconfig", "root = true\n[*]\nindent_style = tab\n"}
            << "sub/x.txt"
            << "tabs size=tab";
        QTest::newRow("** across folders, other sections ignored")
            << QStringList{".editorconfig",
                           "root = true\n[*.{js,ts}]\nindent_size = 2\n[Makefile]\n"
                           "indent_style = tab\ntab_width = 8\n[lib/**.py]\nindent_size = 3\n"}
            << "lib/a/b.py"
            << "size=3 tab=3";
        QTest::newRow("braces") << QStringList{".editorconfig",
                                               "root=true\n[*.{js,ts}]\nindent_size=2\n"}
                                << "src/x.ts"
                                << "size=2 tab=2";
        QTest::newRow("exact file name")
            << QStringList{".editorconfig",
                           "root = true\n[Makefile]\nindent_style = tab\ntab_width = 8\n"}
            << "Makefile"
            << "tabs size=8 tab=8";
        QTest::newRow("saving properties, upper case values")
            << QStringList{".editorconfig",
                           "root = true\n[*]\ncharset = UTF-8-BOM\nend_of_line = CR\n"
                           "trim_trailing_whitespace = true\ninsert_final_newline = false\n"}
            << "x"
            << "cr UTF-8+bom trim=true final=false";
        QTest::newRow("unset and nonsense values")
            << QStringList{".editorconfig", "root = true\n[*]\nindent_style = tab\n",
                           "s/.editorconfig",
                           "[*]\nindent_style = unset\nindent_size = wide\ncharset = ebcdic\n"}
            << "s/x"
            << "";
        QTest::newRow("no section") << QStringList{".editorconfig", "root = true\n"} << "x"
                                    << "";
    }
    void forFile()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, file);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QDir top(dir.path());
        if (!files.contains(".editorconfig"))
            files << ".editorconfig"
                  << "root = true\n";
        for (qsizetype i = 0; i + 1 < files.size(); i += 2) {
            const QString path = top.filePath(files[i]);
            QVERIFY(top.mkpath(QFileInfo(path).path()));
            QFile out(path);
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(files[i + 1].toUtf8());
        }
        QString error;
        QCOMPARE(describe(EditorConfig::forFile(top.filePath(file), &error)), expected);
        QCOMPARE(error, QString());
    }
};

QTEST_GUILESS_MAIN(TstEditorConfig)
#include "tst_editorconfig.moc"
