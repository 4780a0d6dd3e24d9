#pragma once

#include <QWidget>

class QStyleOptionComplex;

// The close button in the corner of the document tab bar. It is drawn by the
// current style as an MDI close box and emits sigCloseTool() when clicked:
// pressed and released on the button with the left mouse button.
class TabCornerWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TabCornerWidget(QWidget *parent);

    bool event(QEvent *e) override;
    QSize sizeHint() const override;

signals:
    void sigCloseTool();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void initStyleOption(QStyleOptionComplex *option) const;
    int hitTest(const QPoint &pos) const;

    int pressedControl;
    int hoverControl;
    int subControls;
};
