#pragma once

#include "optwidget.h"

#include <QStringList>

// An option page that logs the dialog's calls, in order, to a journal shared
// by all pages of a test.
class CountingPage : public OptWidget
{
    Q_OBJECT

public:
    CountingPage(const QString &name, QStringList *journal)
        : m_journal(journal)
    {
        setObjectName(name);
    }

    void refreshPage() override { m_journal->append(QStringLiteral("refresh ") + objectName()); }
    void applyPage() override { m_journal->append(QStringLiteral("apply ") + objectName()); }
    void restoreDefaults() override
    {
        m_journal->append(QStringLiteral("default ") + objectName());
    }

private:
    QStringList *m_journal;
};
