#include "languages.h"

#include <QTest>

#include <Qsci/qscilexer.h>

using koru::sedgui::Languages;

class TestLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detect_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("firstLine");
        QTest::addColumn<QString>("language");
        const auto row = [](const char *tag, const char *name, const char *line, const char *lang) {
            QTest::newRow(tag) << QString(name) << QByteArray(line) << QString(lang);
        };
        row("upper-case C is c++", "old.C", "", "C++");
        row("suffix ignores case, folder dropped", "/x/SCRIPT.PY", "", "Python");
        row("name wins over first line", "a.rb", "#!/bin/sh", "Ruby");
        row("shebang path", "run", "#!/bin/bash", "Bash");
        row("shebang env -S, versioned", "tool", "#! /usr/bin/env -S python3.11 -u", "Python");
        row("shebang unknown", "tool", "#!/usr/bin/awk -f", "");
        row("xml declaration", "data", "<?xml version=\"1.0\"?>", "XML");
        row("html doctype", "page", "<!DOCTYPE html>", "HTML");
        row("plain text", "notes.txt", "hello", "");
    }
    void detect()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, firstLine);
        QFETCH(QString, language);
        QCOMPARE(Languages::detect(fileName, firstLine), language);
    }

    // Each language has a lexer and its patterns in the Open filter, each detecting it again.
    void everyLanguageHasALexerAndIsOffered()
    {
        QObject owner;
        const QStringList filter = Languages::fileFilter().split(QStringLiteral(";;"));
        QCOMPARE(filter.first(), QStringLiteral("All Files (*)"));
        QVERIFY(Languages::names().size() >= 35);
        for (const QString &name : Languages::names()) {
            const QsciLexer *lexer = Languages::createLexer(name, &owner);
            QVERIFY2(lexer && lexer->parent() == &owner, qPrintable(name));
            const QStringList patterns = Languages::patterns(name);
            const QString entry = name + " (" + patterns.join(QLatin1Char(' ')) + ')';
            QVERIFY2(patterns.isEmpty() || filter.contains(entry), qPrintable(entry));
            for (const QString &pattern : patterns)
                QVERIFY2(Languages::detect(QString(pattern).replace('*', 'x'), {}) == name,
                         qPrintable(name + QLatin1Char(' ') + pattern));
        }
        QVERIFY(!Languages::createLexer(QString(), &owner));
        QVERIFY(!Languages::createLexer(QStringLiteral("Klingon"), &owner));
    }
};

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
