#pragma once

#include "countingpage.h"
#include "hubappinterface.h"

#include <QMap>
#include <QPointer>

// A tool interface with scriptable page names. Every name has a CountingPage
// unless it was listed as pageless; the names may be changed at any time.
class FakeOptionTool : public hubAppInterface
{
public:
    FakeOptionTool(const QString &title, const QStringList &names, QStringList *journal,
                   const QStringList &pageless = {});
    ~FakeOptionTool() override;

    QString getAppName() const override { return m_title; }
    QString getOptionTitle() const override { return m_title; }
    QWidget *createTool(QWidget *, int, QStringList, QString *, int) override { return nullptr; }
    QStringList getOptionPageNames() const override { return names; }
    OptWidget *getOptionPage(const QString &name) override;

    CountingPage *page(const QString &name) const { return m_pages.value(name); }

    QStringList names;

private:
    QString m_title;
    QMap<QString, QPointer<CountingPage>> m_pages;
};
