#include "indentdetector.h"

#include <QTest>

using namespace koru::sedgui;

Q_DECLARE_METATYPE(IndentDetector::Style)

class TstIndentDetector : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detect_data()
    {
        using Style = IndentDetector::Style;
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Style>("style");
        QTest::addColumn<int>("width");
        const auto row = [](const char *tag, const char *text, Style style, int width) {
            QTest::newRow(tag) << QByteArray(text) << style << width;
        };
        row("tabs, C", "int main(void)\n{\n\tif (argc > 1) {\n\t\treturn 1;\n\t}\n\treturn 0;\n}\n",
            Style::Tabs, 0);
        row("2 spaces, CRLF",
            "function f(a) {\r\n  if (a) {\r\n    return g(a,\r\n             b);\r\n  }\r\n"
            "  return 0;\r\n}\r\n",
            Style::Spaces, 2);
        row("4 spaces, two levels closed at once",
            "class A:\n    def f(self):\n        if x:\n            return 1\n    def g(self):\n"
            "        pass\n\n\n    def h(self):\n        for i in x:\n            if i:\n"
            "                y()\n\nz = 1\n",
            Style::Spaces, 4);
        row("3 spaces", "begin\n   a;\n   if b then\n      c;\n   end;\nend\n", Style::Spaces, 3);
        row("8 spaces", "int f()\n{\n        if (x)\n                y();\n        return 0;\n}\n",
            Style::Spaces, 8);
        row("tabs with space-aligned continuations",
            "void f()\n{\n\tcall(a,\n\t     b);\n\tif (x)\n\t\ty();\n\tz(1,\n\t  2);\n}\n",
            Style::Tabs, 0);
        row("mostly spaces, one stray tab",
            "def f():\n    a = 1\n    if a:\n        b()\n\tc()\n    return a\n", Style::Spaces, 4);
        row("mostly tabs, one stray space line", "f()\n{\n\ta();\n\tb();\n    c();\n\td();\n}\n",
            Style::Tabs, 0);
        row("block comment aligned with spaces in a tab file",
            "/*\n  * Copyright\n  *\n  * Licence text\n  */\nint f(void)\n{\n\treturn 0;\n}\n",
            Style::Tabs, 0);
        row("no indentation", "a = 1\nb = 2\n\nprint(a + b)\n", Style::Unknown, 0);
        row("single-space alignment only", "x\n y\nz\n w\n", Style::Unknown, 0);
        row("empty", "", Style::Unknown, 0);
        row("spaces without a clear step", "a\n     b\nc\n     d\n", Style::Spaces, 0);
        row("as many tab as space lines", "a\n\tb\n    c\n", Style::Unknown, 0);
    }
    void detect()
    {
        QFETCH(QByteArray, text);
        QFETCH(IndentDetector::Style, style);
        QFETCH(int, width);
        const IndentDetector::Result result = IndentDetector::detect(text);
        QCOMPARE(result.style, style);
        QCOMPARE(result.width, width);
    }

    // Only the sample is read: what follows it cannot change the answer, and
    // a line cut by the sample's end is not measured.
    void readsTheSampleOnly()
    {
        QByteArray text;
        while (text.size() < IndentDetector::SampleBytes - 20)
            text += "if x:\n    y()\n";
        text += QByteArray(40, '\t');
        text += "\nz\n";
        for (int i = 0; i < 10000; ++i)
            text += "\tw\n";
        const IndentDetector::Result result = IndentDetector::detect(text);
        QCOMPARE(result.style, IndentDetector::Style::Spaces);
        QCOMPARE(result.width, 4);
    }
};

QTEST_GUILESS_MAIN(TstIndentDetector)
#include "tst_indentdetector.moc"
