#include "fakeoptionpage.h"

#include <QLabel>
#include <QVBoxLayout>

FakeOptionPage::FakeOptionPage(const QString &name, QWidget *parent)
    : OptWidget(parent)
{
    setObjectName(name);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(name, this));
}

void FakeOptionPage::refreshPage()
{
    ++refreshCount;
}

void FakeOptionPage::applyPage()
{
    ++applyCount;
}

void FakeOptionPage::restoreDefaults()
{
    ++restoreCount;
}
