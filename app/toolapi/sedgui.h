#pragma once

#include "hubguitool.h"

class QsciScintilla;

namespace koru::sedgui {

// The editor tool: one document in one tab.
//
// The class is split by concern over several files: sedgui.cpp (document,
// editing, saving, external changes), sedgui_find.cpp (find, replace, go to),
// sedgui_print.cpp (printing) and sedgui_view.cpp (the tool's own menu actions
// and the settings it applies).
class SEDGUI_EXPORT SedGUI : public HubGUITool
{
    Q_OBJECT

public:
    explicit SedGUI(QWidget *parent = nullptr);
    ~SedGUI() override;

    QList<QAction *> *getMenuActions(int menuKind) override;

    // Asked by TemplateTree::checkFileChanged() for every open document: if the
    // document's file changed outside since it was last asked, deal with the
    // user (reload or keep) and return true; otherwise return false. The same
    // change is reported once only.
    virtual bool handleExternalChange();

    // The selected text, or an empty string; used to pre-fill search fields.
    Q_INVOKABLE virtual QString selectedText() const;

    // The editing widget; never null.
    QsciScintilla *editor() const { return m_editor; }

    // Applies the stored editor settings (font, tabs, margins, ...) to this tool.
    void applySettings();

    // Called just before the buffer is encoded for saving (trims trailing
    // whitespace when the user asked for it).
    void prepareForSave();

public Q_SLOTS:
    void find();
    void findNext();
    void replace();
    void goTo();

    void pageSetup();
    void printPreview();
    void print();

private:
    QsciScintilla *m_editor = nullptr;
};

} // namespace koru::sedgui
