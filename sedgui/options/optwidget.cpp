#include "optwidget.h"

OptWidget::OptWidget(QWidget *parent)
    : QWidget(parent)
{}

OptWidget::~OptWidget() = default;

void OptWidget::refreshPage() {}

void OptWidget::applyPage() {}

void OptWidget::restoreDefaults() {}
