#include "editing/editoractions.h"

#include "dialogs/userprompt.h"
#include "editing/editorcommands.h"
#include "editing/encodingchoices.h"
#include "editing/indentation.h"
#include "editing/multiselection.h"
#include "editing/wordcompleter.h"
#include "languages.h"
#include "sedgui.h"
#include "standardactions.h"
#include "textfilecodec.h"
#include "textformat.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QShortcut>

#include <Qsci/qscicommand.h>
#include <Qsci/qscicommandset.h>
#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

EditorActions::EditorActions(SedGUI *tool)
    : QObject(tool)
    , m_tool(tool)
{
    setObjectName(QStringLiteral("EditorActions"));
    QsciScintilla *editor = tool->editor();

    // Edit. The shell's catalogue holds Ctrl+Z/Y/X/C/V/A/N/O/W/S/P/Q/F/H/R/G,
    // Ctrl+Shift+S/F, F3 and Del; these keys stay clear of them.
    addAction(m_editActions, QStringLiteral("toggleComment"), tr("Toggle &Comment"),
              QKeySequence(tr("Ctrl+/")));
    addAction(m_editActions, QStringLiteral("duplicateLine"), tr("&Duplicate Line"),
              QKeySequence(tr("Ctrl+Shift+D")));
    addAction(m_editActions, QStringLiteral("moveLineUp"), tr("Move Line &Up"),
              QKeySequence(tr("Alt+Up")));
    addAction(m_editActions, QStringLiteral("moveLineDown"), tr("Move Line Do&wn"),
              QKeySequence(tr("Alt+Down")));
    addSeparator(m_editActions);
    addAction(m_editActions, QStringLiteral("upperCase"), tr("U&pper Case"),
              QKeySequence(tr("Ctrl+Shift+U")));
    addAction(m_editActions, QStringLiteral("lowerCase"), tr("&Lower Case"),
              QKeySequence(tr("Ctrl+U")));
    addSeparator(m_editActions);
    addAction(m_editActions, QStringLiteral("indent"), tr("&Indent"), QKeySequence(tr("Ctrl+]")));
    addAction(m_editActions, QStringLiteral("unindent"), tr("U&nindent"),
              QKeySequence(tr("Ctrl+[")));
    addSeparator(m_editActions);
    addAction(m_editActions, QStringLiteral("findPrevious"), tr("Find Pre&vious"),
              QKeySequence(tr("Shift+F3")));
    addAction(m_editActions, QStringLiteral("goToMatchingBrace"), tr("&Go to Matching Brace"),
              QKeySequence(tr("Ctrl+M")));
    addAction(m_editActions, QStringLiteral("selectToMatchingBrace"),
              tr("Select to Matching &Brace"), QKeySequence(tr("Ctrl+Shift+M")));
    addSeparator(m_editActions);
    addAction(m_editActions, QStringLiteral("addNextOccurrence"), tr("Add Ne&xt Occurrence"),
              QKeySequence(tr("Ctrl+D")));
    addAction(m_editActions, QStringLiteral("selectAllOccurrences"), tr("Select All Occu&rrences"),
              QKeySequence(tr("Ctrl+Shift+L")));
    addAction(m_editActions, QStringLiteral("completeWord"), tr("C&omplete Word"),
              QKeySequence(tr("Ctrl+Space")));

    connect(action(QStringLiteral("toggleComment")), &QAction::triggered, this, [this, editor] {
        EditorCommands::toggleComment(editor, Languages::commentSyntax(m_tool->languageName()));
    });
    connect(action(QStringLiteral("duplicateLine")), &QAction::triggered, this,
            [editor] { EditorCommands::duplicateLines(editor); });
    connect(action(QStringLiteral("moveLineUp")), &QAction::triggered, this,
            [editor] { EditorCommands::moveLinesUp(editor); });
    connect(action(QStringLiteral("moveLineDown")), &QAction::triggered, this,
            [editor] { EditorCommands::moveLinesDown(editor); });
    connect(action(QStringLiteral("upperCase")), &QAction::triggered, this,
            [editor] { EditorCommands::toUpperCase(editor); });
    connect(action(QStringLiteral("lowerCase")), &QAction::triggered, this,
            [editor] { EditorCommands::toLowerCase(editor); });
    connect(action(QStringLiteral("indent")), &QAction::triggered, this,
            [editor] { EditorCommands::indentLines(editor); });
    connect(action(QStringLiteral("unindent")), &QAction::triggered, this,
            [editor] { EditorCommands::unindentLines(editor); });
    connect(action(QStringLiteral("findPrevious")), &QAction::triggered, this,
            [this] { m_tool->findPrevious(); });
    connect(action(QStringLiteral("goToMatchingBrace")), &QAction::triggered, this,
            [editor] { EditorCommands::goToMatchingBrace(editor, false); });
    connect(action(QStringLiteral("selectToMatchingBrace")), &QAction::triggered, this,
            [editor] { EditorCommands::goToMatchingBrace(editor, true); });
    m_multiSelection = new MultiSelection(editor, this);
    connect(action(QStringLiteral("addNextOccurrence")), &QAction::triggered, m_multiSelection,
            &MultiSelection::addNextOccurrence);
    connect(action(QStringLiteral("selectAllOccurrences")), &QAction::triggered, m_multiSelection,
            &MultiSelection::selectAllOccurrences);
    m_completer = new WordCompleter(m_tool, this);
    connect(action(QStringLiteral("completeWord")), &QAction::triggered, m_completer,
            [this] { m_completer->complete(true); });

    // A second Redo key on the editor itself; the shared Redo action is the shell's.
    const QKeySequence redoKey(tr("Ctrl+Shift+Z"));
    auto *redo = new QShortcut(
        redoKey, m_tool, [this] { m_tool->redo(); }, Qt::WidgetWithChildrenShortcut);
    redo->setObjectName(QStringLiteral("redoShortcut"));
    releaseEditorKey(redoKey);

    // View.
    QAction *lineNumbers =
        addAction(m_viewActions, QStringLiteral("lineNumbers"), tr("Line &Numbers"));
    QAction *wordWrap = addAction(m_viewActions, QStringLiteral("wordWrap"), tr("&Word Wrap"),
                                  QKeySequence(tr("Alt+Z")));
    QAction *whitespace =
        addAction(m_viewActions, QStringLiteral("showWhitespace"), tr("Show W&hitespace"));
    QAction *lineEnds =
        addAction(m_viewActions, QStringLiteral("showLineEndings"), tr("Show Line &Endings"));
    for (QAction *checkable : {lineNumbers, wordWrap, whitespace, lineEnds}) {
        checkable->setCheckable(true);
    }
    addSeparator(m_viewActions);
    QAction *zoomIn = addAction(m_viewActions, QStringLiteral("zoomIn"), tr("Zoom &In"),
                                QKeySequence(tr("Ctrl++")));
    zoomIn->setShortcuts({QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))});
    releaseEditorKey(QKeySequence(tr("Ctrl+=")));
    addAction(m_viewActions, QStringLiteral("zoomOut"), tr("Zoom &Out"),
              QKeySequence(tr("Ctrl+-")));
    addAction(m_viewActions, QStringLiteral("zoomReset"), tr("&Reset Zoom"),
              QKeySequence(tr("Ctrl+0")));
    addSeparator(m_viewActions);
    addAction(m_viewActions, QStringLiteral("foldAll"), tr("&Fold All"),
              QKeySequence(tr("Ctrl+Shift+[")));
    addAction(m_viewActions, QStringLiteral("unfoldAll"), tr("&Unfold All"),
              QKeySequence(tr("Ctrl+Shift+]")));
    addSeparator(m_viewActions);
    m_encodingMenu = addSubMenu(m_viewActions, QStringLiteral("encoding"), tr("En&coding"));
    m_lineEndingMenu =
        addSubMenu(m_viewActions, QStringLiteral("lineEndings"), tr("&Line Endings"));
    m_syntaxMenu = addSubMenu(m_viewActions, QStringLiteral("syntax"), tr("&Syntax"));
    m_indentationMenu =
        addSubMenu(m_viewActions, QStringLiteral("indentation"), tr("In&dentation"));

    zoomIn->setIcon(StandardActions::themedIcon(QStringLiteral("zoom-in")));
    action(QStringLiteral("zoomOut"))
        ->setIcon(StandardActions::themedIcon(QStringLiteral("zoom-out")));
    action(QStringLiteral("zoomReset"))
        ->setIcon(StandardActions::themedIcon(QStringLiteral("zoom-original")));

    connect(lineNumbers, &QAction::toggled, this, &EditorActions::setLineNumbersVisible);
    connect(wordWrap, &QAction::toggled, this, [editor](bool on) {
        editor->setWrapMode(on ? QsciScintilla::WrapWord : QsciScintilla::WrapNone);
    });
    connect(whitespace, &QAction::toggled, this, [editor](bool on) {
        editor->setWhitespaceVisibility(on ? QsciScintilla::WsVisible : QsciScintilla::WsInvisible);
    });
    connect(lineEnds, &QAction::toggled, editor, &QsciScintilla::setEolVisibility);
    connect(zoomIn, &QAction::triggered, editor, [editor] { editor->zoomIn(); });
    connect(action(QStringLiteral("zoomOut")), &QAction::triggered, editor,
            [editor] { editor->zoomOut(); });
    connect(action(QStringLiteral("zoomReset")), &QAction::triggered, editor,
            [editor] { editor->zoomTo(0); });
    connect(action(QStringLiteral("foldAll")), &QAction::triggered, editor, [editor] {
        editor->SendScintilla(
            QsciScintillaBase::SCI_FOLDALL,
            static_cast<unsigned long>(QsciScintillaBase::SC_FOLDACTION_CONTRACT));
    });
    connect(action(QStringLiteral("unfoldAll")), &QAction::triggered, editor, [editor] {
        editor->SendScintilla(QsciScintillaBase::SCI_FOLDALL,
                              static_cast<unsigned long>(QsciScintillaBase::SC_FOLDACTION_EXPAND));
    });

    connect(m_encodingMenu, &QMenu::aboutToShow, this, &EditorActions::fillEncodingMenu);
    connect(m_lineEndingMenu, &QMenu::aboutToShow, this, &EditorActions::fillLineEndingMenu);
    connect(m_syntaxMenu, &QMenu::aboutToShow, this, &EditorActions::fillSyntaxMenu);
    connect(m_indentationMenu, &QMenu::aboutToShow, this, &EditorActions::fillIndentationMenu);
    connect(editor, &QsciScintilla::linesChanged, this, [this, editor] {
        if (m_lineNumbers) {
            EditorCommands::fitLineNumberMargin(editor, true);
        }
    });
}

