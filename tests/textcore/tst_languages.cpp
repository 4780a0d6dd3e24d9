#include "languagedetector.h"
#include "languages.h"

#include <QTest>

#include <sys/mman.h>

using namespace koru::sedgui;

class TstLanguages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void detect_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QString>("language");
        const auto row = [](const char *tag, const char *name, const char *text, const char *lang) {
            QTest::newRow(tag) << QString(name) << QByteArray(text) << QString(lang);
        };
        row("upper-case C is c++", "old.C", "", "C++");
        row("suffix ignores case, folder dropped", "/x/SCRIPT.PY", "", "Python");
        row(".h stays C", "/src/util.h", "int f(void);\n", "C");
        row("CMakeLists.txt is CMake, not text", "/p/CMakeLists.txt", "project(x)\n", "CMake");
        row("Makefile.am is a Makefile", "Makefile.am", "SUBDIRS = src\n", "Makefile");
        row("exact names", "/p/.gitignore", "*.o\n", "Gitignore");
        row("Dockerfile variant", "Dockerfile.dev", "FROM debian\n", "Dockerfile");
        row("meson.build", "meson.build", "project('x')\n", "Meson");
        row("Cargo.lock", "Cargo.lock", "version = 3\n", "TOML");
        row("tsx", "app.tsx", "", "TypeScript");
        row("name wins over shebang", "a.rb", "#!/bin/sh\n", "Ruby");
        row("shebang path", "run", "#!/bin/bash\necho\n", "Bash");
        row("shebang env -S, versioned", "tool", "#! /usr/bin/env -S python3.11 -u\n", "Python");
        row("shebang node", "serve", "#!/usr/bin/node\n", "JavaScript");
        row("shebang after a BOM", "script", "\xEF\xBB\xBF#!/usr/bin/env python3\n", "Python");
        row("unknown interpreter", "x", "#!/usr/bin/awk -f\n", "");
        row("xml declaration", "data", "<?xml version=\"1.0\"?>\n<a/>", "XML");
        row("Qt translation source is XML", "app_de.ts", "<?xml version=\"1.0\"?>\n<TS>", "XML");
        row("html doctype any case", "page", "  <!doctype HTML>\n", "HTML");
        row("vim modeline beats name", "notes.txt", "text\n# vim: set ft=ruby:\n", "Ruby");
        row("vi modeline, filetype", "x.c", "/* vi: ts=4 filetype=python */\n", "Python");
        row("vim modeline beats shebang", "x", "#!/bin/sh\n# vim: ft=zsh\n", "Bash");
        row("emacs mode variable", "x.py", "#!/bin/sh\n# -*- mode: ruby; coding: utf-8 -*-\n",
            "Ruby");
        row("emacs bare mode", "x", "# -*- c++ -*-\n", "C++");
        row("emacs mode suffix", "x", "# -*- mode: python-ts -*-\n", "Python");
        row("modeline in the last five lines", "x", "a\nb\nc\nd\n# vim: ft=go\n\n", "Go");
        row("modeline not in the first or last five lines", "x.sh",
            "1\n2\n3\n4\n5\n# vim: ft=ruby\n7\n8\n9\n10\n11\n", "Bash");
        row("unknown modeline mode falls back to the name", "x.sh", "# vim: ft=klingon\n", "Bash");
        row("vim needs a blank before the marker", "x.sh", "# environ: ft=ruby\n", "Bash");
        row("plain text", "notes.txt", "hello\n", "");
    }
    void detect()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, text);
        QFETCH(QString, language);
        QCOMPARE(LanguageDetector::detect(fileName, text), language);
    }

    // The middle of a 50 MB text is unreadable memory: touching it crashes.
    void modelineAtTheEndOfAHugeTextReadsOnlyTheEnds()
    {
        const qsizetype page = 4096;
        const qsizetype size = 50 * 1024 * 1024;
        void *memory =
            mmap(nullptr, size_t(size), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        QVERIFY(memory != MAP_FAILED);
        char *data = static_cast<char *>(memory);
        std::memset(data, 'x', size_t(LanguageDetector::EndBytes));
        const QByteArray last = "\n# vim: set ft=ruby:\n";
        std::memset(data + size - LanguageDetector::EndBytes, 'x',
                    size_t(LanguageDetector::EndBytes));
        std::memcpy(data + size - last.size(), last.constData(), size_t(last.size()));
        const qsizetype guardStart = (LanguageDetector::EndBytes / page + 1) * page;
        const qsizetype guardEnd = (size - LanguageDetector::EndBytes) / page * page;
        QCOMPARE(mprotect(data + guardStart, size_t(guardEnd - guardStart), PROT_NONE), 0);
        const QString language =
            LanguageDetector::detect(QStringLiteral("big.txt"), QByteArrayView(data, size));
        munmap(memory, size_t(size));
        QCOMPARE(language, QStringLiteral("Ruby"));
    }

    // Each language's patterns select it again, and the Open filter offers them.
    void patternsSelectTheirLanguage()
    {
        const QStringList filter = Languages::fileFilter().split(QStringLiteral(";;"));
        QCOMPARE(filter.first(), QStringLiteral("All Files (*)"));
        for (const QString &name : Languages::names()) {
            QVERIFY2(!Languages::lexer(name).isEmpty(), qPrintable(name));
            const QStringList patterns = Languages::patterns(name);
            const QString entry = name + " (" + patterns.join(QLatin1Char(' ')) + ')';
            QVERIFY2(patterns.isEmpty() || filter.contains(entry), qPrintable(entry));
            for (const QString &pattern : patterns)
                QVERIFY2(Languages::forFileName(QString(pattern).replace('*', 'x')) == name,
                         qPrintable(name + QLatin1Char(' ') + pattern));
        }
    }
};

QTEST_GUILESS_MAIN(TstLanguages)
#include "tst_languages.moc"
