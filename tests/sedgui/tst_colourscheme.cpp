#include "baseusrsettings.h"
#include "languages.h"
#include "lexers/colourscheme.h"
#include "lexers/lexerstyleroles.h"
#include "options/editorsettings.h"
#include "sedgui.h"

#include <QHash>
#include <QPalette>
#include <QTest>
#include <QTranslator>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <utility>

using namespace koru::sedgui;

namespace {

QPalette paletteWithWindow(const QColor &window)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    return palette;
}

void storeScheme(const QString &id)
{
    EditorSettings::Values values = EditorSettings::load();
    values.colourScheme = id;
    QVERIFY(EditorSettings::store(values));
}

QColor styleColour(QsciScintilla *editor, int message, int style)
{
    const long bgr = editor->SendScintilla(message, static_cast<unsigned long>(style));
    return QColor(int(bgr & 0xff), int((bgr >> 8) & 0xff), int((bgr >> 16) & 0xff));
}

} // namespace

class TstColourScheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // Every style of every lexer the language table uses, and plain text,
    // reads on its paper in every scheme: 7:1 for the default text, 4.5:1
    // for the rest, as the lexer reports it once the tool has applied the scheme.
    void everyStyleIsReadable_data()
    {
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<QString>("language");
        QHash<QString, bool> lexers;
        QStringList languages{QString()}; // one language per lexer
        for (const QString &language : Languages::names()) {
            if (!std::exchange(lexers[Languages::lexer(language)], true))
                languages.append(language);
        }
        for (const QString &scheme : ColourScheme::ids()) {
            for (const QString &language : languages)
                QTest::addRow("%s, %s", qPrintable(scheme),
                              language.isEmpty() ? "plain text" : qPrintable(language))
                    << scheme << language;
        }
    }
    void everyStyleIsReadable()
    {
        QFETCH(QString, scheme);
        QFETCH(QString, language);
        storeScheme(scheme);
        SedGUI tool;
        tool.setLanguage(language);
        QsciScintilla *editor = tool.editor();
        const QsciLexer *lexer = editor->lexer();
        QCOMPARE(lexer != nullptr, !language.isEmpty());
        QList<std::tuple<QString, QColor, QColor, double>> checks;
        const auto addStyle = [&](const QString &what, int style, double least) {
            checks.append({what, styleColour(editor, QsciScintillaBase::SCI_STYLEGETFORE, style),
                           styleColour(editor, QsciScintillaBase::SCI_STYLEGETBACK, style), least});
        };
        addStyle(QStringLiteral("below the text"), QsciScintillaBase::STYLE_DEFAULT, 7.0);
        addStyle(QStringLiteral("line numbers"), QsciScintillaBase::STYLE_LINENUMBER, 4.5);
        if (!lexer)
            addStyle(QStringLiteral("plain text"), 0, 7.0);
        for (int style = 0; lexer && style < 128; ++style) {
            if (!lexer->description(style).isEmpty())
                checks.append({lexer->description(style), lexer->color(style), lexer->paper(style),
                               style == 0 ? 7.0 : 4.5});
        }
        for (const auto &[what, fore, paper, least] : checks) {
            const double ratio = ColourScheme::contrast(fore, paper);
            QVERIFY2(ratio >= least, qPrintable(QStringLiteral("%1: %2 on %3 is %4:1")
                                                    .arg(what, fore.name(), paper.name())
                                                    .arg(ratio, 0, 'f', 2)));
        }
    }

    // What a style shows, where its description alone would mislead or where
    // a wrong table entry would go unnoticed by the contrast check.
    void stylesShowTheirKindOfText_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("role");
        QTest::addColumn<bool>("translated"); // the lexers' texts in another language
        const auto row = [](const char *language, int style, ColourScheme::Role role,
                            bool translated = false) {
            QTest::addRow("%s %d%s", language, style, translated ? " translated" : "")
                << QString(language) << style << int(role) << translated;
        };
        row("C", 5, ColourScheme::Keyword, true);
        row("Python", 12, ColourScheme::Comment, true);
        row("C", 5, ColourScheme::Keyword);
        row("C", 7, ColourScheme::Character);          // 'x'
        row("C", 9, ColourScheme::Preprocessor);       // #include
        row("C", 12, ColourScheme::Error);             // unclosed string
        row("C", 64 + 5, ColourScheme::Comment);       // keyword in #if 0
        row("C", 64 + 12, ColourScheme::Comment);      // unclosed string in #if 0
        row("Python", 4, ColourScheme::String);        // 'single-quoted'
        row("Python", 15, ColourScheme::Preprocessor); // @decorator
        row("Makefile", 5, ColourScheme::Keyword);     // target:
        row("Makefile", 3, ColourScheme::Identifier);  // $(VAR)
        row("Rust", 15, ColourScheme::Character);
        row("Rust", 18, ColourScheme::Type);       // 'lifetime
        row("Diff", 5, ColourScheme::Error);       // removed line
        row("Diff", 6, ColourScheme::String);      // added line
        row("Markdown", 6, ColourScheme::Keyword); // # heading
    }
    void stylesShowTheirKindOfText()
    {
        QFETCH(QString, language);
        QFETCH(int, style);
        QFETCH(int, role);
        QFETCH(bool, translated);
        // Every text reversed, as words of another language.
        struct Reversed : QTranslator
        {
            bool isEmpty() const override { return false; }
            QString translate(const char *, const char *text, const char *, int) const override
            {
                QString reversed = QString::fromUtf8(text);
                std::reverse(reversed.begin(), reversed.end());
                return reversed;
            }
        } reversed;
        if (translated)
            QCoreApplication::installTranslator(&reversed);
        SedGUI tool;
        tool.setLanguage(language);
        QVERIFY(tool.editor()->lexer());
        QCOMPARE(int(LexerStyleRoles::role(*tool.editor()->lexer(), style)), role);
    }

    // The automatic scheme follows the desktop's palette as it changes; a
    // chosen one stays.
    void automaticSchemeFollowsThePalette_data()
    {
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<QColor>("window");
        QTest::addColumn<QString>("shown");
        QTest::newRow("automatic, dark desktop") << "automatic" << QColor(0x202020) << "dark";
        QTest::newRow("automatic, light desktop") << "automatic" << QColor(0xefefef) << "light";
        QTest::newRow("light, dark desktop") << "light" << QColor(0x202020) << "light";
        QTest::newRow("dark, light desktop") << "dark" << QColor(0xefefef) << "dark";
        QTest::newRow("unknown, dark desktop") << "pink" << QColor(0x202020) << "dark";
    }
    void automaticSchemeFollowsThePalette()
    {
        QFETCH(QString, scheme);
        QFETCH(QColor, window);
        QFETCH(QString, shown);
        storeScheme(scheme);
        SedGUI tool;
        tool.setLanguage(QStringLiteral("Python"));
        const QColor other =
            ColourScheme::isDark(paletteWithWindow(window)) ? QColor(0xefefef) : QColor(0x202020);
        tool.setPalette(paletteWithWindow(other));
        tool.setPalette(paletteWithWindow(window));
        const ColourScheme expected = ColourScheme::byId(shown, QPalette());
        QCOMPARE(tool.editor()->lexer()->paper(0), expected.paper());
        QCOMPARE(tool.editor()->lexer()->color(5), expected.foreground(ColourScheme::Keyword));
        QCOMPARE(styleColour(tool.editor(), QsciScintillaBase::SCI_STYLEGETBACK,
                             QsciScintillaBase::STYLE_LINENUMBER),
                 expected.marginPaper());
        // A change of language keeps the scheme.
        tool.setLanguage(QStringLiteral("C"));
        QCOMPARE(tool.editor()->lexer()->paper(5), expected.paper());
        tool.setLanguage(QString());
        QCOMPARE(styleColour(tool.editor(), QsciScintillaBase::SCI_STYLEGETBACK, 0),
                 expected.paper());
    }
};

QTEST_MAIN(TstColourScheme)
#include "tst_colourscheme.moc"