QAction *EditorActions::addAction(QList<QAction *> &list, const QString &name, const QString &text,
                                  const QKeySequence &shortcut)
{
    auto *action = new QAction(text, this);
    action->setObjectName(name);
    if (!shortcut.isEmpty()) {
        action->setShortcut(shortcut);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_tool->addAction(action);
        releaseEditorKey(shortcut);
    }
    list.append(action);
    return action;
}

void EditorActions::releaseEditorKey(const QKeySequence &shortcut)
{
    // The editing widget claims the keys of its own commands before any
    // shortcut sees them (Ctrl+U, Ctrl+[ ...); give ours back to the actions.
    QsciCommandSet *commands = m_tool->editor()->standardCommands();
    for (int i = 0; i < shortcut.count(); ++i) {
        const int key = shortcut[i].toCombined();
        if (QsciCommand *command = commands->boundTo(key)) {
            if (command->key() == key) {
                command->setKey(0);
            }
            if (command->alternateKey() == key) {
                command->setAlternateKey(0);
            }
        }
    }
}

void EditorActions::addSeparator(QList<QAction *> &list)
{
    auto *separator = new QAction(this);
    separator->setSeparator(true);
    list.append(separator);
}

QMenu *EditorActions::addSubMenu(QList<QAction *> &list, const QString &name, const QString &title)
{
    // The menu belongs to the tool, not to the shell's menu, which deletes its
    // own sub-menus every time it is rebuilt.
    auto *menu = new QMenu(title, m_tool);
    menu->setObjectName(name + QStringLiteral("Menu"));
    QAction *action = menu->menuAction();
    action->setObjectName(name);
    list.append(action);
    return menu;
}

