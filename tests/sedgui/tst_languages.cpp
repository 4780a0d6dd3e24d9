#include "languages.h"

#include <QTest>

#include <Qsci/qscilexer.h>

using koru::sedgui::Languages;

class TestLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detect_data();
    void detect();
    void everyLanguageHasALexer();
    void filterListsAllFilesFirstThenEveryPattern();
};

void TestLanguages::detect_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("firstLine");
    QTest::addColumn<QString>("language");

    QTest::newRow("c source") << "/src/main.c" << QByteArray() << "C";
    QTest::newRow("c++ header") << "widget.hpp" << QByteArray() << "C++";
    QTest::newRow("upper-case C is c++") << "old.C" << QByteArray() << "C++";
    QTest::newRow("suffix ignores case") << "SCRIPT.PY" << QByteArray() << "Python";
    QTest::newRow("exact name") << "/x/CMakeLists.txt" << QByteArray() << "CMake";
    QTest::newRow("makefile") << "GNUmakefile" << QByteArray() << "Makefile";
    QTest::newRow("dot file") << "/home/u/.bashrc" << QByteArray() << "Bash";
    QTest::newRow("name wins over first line") << "a.rb" << QByteArray("#!/bin/sh") << "Ruby";
    QTest::newRow("shebang path") << "run" << QByteArray("#!/bin/bash") << "Bash";
    QTest::newRow("shebang env versioned")
        << "tool" << QByteArray("#!/usr/bin/env python3.11") << "Python";
    QTest::newRow("shebang env -S") << "tool" << QByteArray("#! /usr/bin/env -S perl -w") << "Perl";
    QTest::newRow("shebang unknown") << "tool" << QByteArray("#!/usr/bin/awk -f") << "";
    QTest::newRow("xml declaration") << "data" << QByteArray("<?xml version=\"1.0\"?>") << "XML";
    QTest::newRow("html doctype") << "page" << QByteArray("<!DOCTYPE html>") << "HTML";
    QTest::newRow("plain text") << "notes.txt" << QByteArray("hello") << "";
    QTest::newRow("no name, no line") << "" << QByteArray() << "";
}

void TestLanguages::detect()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, firstLine);
    QFETCH(QString, language);
    QCOMPARE(Languages::detect(fileName, firstLine), language);
}

void TestLanguages::everyLanguageHasALexer()
{
    QObject owner;
    const QStringList names = Languages::names();
    QVERIFY(names.size() >= 35);
    for (const QString &name : names) {
        QsciLexer *lexer = Languages::createLexer(name, &owner);
        QVERIFY2(lexer, qPrintable(name));
        QCOMPARE(lexer->parent(), &owner);
    }
    QVERIFY(!Languages::createLexer(QString(), &owner));
    QVERIFY(!Languages::createLexer(QStringLiteral("Klingon"), &owner));
}

void TestLanguages::filterListsAllFilesFirstThenEveryPattern()
{
    const QStringList entries = Languages::fileFilter().split(QStringLiteral(";;"));
    QCOMPARE(entries.first(), QStringLiteral("All Files (*)"));
    QVERIFY(entries.contains(QStringLiteral("C (*.c *.h)")));
    QVERIFY(entries.contains(
        QStringLiteral("Python (*.py *.pyw *.pyi SConstruct SConscript wscript)")));
    // Every pattern of the table is offered, so the Open dialog finds every file we colour.
    for (const QString &name : Languages::names()) {
        for (const QString &pattern : Languages::patterns(name))
            QVERIFY2(Languages::detect(QString(pattern).replace(QLatin1Char('*'), "x"), {}) == name,
                     qPrintable(name + QLatin1Char(' ') + pattern));
    }
}

QTEST_MAIN(TestLanguages)
#include "tst_languages.moc"
