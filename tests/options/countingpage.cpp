#include "countingpage.h"

CountingPage::CountingPage(const QString &name, QStringList *journal)
    : name(name)
    , m_journal(journal)
{
    setObjectName(name);
}

void CountingPage::refreshPage()
{
    ++refreshed;
    m_journal->append(QStringLiteral("refresh ") + name);
}

void CountingPage::applyPage()
{
    ++applied;
    m_journal->append(QStringLiteral("apply ") + name);
}

void CountingPage::restoreDefaults()
{
    ++restored;
    m_journal->append(QStringLiteral("default ") + name);
}
