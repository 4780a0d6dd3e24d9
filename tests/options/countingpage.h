#pragma once

#include "optwidget.h"

#include <QStringList>

// An option page that counts the dialog's calls and logs them, in order, to a
// journal shared by all pages of a test.
class CountingPage : public OptWidget
{
    Q_OBJECT

public:
    CountingPage(const QString &name, QStringList *journal);

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    QString name;
    int refreshed = 0;
    int applied = 0;
    int restored = 0;

private:
    QStringList *m_journal;
};
