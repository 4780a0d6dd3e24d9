#include "fakeoptiontool.h"

FakeOptionTool::FakeOptionTool(const QString &title, const QStringList &names, QStringList *journal,
                               const QStringList &pageless)
    : names(names)
    , m_title(title)
{
    for (const QString &name : names) {
        if (!pageless.contains(name))
            m_pages.insert(name, new CountingPage(title + QLatin1Char('/') + name, journal));
    }
}

FakeOptionTool::~FakeOptionTool()
{
    // Pages that a dialog's stack took over are gone with the dialog already.
    for (const QPointer<CountingPage> &page : std::as_const(m_pages))
        delete page.data();
}

OptWidget *FakeOptionTool::getOptionPage(const QString &name)
{
    return m_pages.value(name);
}
