#include "indentdetector.h"

#include <QTest>

using namespace koru::sedgui;

class TstIndentDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // expected: "tabs", "spaces N" (N = 0 when the step is unclear) or "unknown".
    void detect_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *tag, const QByteArray &text, const char *expected) {
            QTest::newRow(tag) << text << QString(expected);
        };
        row("tabs", "int f(void)\n{\n\tif (a) {\n\t\treturn 1;\n\t}\n\treturn 0;\n}\n", "tabs");
        row("2 spaces, CRLF, aligned continuation",
            "f(a) {\r\n  if (a) {\r\n    g(a,\r\n      b);\r\n  }\r\n}\r\n", "spaces 2");
        row("4 spaces, levels closed two at once",
            "class A:\n    def f(self):\n        if x:\n            y()\n    def g(self):\n"
            "        pass\n\n\n    def h(self):\n        z()\nw = 1\n",
            "spaces 4");
        row("8 spaces", "f()\n{\n        if (x)\n                y();\n        z();\n}\n",
            "spaces 8");
        row("mostly tabs, spaces for alignment and one stray line",
            "f()\n{\n\tcall(a,\n\t     b);\n    c();\n\td();\n}\n", "tabs");
        row("block comment aligned with spaces in a tab file",
            "/*\n  * Copyright\n  *\n  * Licence\n  */\nint f(void)\n{\n\treturn 0;\n}\n", "tabs");
        row("no indentation", "a = 1\nb = 2\n\nprint(a + b)\n", "unknown");
        row("spaces without a clear step", "a\n     b\nc\n     d\n", "spaces 0");
        QByteArray sampled;
        while (sampled.size() < IndentDetector::SampleBytes - 20)
            sampled += "if x:\n    y()\n";
        row("only the sample counts, a line cut by its end neither",
            sampled + QByteArray(40, '\t') + "\nz\n" + QByteArray("\tw\n").repeated(9999),
            "spaces 4");
    }
    void detect()
    {
        QFETCH(QByteArray, text);
        QFETCH(QString, expected);
        const IndentDetector::Result result = IndentDetector::detect(text);
        const QString shown = result.style == IndentDetector::Style::Tabs ? QStringLiteral("tabs")
                              : result.style == IndentDetector::Style::Spaces
                                  ? QStringLiteral("spaces %1").arg(result.width)
                                  : QStringLiteral("unknown");
        QCOMPARE(shown, expected);
    }
};

QTEST_GUILESS_MAIN(TstIndentDetector)
#include "tst_indentdetector.moc"
