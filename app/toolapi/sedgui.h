#pragma once

#include "hubguitool.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>

class QsciScintilla;

namespace koru::sedgui {

class BinaryLock;
class ChangeSerial;
class DocumentJournal;
struct DocumentState;
class EditorColours;
class Indentation;
class InfoBar;
class StatusStrip;
class TypingAssist;
struct TextFormat;

// The editor tool: one document in one tab.
//
// Construction is cheap and gives an empty untitled document ("Untitled N");
// openFile() then loads a file into it. The tool registers itself with
// TemplateTree for its whole life and deletes itself (deleteLater) after it
// has emitted sigToolClose.
//
// The class is split by concern over several files: sedgui.cpp (the tool
// contract, editing state and the shared actions), sedgui_file.cpp (loading,
// saving, external changes), sedgui_find.cpp (find, replace, go to),
// sedgui_print.cpp (printing) and sedgui_view.cpp (the tool's own menu
// actions and the settings it applies).
class SEDGUI_EXPORT SedGUI : public HubGUITool
{
    Q_OBJECT

public:
    explicit SedGUI(QWidget *parent = nullptr);
    ~SedGUI() override;

    QString getTitle() const override;
    QString getTabText() const override;
    QString getFileName() const override;
    QList<Connection *> *getConnectionList() override;
    QList<QAction *> *getMenuActions(int menuKind) override;
    void closeTool(bool force) override;
    void activate() override;
    void processArgs(QWidget *mainWindow, QStringList args) override;

    // Loads the file at path into this (empty) document. A path that does not
    // exist binds the document to it, empty and unsaved; nothing is created on
    // disk until the user saves. Returns false with a sentence naming the file
    // and the reason in *error for what cannot be opened (a directory, a FIFO,
    // a device, an unreadable file); the document is then left as it was.
    bool openFile(const QString &path, QString *error);

    // Writes the document to its file; an untitled document asks for a name.
    // Returns true when the text is on disk; on failure the user has been told
    // why and offered Save As, and otherwise the document stays modified.
    bool save();
    // Asks for a file name and writes the document there. Returns false when
    // the user cancelled or the write failed.
    bool saveAs();
    // Writes the document to path and makes it the document's file.
    bool saveTo(const QString &path);

    // True when the text differs from the file on disk (or was never saved).
    bool isModified() const;

    // Encoding, BOM and line ending used when saving. Setting a different
    // format converts the buffer's line endings and marks the document
    // modified, so the next save writes the new format.
    TextFormat textFormat() const;
    void setTextFormat(const TextFormat &format);

    // Reads the file again, decoded with encoding ("reopen with"). A modified
    // document asks first. Returns false when the user declined, the file
    // could not be read or the bytes are not valid in that encoding (the user
    // has been told).
    bool reloadWithEncoding(const QByteArray &encoding);

    // The syntax colouring in use: a name of Languages::names(); empty for
    // plain text. setLanguage with an unknown or empty name turns colouring off.
    QString languageName() const;
    void setLanguage(const QString &name);

    // Moves the caret to a line (1-based) and shows it; out-of-range lines are
    // clamped.
    void goToLine(int line);

    // True while the document holds lines so long that colouring and wrapping
    // are off to keep the editor responsive.
    bool hasHugeLines() const;

    // Asked by TemplateTree::checkFileChanged() for every open document: if the
    // document's file changed outside since it was last asked, deal with the
    // user (reload or keep) and return true; otherwise return false. The same
    // change is reported once only.
    virtual bool handleExternalChange();

    // The selected text, or an empty string; used to pre-fill search fields.
    Q_INVOKABLE virtual QString selectedText() const;

    // The editing widget; never null.
    QsciScintilla *editor() const { return m_editor; }
    // The message strip above the text; never null.
    InfoBar *infoBar() const { return m_infoBar; }

    // Applies the stored editor settings (font, tabs, margins, ...) to this tool.
    void applySettings();

    // Called just before the buffer is encoded for saving (trims trailing
    // whitespace when the user asked for it).
    void prepareForSave();

