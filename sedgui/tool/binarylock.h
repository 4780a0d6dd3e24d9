#pragma once

#include <QObject>
#include <QString>

class QsciScintilla;

namespace koru::sedgui {

class InfoBar;

// Keeps a file that looks binary from being changed by mistake: after each
// load of such a file the editor is read-only and the info bar says why, with
// a button that makes the document editable. That choice holds for the rest
// of the document's life, reloads included.
class BinaryLock : public QObject
{
    Q_OBJECT

public:
    // How much of the start of a file is looked at.
    static constexpr qsizetype SampleBytes = 8 * 1024;

    BinaryLock(QsciScintilla *editor, InfoBar *infoBar, QObject *parent);

    // Whether text (a file's content, decoded) looks binary: a NUL within
    // its first SampleBytes, or more than one in ten of them control
    // characters other than the usual whitespace and escape.
    static bool looksBinary(const QByteArray &text);

    // Called after text has been loaded and its notices shown: locks the
    // editor and shows the notice (before the others) when text looks binary.
    void check(const QByteArray &text);
    // The info bar's button was pressed. Returns true, and makes the document
    // editable, when the button was the notice's own.
    bool takeAction();

private:
    QsciScintilla *m_editor = nullptr;
    InfoBar *m_infoBar = nullptr;
    QString m_notice;
    bool m_editChosen = false;
    bool m_wasReadOnly = false;
};

} // namespace koru::sedgui
