#include "dialogs/gotodialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace koru::sedgui {

GoToDialog::GoToDialog(int currentLine, int lineCount, QWidget *parent)
    : QDialog(parent)
    , m_input(new QLineEdit(this))
    , m_hint(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Go To Line"));
    auto *prompt = new QLabel(tr("&Line (1 - %1), optionally line:column:").arg(lineCount), this);
    prompt->setBuddy(m_input);
    m_input->setText(QString::number(currentLine));
    m_input->selectAll();
    m_hint->setTextFormat(Qt::PlainText);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addWidget(m_input);
    layout->addWidget(m_hint);
    layout->addWidget(m_buttons);

    connect(m_input, &QLineEdit::textChanged, this, &GoToDialog::validate);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    validate();
}

bool GoToDialog::parse(const QString &text, qint64 *line, qint64 *column)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*(\\d{1,15})\\s*(?:[:,]\\s*(\\d{1,15})\\s*)?$"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        return false;
    }
    *line = match.captured(1).toLongLong();
    *column = match.captured(2).isEmpty() ? 1 : match.captured(2).toLongLong();
    return true;
}

void GoToDialog::validate()
{
    const bool valid = parse(m_input->text(), &m_line, &m_column);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(valid);
    m_hint->setText(valid || m_input->text().trimmed().isEmpty()
                        ? QString()
                        : tr("Type a line number, or line:column such as 12:5."));
}

} // namespace koru::sedgui
