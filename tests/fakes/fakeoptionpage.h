#pragma once

#include "fakecontrol.h"
#include "optwidget.h"

// An option page, named after its page, that counts what the options dialog
// asks of it.
class FAKETOOLS_EXPORT FakeOptionPage : public OptWidget
{
    Q_OBJECT

public:
    explicit FakeOptionPage(const QString &name, QWidget *parent = nullptr)
        : OptWidget(parent)
    {
        setObjectName(name);
    }

    void refreshPage() override { ++refreshCount; }
    void applyPage() override { ++applyCount; }

    int refreshCount = 0;
    int applyCount = 0;
};
