#include "languages.h"
#include "lexers/languagelexers.h"

#include <QTest>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

namespace {

// Styles text with the language's lexer and returns the style of each byte.
QList<int> styles(const QString &language, const QByteArray &text)
{
    QsciScintilla editor;
    editor.setLexer(LanguageLexers::create(language, &editor));
    editor.SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0UL, text.constData());
    editor.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
    QList<int> result;
    for (qsizetype i = 0; i < text.size(); ++i)
        result.append(int(editor.SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT,
                                               static_cast<unsigned long>(i))));
    return result;
}

QList<qsizetype> positions(const QByteArray &text, const char *word)
{
    QList<qsizetype> found;
    for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1))
        found.append(at);
    return found;
}

} // namespace

class TstLanguageLexers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // After each hard construct, MARK is coloured as a plain word again (no
    // string or comment leaks past it); HIDE, inside a construct, is not.
    void constructsEndWhereTheLanguageEndsThem_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QByteArray>("text");
        const auto row = [](const char *language, const char *tag, const char *text) {
            QTest::addRow("%s: %s", language, tag) << QString(language) << QByteArray(text);
        };
        row("Go", "raw string", "s := `a \\ \" HIDE\n' HIDE`; MARK\nr := '\\''; MARK");
        row("Rust", "lifetimes", "fn f<'a>(x: &'a str) -> &'a str { MARK }\nlet c = '\\''; MARK");
        row("Rust", "nested comment", "/* a /* b */ HIDE */ MARK\n/* /* */\nHIDE */ MARK");
        row("Rust", "raw string", "let s = r#\"a \" HIDE \\\"#; MARK\nlet b = br\"\\\"; MARK");
        row("TypeScript", "template literal", "const t = `a ${x} ' HIDE\n${`b`} HIDE`; MARK");
        row("TypeScript", "regex, private field", "const r = /a'b/g; MARK\n#n = 1; MARK");
        row("Kotlin", "triple-quoted", "val s = \"\"\"a \" HIDE\n' HIDE\"\"\"; MARK");
        row("Swift", "triple-quoted, #if",
            "let s = \"\"\"\n\" HIDE\n\"\"\"\n#if DEBUG\nMARK\n#endif");
        row("Scala", "triple-quoted", "val s = \"\"\"a \" HIDE\nb\"\"\"; MARK");
        row("Dart", "triple-quoted", "var s = \"\"\"a ' HIDE\n\"\"\"; MARK");
        row("Zig", "multi-line string", "const s =\n    \\\\ it's\n;\nMARK");
        row("Protobuf", "escaped quote", "option (x) = \"a\\\"HIDE\"; MARK // HIDE");
        row("GLSL", "#ifdef stays active", "#ifdef GL_ES\nprecision mediump float; MARK\n#endif");
        row("TOML", "comment, table", "[a.b]\n# HIDE\nk = \"v\"\nMARK");
        row("INI", "comment", "[s]\n; HIDE\nMARK");
        row("Gitignore", "negation", "*.o\n!keep.o\n# HIDE\nMARK");
        row("Dockerfile", "here document", "FROM x AS y\nRUN <<EOF\nHIDE 'x\nEOF\nMARK");
        row("Meson", "triple-quoted", "s = '''a\nHIDE'''\nMARK");
    }
    void constructsEndWhereTheLanguageEndsThem()
    {
        QFETCH(QString, language);
        QFETCH(QByteArray, text);
        const int plain = styles(language, "MARK").at(0);
        const QList<int> styled = styles(language, text);
        for (const qsizetype at : positions(text, "MARK"))
            QVERIFY2(styled.at(at) == plain, qPrintable(QString::number(at)));
        for (const qsizetype at : positions(text, "HIDE"))
            QVERIFY2(styled.at(at) != plain, qPrintable(QString::number(at)));
    }
};

QTEST_MAIN(TstLanguageLexers)
#include "tst_languagelexers.moc"
