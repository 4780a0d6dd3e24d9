#pragma once

#include "optwidget.h"

#include <QStringList>

// An option page that logs the dialog's calls, in order, to a journal shared
// by all pages of a test.
class CountingPage : public OptWidget
{
    Q_OBJECT

public:
    CountingPage(const QString &name, QStringList *journal);

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    QString name;

private:
    QStringList *m_journal;
};
