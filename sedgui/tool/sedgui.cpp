#include "sedgui.h"

#include "connection.h"
#include "dialogs/infobar.h"
#include "dialogs/statusstrip.h"
#include "dialogs/userprompt.h"
#include "displayname.h"
#include "editing/changerelay.h"
#include "editing/changeserial.h"
#include "editing/editoractions.h"
#include "editing/editorcommands.h"
#include "editing/indentation.h"
#include "editing/scrollwidthsteps.h"
#include "editing/typingassist.h"
#include "lexers/editorcolours.h"
#include "session/closebatch.h"
#include "templatetree.h"
#include "tool/binarylock.h"
#include "tool/documentjournal.h"
#include "tool/documentstate.h"
#include "toolargs.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMimeData>
#include <QSet>
#include <QVBoxLayout>

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <utility>

namespace koru::sedgui {

namespace {

// Selects the caret's line without its line ending, the caret at its start.
void selectCaretLine(QsciScintilla *editor)
{
    int line = 0;
    int index = 0;
    editor->getCursorPosition(&line, &index);
    const long start = editor->SendScintilla(QsciScintillaBase::SCI_POSITIONFROMLINE, line);
    const long end = editor->SendScintilla(QsciScintillaBase::SCI_GETLINEENDPOSITION, line);
    editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, end, start);
}

// The lowest "Untitled N" number no open document uses.
int freeUntitledNumber()
{
    QSet<int> used;
    for (const SedGUI *document : TemplateTree::Instance()->documents()) {
        const QString tab = document->getTabText();
        if (tab.startsWith(QLatin1String("Untitled ")))
            used.insert(tab.mid(9).remove(QLatin1Char('*')).toInt());
    }
    int number = 1;
    while (used.contains(number))
        ++number;
    return number;
}

// Whether the clipboard holds text, asked of the clipboard once per change
// for all tools: on X11 every question is a round trip to the clipboard's owner.
bool clipboardHasText()
{
    static bool hasText = [] {
        QClipboard *clipboard = QApplication::clipboard();
        QObject::connect(clipboard, &QClipboard::dataChanged, clipboard, [clipboard] {
            const QMimeData *data = clipboard->mimeData();
            hasText = data && data->hasText();
        });
        const QMimeData *data = clipboard->mimeData();
        return data && data->hasText();
    }();
    return hasText;
}

} // namespace