QAction *EditorActions::action(const QString &name) const
{
    for (const QList<QAction *> *list : {&m_editActions, &m_viewActions}) {
        for (QAction *action : *list) {
            if (action->objectName() == name) {
                return action;
            }
        }
    }
    return nullptr;
}

QList<QAction *> *EditorActions::menuActions(int menuKind)
{
    syncChecks();
    switch (menuKind) {
    case SedGUI::EditMenu:
        return &m_editActions;
    case SedGUI::ViewMenu:
        return &m_viewActions;
    default:
        return nullptr;
    }
}

void EditorActions::syncChecks()
{
    const QsciScintilla *editor = m_tool->editor();
    const struct
    {
        const char *name;
        bool checked;
    } states[] = {
        {"lineNumbers", m_lineNumbers},
        {"wordWrap", editor->wrapMode() != QsciScintilla::WrapNone},
        {"showWhitespace", editor->whitespaceVisibility() != QsciScintilla::WsInvisible},
        {"showLineEndings", editor->eolVisibility()},
    };
    for (const auto &state : states) {
        QAction *checkable = action(QLatin1String(state.name));
        const QSignalBlocker blocker(checkable);
        checkable->setChecked(state.checked);
    }
    const bool editable = !editor->isReadOnly();
    // Finding, moving and selecting work in a read-only document too.
    static const QStringList readOnlyActions{
        QStringLiteral("findPrevious"), QStringLiteral("goToMatchingBrace"),
        QStringLiteral("selectToMatchingBrace"), QStringLiteral("addNextOccurrence"),
        QStringLiteral("selectAllOccurrences")};
    for (QAction *edit : std::as_const(m_editActions)) {
        edit->setEnabled(editable || readOnlyActions.contains(edit->objectName()));
    }
    action(QStringLiteral("wordWrap"))->setEnabled(!m_tool->hasHugeLines());
}

