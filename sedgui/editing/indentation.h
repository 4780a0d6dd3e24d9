#pragma once

#include "editorconfig.h"
#include "indentdetector.h"
#include "textformat.h"

#include <QObject>
#include <QString>

class QsciScintilla;

namespace koru::sedgui {

// One document's indentation: tabs or spaces, the tab width and the columns
// per level, put on the editing widget whenever one of their sources changes.
// Each of them comes from the first source that has it: the user's choice for
// this document, the file's .editorconfig, the language (Makefiles need
// tabs), the file's own lines, the editor settings. So a change of the
// settings reaches only what the document itself says nothing about.
class Indentation : public QObject
{
    Q_OBJECT

public:
    // Where the tabs-or-spaces choice came from.
    enum class Source { Settings, Detected, Language, EditorConfig, Chosen };

    explicit Indentation(QsciScintilla *editor, QObject *parent = nullptr);

    // The document's file (absolute, need not exist; empty for untitled):
    // reads its .editorconfig.
    void setFilePath(const QString &path);
    // The document's language name (Languages::names(), empty for plain text).
    void setLanguage(const QString &language);
    // Looks at the start of the document's text (UTF-8) for its indentation.
    void detect(const QByteArray &utf8);
    void setSettings(bool useTabs, int tabWidth, int indentWidth);
    // The user's choice for this document; wins over everything else. With
    // tabs, width is the tab width; with spaces, the columns per level.
    void choose(bool useTabs, int width);

    bool useTabs() const { return m_useTabs; }
    int tabWidth() const { return m_tabWidth; }
    int indentWidth() const { return m_indentWidth; }
    Source source() const { return m_source; }
    // "Tabs: 8" or "Spaces: 4".
    QString label() const;
    // Where the indentation came from, in a sentence.
    QString sourceText() const;

    // The format of a file that does not exist yet, from the .editorconfig
    // (line ending and charset) over base.
    TextFormat formatForNewFile(TextFormat base) const;
    // Whether saving trims trailing whitespace: the .editorconfig's word,
    // else the user's setting.
    bool trimsTrailingWhitespace(bool setting) const;
    // Whether saving ends the text with a line ending.
    bool insertsFinalNewline() const;

Q_SIGNALS:
    void changed();

private:
    void update();

    QsciScintilla *m_editor;
    EditorConfig::Properties m_config;
    QString m_language;
    IndentDetector::Result m_detected;
    bool m_settingsTabs = false;
    int m_settingsTabWidth = 4;
    int m_settingsIndentWidth = 4;
    bool m_chosen = false;
    bool m_chosenTabs = false;
    int m_chosenTabWidth = 0; // 0: none chosen
    int m_chosenIndentWidth = 0;

    bool m_useTabs = false;
    int m_tabWidth = 4;
    int m_indentWidth = 4;
    Source m_source = Source::Settings;
};

} // namespace koru::sedgui