SedGUI::SedGUI(QWidget *parent)
    : HubGUITool(parent)
    , m_editor(new QsciScintilla(this))
    , m_infoBar(new InfoBar(this))
    , m_doc(std::make_unique<DocumentState>())
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_infoBar);
    layout->addWidget(m_editor, 1);
    setFocusProxy(m_editor);

    m_doc->untitledNumber = freeUntitledNumber();

    // The buffer holds UTF-8 bytes whatever the file's encoding (the codec
    // converts on load and save); invalid bytes and NULs are kept as they are.
    m_editor->setUtf8(true);
    // Defaults that hold until the stored settings are applied below.
    m_editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_editor->setMarginLineNumbers(0, true);
    m_editor->setMarginWidth(0, QStringLiteral("00000"));
    m_editor->setCaretLineVisible(true);
    m_editor->setBraceMatching(QsciScintilla::SloppyBraceMatch);
    m_editor->setAutoIndent(true);
    // The horizontal scroll bar spans the widest line laid out so far (in
    // steps), not a fixed 2000 pixels that makes every short file look
    // scrolled sideways.
    m_editor->SendScintilla(QsciScintillaBase::SCI_SETSCROLLWIDTHTRACKING, 1UL);
    m_editor->SendScintilla(QsciScintillaBase::SCI_SETSCROLLWIDTH, 1UL);
    new ScrollWidthSteps(m_editor); // owned by the editor

    connect(m_editor, &QsciScintilla::textChanged, this, [this] { emitEditState(false); });
    connect(m_editor, &QsciScintilla::selectionChanged, this, [this] { emitEditState(false); });
    connect(m_editor, &QsciScintilla::modificationChanged, this, [this] {
        emitEditState(false);
        updateTitle();
    });
    clipboardHasText(); // connected before the tools below, so it is up to date for them
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this,
            [this] { emitEditState(false); });
    m_binaryLock = new BinaryLock(m_editor, m_infoBar, this);
    connect(m_infoBar, &InfoBar::actionTriggered, this, [this] {
        if (m_binaryLock->takeAction())
            return;
        m_infoBar->clearMessage();
        handleExternalChange();
    });

    // Shared action -> tool.
    static const struct
    {
        const char *action;
        const char *slot;
    } commands[] = {
        {"SAVE", "1saveFile()"},
        {"SAVE AS", "1saveFileAs()"},
        {"PAGE SETUP", "1pageSetup()"},
        {"PRINT PREVIEW", "1printPreview()"},
        {"PRINT", "1print()"},
        {"UNDO", "1undo()"},
        {"REDO", "1redo()"},
        {"CUT", "1cut()"},
        {"COPY", "1copy()"},
        {"PASTE", "1paste()"},
        {"FIND", "1find()"},
        {"FIND NEXT", "1findNext()"},
        {"REPLACE", "1replace()"},
        {"GO TO", "1goTo()"},
        {"CLEAR", "1clear()"},
        {"SELECT ALL", "1selectAll()"},
    };
    // Tool state -> shared action's enabled state.
    static const struct
    {
        const char *signal;
        const char *action;
    } states[] = {
        {"2sigModified(bool)", "SAVE"},
        {"2sigAlwaysEnabled(bool)", "SAVE AS"},
        {"2sigAlwaysEnabled(bool)", "PAGE SETUP"},
        {"2sigAlwaysEnabled(bool)", "PRINT PREVIEW"},
        {"2sigAlwaysEnabled(bool)", "PRINT"},
        {"2sigUndoAvailable(bool)", "UNDO"},
        {"2sigRedoAvailable(bool)", "REDO"},
        {"2sigCutAvailable(bool)", "CUT"},
        {"2sigCopyAvailable(bool)", "COPY"},
        {"2sigPasteAvailable(bool)", "PASTE"},
        {"2sigAlwaysEnabled(bool)", "FIND"},
        {"2sigAlwaysEnabled(bool)", "FIND NEXT"},
        {"2sigAlwaysEnabled(bool)", "REPLACE"},
        {"2sigAlwaysEnabled(bool)", "GO TO"},
        {"2sigCutAvailable(bool)", "CLEAR"},
        {"2sigAlwaysEnabled(bool)", "SELECT ALL"},
    };
    for (const auto &command : commands)
        m_connections.append(new Connection(command.action, "2triggered()", nullptr, command.slot));
    for (const auto &state : states)
        m_connections.append(
            new Connection(nullptr, state.signal, state.action, "1setEnabled(bool)"));

    m_indentation = new Indentation(m_editor, this);
    m_typing = new TypingAssist(m_editor, this);
    new ChangeRelay(m_editor); // owned by the editor
    m_changeSerial = new ChangeSerial(m_editor);
    m_colours = new EditorColours(m_editor, this);
    applySettings(true);
    m_statusStrip = new StatusStrip(
        this, findChild<EditorActions *>(QString(), Qt::FindDirectChildrenOnly), m_indentation);
    layout->addWidget(m_statusStrip);
    m_journal = new DocumentJournal(this);
    TemplateTree::Instance()->addDocument(this);
}

SedGUI::~SedGUI()
{
    TemplateTree::Instance()->removeDocument(this);
    qDeleteAll(m_connections);
}

QString SedGUI::getTitle() const
{
    if (m_doc->filePath.isEmpty())
        return getTabText();
    const QString name = DisplayName::visible(m_doc->filePath);
    return isModified() ? name + QLatin1Char('*') : name;
}

QString SedGUI::getTabText() const
{
    const QString name = m_doc->filePath.isEmpty() ? tr("Untitled %1").arg(m_doc->untitledNumber)
                                                   : QFileInfo(m_doc->filePath).fileName();
    return isModified() ? name + QLatin1Char('*') : name;
}

QString SedGUI::getFileName() const
{
    return m_doc->filePath;
}

QList<Connection *> *SedGUI::getConnectionList()
{
    return &m_connections;
}

void SedGUI::closeTool(bool force)
{
    if (m_doc->closing)
        return;
    // Closing together with others (Quit, Close All): the user answered once for all.
    if (!force) {
        switch (CloseBatch::verdict(this)) {
        case CloseBatch::Verdict::Keep:
            return;
        case CloseBatch::Verdict::Close:
            force = true;
            break;
        case CloseBatch::Verdict::Ask:
            break;
        }
    }
    if (!force && isModified()) {
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Warning;
        question.title = tr("Close Document");
        question.text = tr("Save the changes to %1 before closing?")
                            .arg(m_doc->filePath.isEmpty() ? getTabText().remove(QLatin1Char('*'))
                                                           : DisplayName::visible(m_doc->filePath));
        question.buttons = {UserPrompt::Save, UserPrompt::Discard, UserPrompt::Cancel};
        question.defaultButton = UserPrompt::Save;
        question.escapeButton = UserPrompt::Cancel;
        const UserPrompt::Button answer = UserPrompt::ask(this, question);
        if (answer == UserPrompt::Cancel)
            return;
        if (answer == UserPrompt::Save && !save())
            return;
    }
    m_doc->closing = true;
    TemplateTree::Instance()->removeDocument(this);
    emit sigToolClose(this);
    deleteLater();
}

