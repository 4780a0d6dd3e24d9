#pragma once

#include <QByteArrayView>
#include <QString>

namespace koru::sedgui {

// Finds the language of a document (a name of Languages::names(), empty for
// plain text) from its file name and its text, looking at the ends of the
// text only:
// - an Emacs ("-*- mode: ruby -*-", "-*- ruby -*-") or Vim ("vim: set
//   ft=ruby:", "vi: ft=ruby") modeline in the first or last ModelineLines
//   lines wins over everything;
// - then the file name (Languages::forFileName());
// - then the first line, after a byte order mark: a "#!" interpreter, an XML
//   declaration, an HTML doctype.
class LanguageDetector
{
public:
    // Bytes read at each end of the text; the middle of a large file is never read.
    static constexpr qsizetype EndBytes = 4096;
    static constexpr int ModelineLines = 5;

    // text is the whole document as UTF-8 (or empty for a file not yet read).
    static QString detect(const QString &fileName, QByteArrayView text);
};

} // namespace koru::sedgui
