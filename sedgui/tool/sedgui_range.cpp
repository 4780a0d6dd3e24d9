#include "editing/editorcommands.h"
#include "filenameescape.h"
#include "sedgui.h"
#include "tool/documentstate.h"

#include <QFileInfo>

#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

QString comparablePath(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical =
        FileNameEscape::hasEscapes(path) ? QString() : info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

} // namespace

bool SedGUI::selectRange(const QString &file, int line, int column, int length)
{
    // The name as the result pane writes it, read as the program holds names.
    const QString path = FileNameEscape::fromNative(FileNameEscape::toNative(file));
    if (m_doc->filePath.isEmpty() || comparablePath(path) != comparablePath(m_doc->filePath))
        return false;
    return selectSpan(line, column, length);
}

bool SedGUI::selectSpan(int line, int column, int length)
{
    const int lineCount = int(m_editor->SendScintilla(Sci::SCI_GETLINECOUNT));
    if (line < 1 || line > lineCount || column < 0 || length < 0)
        return false;

    // The buffer holds UTF-8: the span's UTF-16 units become bytes of the line.
    const QString text = m_editor->text(line - 1);
    column = std::min<int>(column, int(text.size()));
    const long lineStart = m_editor->SendScintilla(Sci::SCI_POSITIONFROMLINE, line - 1);
    const long lineEnd = m_editor->SendScintilla(Sci::SCI_GETLINEENDPOSITION, line - 1);
    const long start =
        std::min<long>(lineStart + QStringView(text).left(column).toUtf8().size(), lineEnd);
    const long end =
        std::min<long>(start + QStringView(text).mid(column, length).toUtf8().size(), lineEnd);

    EditorCommands::goToLine(m_editor, line);
    m_editor->SendScintilla(Sci::SCI_SETSEL, start, end);
    return true;
}

} // namespace koru::sedgui
