#pragma once

#include "sedguiexport.h"

#include <QFrame>

class QToolButton;

namespace koru::sedgui {

class EditorActions;
class Indentation;
class SedGUI;

// A slim strip below the text about the document: caret line and column and
// the selection's size, encoding, line ending, indentation, syntax and
// insert or overwrite. Clicking an entry offers the View menu's choices for
// it (the very same menus); the position opens Go To, the last entry toggles
// overwrite. Every update costs the same for any size of document.
class SEDGUI_EXPORT StatusStrip : public QFrame
{
    Q_OBJECT

public:
    StatusStrip(SedGUI *tool, EditorActions *actions, Indentation *indentation);

    // Brings every entry up to date now.
    void refresh();
    // Brings every entry up to date once the current event is handled: a
    // key's new caret position shows in the same repaint as the typed text,
    // and the editing component's notice of it, which comes while it paints,
    // finds the texts already current and repaints nothing more.
    void refreshSoon();

    // An entry by name: "position", "encoding", "lineEnding", "indentation",
    // "syntax", "overwrite".
    QToolButton *entry(const QString &name) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *addEntry(const char *name, const QString &toolTip);
    QString positionText() const;

    SedGUI *m_tool;
    Indentation *m_indentation;
    bool m_refreshPending = false;
};

} // namespace koru::sedgui
