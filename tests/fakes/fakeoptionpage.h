#pragma once

#include "faketoolsexport.h"
#include "optwidget.h"

// An option page that counts what the options dialog asks of it. Its object
// name is its page name; it shows that name as a label.
class FAKETOOLS_EXPORT FakeOptionPage : public OptWidget
{
    Q_OBJECT

public:
    explicit FakeOptionPage(const QString &name, QWidget *parent = nullptr);

    void refreshPage() override;
    void applyPage() override;
    void restoreDefaults() override;

    int refreshCount = 0;
    int applyCount = 0;
    int restoreCount = 0;
};
