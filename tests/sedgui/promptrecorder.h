#pragma once

#include "dialogs/userprompt.h"

#include <QList>

// Answers the tool library's questions instead of the user: records every
// question and answers from a queue, or with the question's Escape answer
// when the queue is empty. Restores the real dialogs when destroyed.
class PromptRecorder
{
public:
    using Prompt = koru::sedgui::UserPrompt;

    PromptRecorder()
    {
        Prompt::setAnswerer([this](const Prompt::Question &question) {
            asked.append(question);
            return answers.isEmpty() ? question.escapeButton : answers.takeFirst();
        });
        Prompt::setFileNameAnswerer([this](const QString &) {
            ++fileNameRequests;
            return fileName;
        });
    }
    ~PromptRecorder()
    {
        Prompt::setAnswerer({});
        Prompt::setFileNameAnswerer({});
    }
    PromptRecorder(const PromptRecorder &) = delete;
    PromptRecorder &operator=(const PromptRecorder &) = delete;

    QList<Prompt::Question> asked;
    QList<Prompt::Button> answers;
    // The Save As dialog's answer; empty means Cancel.
    QString fileName;
    int fileNameRequests = 0;
};