void EditorActions::setLineNumbersVisible(bool visible)
{
    m_lineNumbers = visible;
    EditorCommands::fitLineNumberMargin(m_tool->editor(), visible);
}

bool EditorActions::saveWithEncoding(const QByteArray &encoding, bool utf8Bom)
{
    TextFormat format = m_tool->textFormat();
    format.encoding = encoding;
    format.bom = encoding.startsWith("UTF-16") || encoding.startsWith("UTF-32") ||
                 (encoding == "UTF-8" && utf8Bom);
    QByteArray bytes;
    QString error;
    if (!TextFileCodec::encode(m_tool->editor()->text().toUtf8(), format, &bytes, &error)) {
        const TextFormat kept = m_tool->textFormat();
        UserPrompt::tell(m_tool, UserPrompt::Icon::Warning, tr("Save with Encoding"),
                         tr("The document cannot be saved in %1: %2\nIt keeps the encoding %3.")
                             .arg(EncodingChoices::label(encoding, format.bom), error,
                                  EncodingChoices::label(kept.encoding, kept.bom)));
        return false;
    }
    m_tool->setTextFormat(format);
    return m_tool->save();
}

void EditorActions::fillEncodingMenu()
{
    // The sub-menus of the last showing go with their actions.
    qDeleteAll(m_encodingMenu->findChildren<QMenu *>(Qt::FindDirectChildrenOnly));
    m_encodingMenu->clear();
    QMenu *reopen = m_encodingMenu->addMenu(tr("&Reopen with Encoding"));
    QMenu *saveWith = m_encodingMenu->addMenu(tr("&Save with Encoding"));
    reopen->setObjectName(QStringLiteral("reopenWithEncodingMenu"));
    saveWith->setObjectName(QStringLiteral("saveWithEncodingMenu"));
    reopen->setEnabled(!m_tool->getFileName().isEmpty());
    // Reopening reads the bytes in an encoding; a BOM is found by itself.
    EncodingChoices::fillMenu(reopen, [this](QAction *action,
                                             const EncodingChoices::Choice &choice) {
        if (choice.bom) {
            delete action;
            return;
        }
        action->setData(choice.encoding);
        connect(action, &QAction::triggered, m_tool, [tool = m_tool, encoding = choice.encoding] {
            tool->reloadWithEncoding(encoding);
        });
    });
    auto *group = new QActionGroup(saveWith);
    const TextFormat current = m_tool->textFormat();
    EncodingChoices::fillMenu(
        saveWith, [&](QAction *action, const EncodingChoices::Choice &choice) {
            action->setData(QByteArray(choice.encoding + (choice.bom ? "+BOM" : "")));
            action->setCheckable(true);
            action->setChecked(EncodingChoices::matches(choice, current));
            group->addAction(action);
            connect(action, &QAction::triggered, this,
                    [this, choice] { saveWithEncoding(choice.encoding, choice.bom); });
        });
}

