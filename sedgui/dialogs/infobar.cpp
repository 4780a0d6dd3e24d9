#include "dialogs/infobar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace koru::sedgui {

InfoBar::InfoBar(QWidget *parent)
    : QFrame(parent)
    , m_label(new QLabel(this))
    , m_actionButton(new QPushButton(this))
    , m_closeButton(new QPushButton(tr("Close"), this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    QPalette tinted = palette();
    tinted.setColor(QPalette::Window, QColor(0xff, 0xf4, 0xce));
    tinted.setColor(QPalette::WindowText, Qt::black);
    setPalette(tinted);

    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 2, 6, 2);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_actionButton);
    layout->addWidget(m_closeButton);

    connect(m_actionButton, &QPushButton::clicked, this, &InfoBar::actionTriggered);
    connect(m_closeButton, &QPushButton::clicked, this, &InfoBar::clearMessage);
    setVisible(false);
}

void InfoBar::showMessage(const QString &text, const QString &actionText)
{
    m_label->setText(text);
    m_actionButton->setText(actionText);
    m_actionButton->setVisible(!actionText.isEmpty());
    setVisible(true);
}

void InfoBar::clearMessage()
{
    m_label->clear();
    setVisible(false);
}

QString InfoBar::message() const
{
    return m_label->text();
}

} // namespace koru::sedgui
