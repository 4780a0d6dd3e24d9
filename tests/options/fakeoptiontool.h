#pragma once

#include "countingpage.h"
#include "hubappinterface.h"

#include <QMap>
#include <QPointer>

// A tool interface made from "Title:page1,page2"; every page is a
// CountingPage titled "Title/page", except that a name starting with '!' has
// no page widget. The names may be changed at any time.
class FakeOptionTool : public hubAppInterface
{
public:
    FakeOptionTool(const QString &description, QStringList *journal)
        : names(description.section(u':', 1).split(u',', Qt::SkipEmptyParts))
        , m_title(description.section(u':', 0, 0))
    {
        for (const QString &name : std::as_const(names)) {
            if (!name.startsWith(u'!'))
                m_pages.insert(name, new CountingPage(m_title + u'/' + name, journal));
        }
    }
    ~FakeOptionTool() override
    {
        // Pages that a dialog's stack took over are gone with the dialog already.
        for (const QPointer<CountingPage> &page : std::as_const(m_pages))
            delete page.data();
    }

    QString getAppName() const override { return m_title; }
    QString getOptionTitle() const override { return m_title; }
    QWidget *createTool(QWidget *, int, QStringList, QString *, int) override { return nullptr; }
    QStringList getOptionPageNames() const override { return names; }
    OptWidget *getOptionPage(const QString &name) override { return m_pages.value(name); }

    QStringList names;

private:
    QString m_title;
    QMap<QString, QPointer<CountingPage>> m_pages;
};
