#include "countingpage.h"

CountingPage::CountingPage(const QString &name, QStringList *journal)
    : name(name)
    , m_journal(journal)
{
    setObjectName(name);
}

void CountingPage::refreshPage()
{
    m_journal->append(QStringLiteral("refresh ") + name);
}

void CountingPage::applyPage()
{
    m_journal->append(QStringLiteral("apply ") + name);
}

void CountingPage::restoreDefaults()
{
    m_journal->append(QStringLiteral("default ") + name);
}
