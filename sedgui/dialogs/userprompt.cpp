#include "dialogs/userprompt.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFileDialog>
#include <QHash>
#include <QMessageBox>
#include <QPushButton>

namespace koru::sedgui {

namespace {

UserPrompt::Answerer &answererSlot()
{
    static UserPrompt::Answerer answerer;
    return answerer;
}

UserPrompt::FileNameAnswerer &fileNameAnswererSlot()
{
    static UserPrompt::FileNameAnswerer answerer;
    return answerer;
}

QMessageBox::Icon boxIcon(UserPrompt::Icon icon)
{
    switch (icon) {
    case UserPrompt::Icon::Information:
        return QMessageBox::Information;
    case UserPrompt::Icon::Warning:
        return QMessageBox::Warning;
    case UserPrompt::Icon::Critical:
        return QMessageBox::Critical;
    case UserPrompt::Icon::Question:
        break;
    }
    return QMessageBox::Question;
}

QMessageBox::ButtonRole buttonRole(UserPrompt::Button button)
{
    switch (button) {
    case UserPrompt::Ok:
    case UserPrompt::Save:
    case UserPrompt::Overwrite:
    case UserPrompt::SaveAsUtf8:
    case UserPrompt::SaveAs:
        return QMessageBox::AcceptRole;
    case UserPrompt::Discard:
        return QMessageBox::DestructiveRole;
    case UserPrompt::Cancel:
        return QMessageBox::RejectRole;
    case UserPrompt::Close:
        return QMessageBox::DestructiveRole;
    case UserPrompt::Reload:
    case UserPrompt::Keep:
    case UserPrompt::KeepInEditor:
        break;
    }
    return QMessageBox::ActionRole;
}

} // namespace

QString UserPrompt::buttonText(Button button)
{
    switch (button) {
    case Ok:
        return QCoreApplication::translate("UserPrompt", "OK");
    case Save:
        return QCoreApplication::translate("UserPrompt", "&Save");
    case Discard:
        return QCoreApplication::translate("UserPrompt", "&Discard");
    case Cancel:
        return QCoreApplication::translate("UserPrompt", "Cancel");
    case Reload:
        return QCoreApplication::translate("UserPrompt", "&Reload from Disk");
    case Keep:
        return QCoreApplication::translate("UserPrompt", "&Keep My Text");
    case Overwrite:
        return QCoreApplication::translate("UserPrompt", "&Overwrite");
    case SaveAsUtf8:
        return QCoreApplication::translate("UserPrompt", "Save as &UTF-8");
    case KeepInEditor:
        return QCoreApplication::translate("UserPrompt", "&Keep in Editor");
    case Close:
        return QCoreApplication::translate("UserPrompt", "&Close");
    case SaveAs:
        return QCoreApplication::translate("UserPrompt", "Save &As…");
    }
    return {};
}

UserPrompt::Button UserPrompt::ask(QWidget *parent, const Question &question)
{
    if (const Answerer &answerer = answererSlot())
        return answerer(question);

    QMessageBox box(boxIcon(question.icon), question.title, question.text, QMessageBox::NoButton,
                    parent);
    box.setTextFormat(Qt::PlainText);
    QHash<QAbstractButton *, Button> answers;
    QAbstractButton *escape = nullptr;
    for (Button button : question.buttons) {
        QPushButton *pushButton = box.addButton(buttonText(button), buttonRole(button));
        answers.insert(pushButton, button);
        if (button == question.defaultButton)
            box.setDefaultButton(pushButton);
        if (button == question.escapeButton)
            escape = pushButton;
    }
    if (escape)
        box.setEscapeButton(escape);
    box.exec();
    // Closing the box by the window manager counts as Escape.
    return answers.value(box.clickedButton(), question.escapeButton);
}

void UserPrompt::tell(QWidget *parent, Icon icon, const QString &title, const QString &text)
{
    Question question;
    question.icon = icon;
    question.title = title;
    question.text = text;
    question.buttons = {Ok};
    question.defaultButton = Ok;
    question.escapeButton = Ok;
    ask(parent, question);
}

QString UserPrompt::askSaveFileName(QWidget *parent, const QString &suggestedPath,
                                    const QString &filter)
{
    if (const FileNameAnswerer &answerer = fileNameAnswererSlot())
        return answerer(suggestedPath);
    return QFileDialog::getSaveFileName(
        parent, QCoreApplication::translate("UserPrompt", "Save As"), suggestedPath, filter);
}

void UserPrompt::setAnswerer(Answerer answerer)
{
    answererSlot() = std::move(answerer);
}

void UserPrompt::setFileNameAnswerer(FileNameAnswerer answerer)
{
    fileNameAnswererSlot() = std::move(answerer);
}

} // namespace koru::sedgui
