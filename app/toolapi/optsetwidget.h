#pragma once

#include "optwidget.h"

#include <QList>

// A page that holds other pages, or none: the options dialog uses an empty one
// for nodes that have no settings. Its three page operations forward to the
// pages it holds, so on an empty set they do nothing.
class SEDGUI_EXPORT OptSetWidget : public OptWidget
{
    Q_OBJECT

public:
    OptSetWidget();
    ~OptSetWidget() override;

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    void addPage(OptWidget *page);

private:
    QList<OptWidget *> m_pages;
    OptWidget *m_currentPage = nullptr;
};
