#pragma once

#include "hubguitool.h"

namespace koru::sedgui {

// The editor tool: one document in one tab.
class SEDGUI_EXPORT SedGUI : public HubGUITool
{
    Q_OBJECT

public:
    explicit SedGUI(QWidget *parent = nullptr);
    ~SedGUI() override;

    // Asked by TemplateTree::checkFileChanged() for every open document: if the
    // document's file changed outside since it was last asked, deal with the
    // user (reload or keep) and return true; otherwise return false. The same
    // change is reported once only.
    virtual bool handleExternalChange();

    // The selected text, or an empty string; used to pre-fill search fields.
    Q_INVOKABLE virtual QString selectedText() const;
};

} // namespace koru::sedgui
