#pragma once

#include "sedguiexport.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QLineEdit;

namespace koru::sedgui {

// Asks for a line, or line:column, to go to.
class SEDGUI_EXPORT GoToDialog : public QDialog
{
    Q_OBJECT

public:
    GoToDialog(int currentLine, int lineCount, QWidget *parent = nullptr);

    qint64 line() const { return m_line; }
    qint64 column() const { return m_column; }

    // Reads "12", "12:5" or "12,5" (spaces allowed). Returns false for anything
    // else; the numbers are not clamped here.
    static bool parse(const QString &text, qint64 *line, qint64 *column);

private:
    void validate();

    QLineEdit *m_input = nullptr;
    QLabel *m_hint = nullptr;
    QDialogButtonBox *m_buttons = nullptr;
    qint64 m_line = 1;
    qint64 m_column = 1;
};

} // namespace koru::sedgui
