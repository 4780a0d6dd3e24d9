#include "optsetwidget.h"

OptSetWidget::OptSetWidget()
    : OptWidget(nullptr)
{}

OptSetWidget::~OptSetWidget() = default;

void OptSetWidget::refreshPage()
{
    for (OptWidget *page : std::as_const(m_pages))
        page->refreshPage();
}

void OptSetWidget::applyPage()
{
    for (OptWidget *page : std::as_const(m_pages))
        page->applyPage();
}

void OptSetWidget::restoreDefaults()
{
    for (OptWidget *page : std::as_const(m_pages))
        page->restoreDefaults();
}

void OptSetWidget::addPage(OptWidget *page)
{
    m_pages.append(page);
    if (!m_currentPage)
        m_currentPage = page;
}
