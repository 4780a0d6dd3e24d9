#include "tabcornerwidget.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionComplex>
#include <QToolTip>

TabCornerWidget::TabCornerWidget(QWidget *parent)
    : QWidget(parent, {})
    , pressedControl(0)
    , hoverControl(0)
    , subControls(QStyle::SC_MdiCloseButton)
{
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    // Hover must be seen without a button held, so the style can highlight the box.
    setAttribute(Qt::WA_MouseTracking, true);
}

void TabCornerWidget::initStyleOption(QStyleOptionComplex *option) const
{
    option->initFrom(this);
    option->subControls = QStyle::SubControls(subControls);
    option->activeSubControls = QStyle::SC_None;
}

int TabCornerWidget::hitTest(const QPoint &pos) const
{
    QStyleOptionComplex option(1, QStyleOption::SO_ComplexCustomBase);
    initStyleOption(&option);
    return style()->hitTestComplexControl(QStyle::CC_MdiControls, &option, pos, this);
}

bool TabCornerWidget::event(QEvent *e)
{
    if (e->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(e);
        if (hitTest(help->pos()) == QStyle::SC_MdiCloseButton) {
            // Qt already translates the MDI close box tool tip; reuse its context.
            QToolTip::showText(help->globalPos(),
                               QCoreApplication::translate("QMdiSubWindow", "Close"));
        } else {
            QToolTip::showText(QPoint(0, 0), QString());
        }
    }
    return QWidget::event(e);
}

QSize TabCornerWidget::sizeHint() const
{
    ensurePolished();
    QStyleOptionComplex option(1, QStyleOption::SO_ComplexCustomBase);
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_MdiControls, &option, QSize(48, 16), this);
}

void TabCornerWidget::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressedControl = hitTest(event->position().toPoint());
    update();
}

void TabCornerWidget::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const int hit = hitTest(event->position().toPoint());
    // Pressing, dragging off and releasing elsewhere cancels the click.
    if (pressedControl == hit && hit == QStyle::SC_MdiCloseButton)
        emit sigCloseTool();
    pressedControl = 0;
    update();
}

void TabCornerWidget::mouseMoveEvent(QMouseEvent *event)
{
    const int hit = hitTest(event->position().toPoint());
    if (hit != hoverControl) {
        hoverControl = hit;
        update();
    }
}

void TabCornerWidget::leaveEvent(QEvent * /*event*/)
{
    hoverControl = 0;
    update();
}

void TabCornerWidget::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionComplex option(1, QStyleOption::SO_ComplexCustomBase);
    initStyleOption(&option);
    if (pressedControl == hoverControl) {
        // Also taken when neither is set: the sunken flag alone draws the plain box.
        option.activeSubControls = QStyle::SubControls(pressedControl);
        option.state |= QStyle::State_Sunken;
    } else if (hoverControl != 0 && pressedControl == 0) {
        option.activeSubControls = QStyle::SubControls(hoverControl);
        option.state |= QStyle::State_MouseOver;
    }
    QPainter painter(this);
    style()->drawComplexControl(QStyle::CC_MdiControls, &option, &painter, this);
}
