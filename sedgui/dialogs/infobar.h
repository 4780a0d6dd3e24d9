#pragma once

#include "sedguiexport.h"

#include <QFrame>

class QLabel;
class QPushButton;

namespace koru::sedgui {

// A slim strip above the text for things the user should know about the
// document ("changed on disk", "not valid UTF-8"), without a modal box.
// Hidden while there is nothing to say.
class SEDGUI_EXPORT InfoBar : public QFrame
{
    Q_OBJECT

public:
    explicit InfoBar(QWidget *parent = nullptr);

    // Shows text (plain text, never markup) and, when actionText is not empty,
    // a button that emits actionTriggered().
    void showMessage(const QString &text, const QString &actionText = {});
    void clearMessage();
    QString message() const;

Q_SIGNALS:
    void actionTriggered();

private:
    QLabel *m_label = nullptr;
    QPushButton *m_actionButton = nullptr;
    QPushButton *m_closeButton = nullptr;
};

} // namespace koru::sedgui
