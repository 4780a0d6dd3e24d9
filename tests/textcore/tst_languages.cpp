#include "languages.h"

#include <QTest>

using namespace koru::sedgui;

class TstLanguages : public QObject
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
};

QTEST_GUILESS_MAIN(TstLanguages)
#include "tst_languages.moc"
