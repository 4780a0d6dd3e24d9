#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QString>

#include <functional>

class QWidget;

namespace koru::sedgui {

// Every question the tool library puts to the user goes through here, so that
// tests can answer instead of a modal dialog (setAnswerer).
class SEDGUI_EXPORT UserPrompt
{
public:
    enum Button {
        Ok,
        Save,
        Discard,
        Cancel,
        Reload,
        Keep,
        Overwrite,
        SaveAsUtf8,
        SaveAs,
        KeepInEditor,
        Close
    };
    enum class Icon { Information, Warning, Critical, Question };

    struct Question
    {
        Icon icon = Icon::Question;
        QString title;
        // Shown as plain text: file names and contents are never markup.
        QString text;
        QList<Button> buttons;
        Button defaultButton = Ok;
        // The answer when the user presses Escape or closes the box.
        Button escapeButton = Cancel;
    };

    using Answerer = std::function<Button(const Question &)>;
    using FileNameAnswerer = std::function<QString(const QString &suggestedPath)>;

    // Asks and returns the button chosen (one of question.buttons).
    static Button ask(QWidget *parent, const Question &question);
    // A message with one OK button.
    static void tell(QWidget *parent, Icon icon, const QString &title, const QString &text);
    // The Save As dialog: a path, or empty when the user cancelled.
    static QString askSaveFileName(QWidget *parent, const QString &suggestedPath,
                                   const QString &filter);

    // Replace the dialogs (for tests); an empty function restores them.
    static void setAnswerer(Answerer answerer);
    static void setFileNameAnswerer(FileNameAnswerer answerer);

    // The label a button shows, e.g. "Keep My Text".
    static QString buttonText(Button button);
};

} // namespace koru::sedgui