void SedGUI::activate()
{
    emitEditState(true);
    // The window sets the title through Latin-1 when the tab changes, which
    // turns other characters into "?"; asked again once that is over, it
    // shows the title as it is.
    const QString title = getTitle();
    if (std::any_of(title.cbegin(), title.cend(), [](QChar c) { return c.unicode() > 0xff; }))
        QMetaObject::invokeMethod(
            this, [this] { emit sigTitleChange(this); }, Qt::QueuedConnection);
    // A window that has just opened has no keyboard focus anywhere: give it
    // to the document, so that typing goes where the user looks.
    if (!window()->focusWidget())
        m_editor->setFocus(Qt::OtherFocusReason);
}

void SedGUI::processArgs(QWidget *, QStringList args)
{
    const ToolArgs parsed = ToolArgs::parse(args, QDir::currentPath());
    for (const ToolArgs::File &file : parsed.files) {
        if (file.line > 0 && (parsed.files.size() == 1 || file.path == m_doc->filePath)) {
            // Opened at a line (a search hit, a compiler message): show which line.
            goToLine(file.line);
            if (isVisible())
                selectCaretLine(m_editor);
            else
                m_doc->selectPendingLine = true;
            return;
        }
    }
}

bool SedGUI::isModified() const
{
    return m_doc->forcedModified || m_editor->isModified();
}

bool SedGUI::hasHugeLines() const
{
    return m_doc->hugeLines;
}

void SedGUI::goToLine(int line)
{
    if (!isVisible()) {
        m_doc->pendingLine = line;
    }
    const int lines = m_editor->lines();
    const int index = std::clamp(line, 1, std::max(lines, 1)) - 1;
    m_editor->setCursorPosition(index, 0);
    m_editor->SendScintilla(QsciScintillaBase::SCI_VERTICALCENTRECARET);
}

void SedGUI::showEvent(QShowEvent *event)
{
    HubGUITool::showEvent(event);
    if (m_doc->pendingLine > 0) {
        const int line = m_doc->pendingLine;
        m_doc->pendingLine = 0;
        goToLine(line);
        if (std::exchange(m_doc->selectPendingLine, false))
            selectCaretLine(m_editor);
    }
}

QString SedGUI::selectedText() const
{
    return m_editor->selectedText();
}

void SedGUI::undo()
{
    EditorCommands::undo(m_editor);
}

void SedGUI::redo()
{
    EditorCommands::redo(m_editor);
}

void SedGUI::cut()
{
    m_editor->cut();
}

void SedGUI::copy()
{
    m_editor->copy();
}

void SedGUI::paste()
{
    m_editor->paste();
}

void SedGUI::clear()
{
    m_editor->removeSelectedText();
}

void SedGUI::selectAll()
{
    m_editor->selectAll(true);
}

void SedGUI::emitEditState(bool force)
{
    DocumentState::EditState state;
    state.undo = m_editor->isUndoAvailable();
    state.redo = m_editor->isRedoAvailable();
    state.copy = m_editor->hasSelectedText();
    state.cut = state.copy && !m_editor->isReadOnly();
    state.paste = clipboardHasText() && !m_editor->isReadOnly();
    state.modified = isModified();

    const DocumentState::EditState shown = m_doc->shown;
    m_doc->shown = state;
    if (force || state.undo != shown.undo)
        emit sigUndoAvailable(state.undo);
    if (force || state.redo != shown.redo)
        emit sigRedoAvailable(state.redo);
    if (force || state.cut != shown.cut)
        emit sigCutAvailable(state.cut);
    if (force || state.copy != shown.copy)
        emit sigCopyAvailable(state.copy);
    if (force || state.paste != shown.paste)
        emit sigPasteAvailable(state.paste);
    if (force || state.modified != shown.modified)
        emit sigModified(state.modified);
    if (force)
        emit sigAlwaysEnabled(true);
}

void SedGUI::updateTitle()
{
    emit sigTitleChange(this);
    if (m_statusStrip)
        m_statusStrip->refresh();
}

void SedGUI::setForcedModified(bool modified)
{
    if (m_doc->forcedModified == modified)
        return;
    m_doc->forcedModified = modified;
    emitEditState(false);
    updateTitle();
}

} // namespace koru::sedgui