void EditorActions::fillLineEndingMenu()
{
    m_lineEndingMenu->clear();
    auto *group = new QActionGroup(m_lineEndingMenu);
    const LineEnding current = m_tool->textFormat().lineEnding;
    const struct
    {
        LineEnding ending;
        QString text;
        const char *name;
    } endings[] = {
        {LineEnding::LF, tr("Unix and macOS (LF)"), "lineEndingLF"},
        {LineEnding::CRLF, tr("Windows (CRLF)"), "lineEndingCRLF"},
        {LineEnding::CR, tr("Classic Mac OS (CR)"), "lineEndingCR"},
    };
    for (const auto &entry : endings) {
        QAction *choice = m_lineEndingMenu->addAction(entry.text);
        choice->setObjectName(QLatin1String(entry.name));
        choice->setCheckable(true);
        choice->setChecked(entry.ending == current);
        choice->setEnabled(!m_tool->editor()->isReadOnly());
        group->addAction(choice);
        connect(choice, &QAction::triggered, m_tool, [tool = m_tool, ending = entry.ending] {
            TextFormat format = tool->textFormat();
            format.lineEnding = ending;
            tool->setTextFormat(format);
        });
    }
}

void EditorActions::fillSyntaxMenu()
{
    m_syntaxMenu->clear();
    auto *group = new QActionGroup(m_syntaxMenu);
    const QString current = m_tool->languageName();
    QStringList names = Languages::names();
    names.prepend(QString());
    for (const QString &name : std::as_const(names)) {
        QAction *choice = m_syntaxMenu->addAction(name.isEmpty() ? tr("Plain Text") : name);
        choice->setData(name);
        choice->setCheckable(true);
        choice->setChecked(name == current);
        group->addAction(choice);
        connect(choice, &QAction::triggered, m_tool, [tool = m_tool, name] {
            tool->setLanguage(name);
            tool->applySettings();
        });
    }
}

void EditorActions::fillIndentationMenu()
{
    m_indentationMenu->clear();
    qDeleteAll(m_indentationMenu->findChildren<QActionGroup *>(Qt::FindDirectChildrenOnly));
    auto *indentation = m_tool->findChild<Indentation *>(QString(), Qt::FindDirectChildrenOnly);
    if (!indentation) {
        return;
    }
    const bool tabs = indentation->useTabs();
    const int width = tabs ? indentation->tabWidth() : indentation->indentWidth();
    QAction *source = m_indentationMenu->addAction(indentation->sourceText());
    source->setEnabled(false);
    m_indentationMenu->addSeparator();

    // Tabs or spaces keep the width; a width keeps tabs or spaces.
    auto *styles = new QActionGroup(m_indentationMenu);
    const struct
    {
        bool tabs;
        QString text;
        const char *name;
    } choices[] = {
        {true, tr("Indent with &Tabs"), "indentTabs"},
        {false, tr("Indent with &Spaces"), "indentSpaces"},
    };
    for (const auto &choice : choices) {
        QAction *entry = m_indentationMenu->addAction(choice.text);
        entry->setObjectName(QLatin1String(choice.name));
        entry->setCheckable(true);
        entry->setChecked(choice.tabs == tabs);
        styles->addAction(entry);
        connect(entry, &QAction::triggered, indentation, [indentation, useTabs = choice.tabs] {
            indentation->choose(useTabs,
                                useTabs ? indentation->tabWidth() : indentation->indentWidth());
        });
    }
    m_indentationMenu->addSeparator();
    auto *widths = new QActionGroup(m_indentationMenu);
    for (int columns : {2, 3, 4, 8}) {
        QAction *entry = m_indentationMenu->addAction(tr("Width: %1").arg(columns));
        entry->setObjectName(QStringLiteral("indentWidth%1").arg(columns));
        entry->setCheckable(true);
        entry->setChecked(columns == width);
        widths->addAction(entry);
        connect(entry, &QAction::triggered, indentation,
                [indentation, columns] { indentation->choose(indentation->useTabs(), columns); });
    }
}

} // namespace koru::sedgui
