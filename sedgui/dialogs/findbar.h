#pragma once

#include "editing/textsearcher.h"
#include "sedguiexport.h"

#include <QFrame>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QsciScintilla;

namespace koru::sedgui {

class MatchMarker;

// The strip under an editor for Find and Replace. It does not block the
// editor: the user can type in the text while it is open. Enter finds (with
// Shift in the other direction), Escape closes it.
class SEDGUI_EXPORT FindBar : public QFrame
{
    Q_OBJECT

public:
    explicit FindBar(QsciScintilla *editor, QWidget *parent = nullptr);

    // Opens the bar; a non-empty seed (usually the selected text) becomes the pattern.
    void showFind(const QString &seed);
    void showReplace(const QString &seed);

    // The query the controls describe.
    SearchQuery query() const;
    void setQuery(const SearchQuery &query);
    void setReplacement(const QString &text);

    // Searches for the next match of query() and says how it went.
    SearchMatch findNext(bool reverse = false);
    bool replaceOne();
    qint64 replaceAll();

    // The query of the last search in any editor, for Find Next in a tool whose
    // bar was never opened.
    static SearchQuery lastQuery();
    static void setLastQuery(const SearchQuery &query);

    // The message of the last operation ("Not found", ...); empty when all went well.
    QString status() const;
    // Where the selected match stands among all ("3 of 12"); empty without a pattern.
    QString matchSummary() const;
    // Marks and counts the matches of query() while the bar is open.
    MatchMarker *marker() const { return m_marker; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void open(bool replacing, const QString &seed);
    void report(const SearchMatch &match);
    void setStatus(const QString &text);
    // Selects the first match from where the search started, as the pattern is typed.
    void findAsTyped();
    void updateMarks();

    QsciScintilla *m_editor;
    QLineEdit *m_findEdit = nullptr;
    QLineEdit *m_replaceEdit = nullptr;
    QLabel *m_replaceLabel = nullptr;
    QPushButton *m_replaceButton = nullptr;
    QPushButton *m_replaceAllButton = nullptr;
    QCheckBox *m_regex = nullptr;
    QCheckBox *m_matchCase = nullptr;
    QCheckBox *m_wholeWord = nullptr;
    QCheckBox *m_wrap = nullptr;
    QCheckBox *m_backwards = nullptr;
    QLabel *m_status = nullptr;
    QLabel *m_count = nullptr;
    MatchMarker *m_marker = nullptr;
    // The start of the selection when the bar opened: typing searches from there.
    qint64 m_searchStart = 0;
};

} // namespace koru::sedgui