    // Find in Files: selects length characters (UTF-16 code units) from column
    // (0-based) of line (1-based), with the caret at the match, when file
    // (as the result pane writes names) is this document's file. Returns
    // whether it did; called by name, as Find in Files cannot see this class.
    Q_INVOKABLE bool selectRange(const QString &file, int line, int column, int length);

public Q_SLOTS:
    void saveFile() override;
    void saveFileAs();

    void undo();
    void redo();
    void cut();
    void copy();
    void paste();
    void clear();
    void selectAll();

    void find();
    void findNext();
    void replace();
    void goTo();

    void pageSetup();
    void printPreview();
    void print();

protected:
    void showEvent(QShowEvent *event) override;

Q_SIGNALS:
    // States that drive the shared actions (see getConnectionList()).
    void sigUndoAvailable(bool available);
    void sigRedoAvailable(bool available);
    void sigCutAvailable(bool available);
    void sigCopyAvailable(bool available);
    void sigPasteAvailable(bool available);
    void sigModified(bool modified);
    void sigAlwaysEnabled(bool enabled);

private:
    void emitEditState(bool force);
    void updateTitle();
    void setForcedModified(bool modified);
    void loadBytes(const QByteArray &bytes, bool keepUndo);
    void applyDecoded(const QByteArray &utf8, bool keepUndo);
    bool writeFile(const QString &path, QString *diskError);
    bool reloadFromDisk();
    void applyLanguage(const QString &name);
    void setHugeLines(bool huge);
    void noteDiskChange();

    friend class TemplateTree;

    QsciScintilla *m_editor = nullptr;
    InfoBar *m_infoBar = nullptr;
    // File, format and on-disk state of the document (documentstate.h).
    std::unique_ptr<DocumentState> m_doc;
    QList<Connection *> m_connections;

    // Members of find, print and view (sedgui_find.cpp, sedgui_print.cpp,
    // sedgui_view.cpp) go below this line.

    // Indentation, typing help and the status strip (editing/indentation.h,
    // editing/typingassist.h, dialogs/statusstrip.h).
    Indentation *m_indentation = nullptr;
    TypingAssist *m_typing = nullptr;
    StatusStrip *m_statusStrip = nullptr;
    // Recovery journal (tool/documentjournal.h): keeps the unsaved text on disk.
    friend class DocumentJournal;
    DocumentJournal *m_journal = nullptr;
    // Selection, search and completion: the tool's own Edit actions reach
    // Find Previous through this (sedgui_find.cpp).
    friend class EditorActions;
    void findPrevious();
    // Binary files (tool/binarylock.h): read-only until the user chooses to edit.
    BinaryLock *m_binaryLock = nullptr;
    // Several files changed on disk at once, asked about in one list
    // (tool/externalchangebatch.h).
    friend class ExternalChangeBatch;
    // Colour schemes (lexers/editorcolours.h): the scheme on the text view.
    EditorColours *m_colours = nullptr;
    // Find in Files (tool/sedgui_findinfiles.cpp): called by name, as Find in
    // Files cannot see this class. documentText() gives the buffer as UTF-8
    // ("text"), the file ("file", empty when untitled) and the tab's name
    // without the modified mark ("name"). replaceRanges() takes ascending,
    // non-overlapping [begin, end, replacement] byte ranges of the buffer and
    // applies them all as one undo step; nothing changes when one is invalid.
    // selectSpan() is selectRange() without the file check.
    Q_INVOKABLE QVariantMap documentText() const;
    Q_INVOKABLE bool replaceRanges(const QVariantList &ranges);
    Q_INVOKABLE bool selectSpan(int line, int column, int length);
    // Start-up cost (tool/sedgui_view.cpp): the stored settings are read once
    // for a new document; with newDocument they also give its default
    // encoding and line ending.
    void applySettings(bool newDocument);
    // Replace in files: changeSerial() differs from what documentText() gave
    // ("serial") once the text has changed since (editing/changeserial.h).
    ChangeSerial *m_changeSerial = nullptr;
    Q_INVOKABLE qint64 changeSerial() const;
};

} // namespace koru::sedgui
