#pragma once

#include "sedguiexport.h"

#include <QWidget>

// An option page of a tool, shown by the options dialog.
class SEDGUI_EXPORT OptWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OptWidget(QWidget *parent = nullptr);
    ~OptWidget() override;

    // Brings the controls up to date with the stored values before showing.
    virtual void refreshPage();
    // Stores the controls' values and makes them take effect.
    virtual void applyPage();
    // Puts the controls back to the default values without applying them.
    virtual void restoreDefaults();
};
