#include "dialogs/infobar.h"
#include "dialogs/userprompt.h"
#include "displayname.h"
#include "editing/indentation.h"
#include "filereader.h"
#include "languagedetector.h"
#include "languages.h"
#include "lexers/editorcolours.h"
#include "lexers/languagelexers.h"
#include "options/editorsettings.h"
#include "posixfile.h"
#include "safesaver.h"
#include "sedgui.h"
#include "templatetree.h"
#include "textfilecodec.h"
#include "tool/binarylock.h"
#include "tool/documentjournal.h"
#include "tool/documentstate.h"
#include "tool/externalchangebatch.h"
#include "tool/othereditornotice.h"

#include <QDir>
#include <QFileInfo>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <cstring>

namespace koru::sedgui {

namespace {

// Above this many bytes on one line, colouring and wrapping would make the
// editor freeze on layout; such documents are shown plain.
constexpr qsizetype HugeLineBytes = 100 * 1024;
// The editing widget lays out a whole line at every paint and keystroke, at
// roughly a microsecond per character or worse: above this, a line is shown
// read-only in display pieces of DisplayPieceBytes.
constexpr qsizetype DisplayOnlyLineBytes = 512 * 1024;
constexpr qsizetype DisplayPieceBytes = 1000;

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

// The length in bytes of the longest line, lines ending at LF, CR or CRLF.
qsizetype longestLine(const QByteArray &text)
{
    if (text.size() <= HugeLineBytes)
        return text.size();
    const char *data = text.constData();
    const char *end = data + text.size();
    qsizetype longest = 0;
    const char *lineStart = data;
    while (lineStart < end) {
        const auto *newline = static_cast<const char *>(
            std::memchr(lineStart, '\n', static_cast<size_t>(end - lineStart)));
        const char *lineEnd = newline ? newline : end;
        if (lineEnd - lineStart > longest) {
            // Only long runs are worth looking into for CR endings.
            const char *pieceStart = lineStart;
            while (pieceStart < lineEnd) {
                const auto *cr = static_cast<const char *>(
                    std::memchr(pieceStart, '\r', static_cast<size_t>(lineEnd - pieceStart)));
                const char *pieceEnd = cr ? cr : lineEnd;
                longest = std::max<qsizetype>(longest, pieceEnd - pieceStart);
                pieceStart = pieceEnd + 1;
            }
        }
        lineStart = lineEnd + 1;
    }
    return longest;
}

// A copy with a line break after every DisplayPieceBytes of a long line, never
// inside a UTF-8 sequence and never next to a real line end.
QByteArray brokenForDisplay(const QByteArray &text)
{
    QByteArray shown;
    shown.reserve(text.size() + text.size() / DisplayPieceBytes + 1);
    const char *data = text.constData();
    const qsizetype size = text.size();
    qsizetype copied = 0;
    qsizetype run = 0;
    for (qsizetype i = 0; i < size; ++i) {
        const char c = data[i];
        if (isLineEnd(c)) {
            run = 0;
            continue;
        }
        if (run >= DisplayPieceBytes && (static_cast<unsigned char>(c) & 0xC0) != 0x80) {
            shown.append(data + copied, i - copied);
            shown.append('\n');
            copied = i;
            run = 0;
        }
        ++run;
    }
    shown.append(data + copied, size - copied);
    return shown;
}

QsciScintilla::EolMode eolMode(LineEnding ending)
{
    switch (ending) {
    case LineEnding::CRLF:
        return QsciScintilla::EolWindows;
    case LineEnding::CR:
        return QsciScintilla::EolMac;
    case LineEnding::LF:
        break;
    }
    return QsciScintilla::EolUnix;
}

QString displayName(const QString &path)
{
    return DisplayName::visible(QDir::toNativeSeparators(path));
}

} // namespace

bool SedGUI::openFile(const QString &path, QString *error)
{
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    if (!PosixFile::exists(absolute)) {
        // A new file: nothing exists on disk until the user saves.
        m_doc->filePath = absolute;
        m_doc->untitledNumber = 0;
        m_doc->diskIdentity = FileIdentity();
        if (!m_doc->languageChosen)
            applyLanguage(LanguageDetector::detect(absolute, {}));
        m_indentation->setFilePath(absolute);
        m_doc->format = m_indentation->formatForNewFile(m_doc->format);
        m_editor->setEolMode(eolMode(m_doc->format.lineEnding));
        m_infoBar->showMessage(tr("%1 does not exist yet; it will be created when you save.")
                                   .arg(displayName(absolute)));
        m_doc->diskNoticeShown = true;
        TemplateTree::Instance()->watchFile(absolute);
        updateTitle();
        emitEditState(true);
        return true;
    }

    // Taken before reading: a change during the read shows up as a difference later.
    const FileIdentity identity = FileIdentity::of(absolute);
    QByteArray bytes;
    QString readError;
    if (!FileReader::read(absolute, &bytes, &readError)) {
        if (error)
            *error = readError;
        return false;
    }
    m_doc->filePath = absolute;
    m_doc->untitledNumber = 0;
    m_doc->diskIdentity = identity;
    m_indentation->setFilePath(absolute);
    loadBytes(bytes, false);
    if (const QString other = OtherEditorNotice::forFile(absolute); !other.isEmpty()) {
        const QString shown = m_infoBar->message();
        m_infoBar->showMessage(shown.isEmpty() ? other : shown + QLatin1Char(' ') + other);
    }
    TemplateTree::Instance()->watchFile(absolute);
    updateTitle();
    emitEditState(true);
    return true;
}

void SedGUI::loadBytes(const QByteArray &bytes, bool keepUndo)
{
    const DecodedText decoded = TextFileCodec::decode(bytes);
    m_doc->format = decoded.format;
    applyDecoded(decoded.utf8, keepUndo);

    QStringList notices;
    if (!decoded.notice.isEmpty())
        notices.append(decoded.notice);
    if (m_doc->displayOnly)
        notices.append(tr("This file has a line too long to edit (%1 KB): it is shown read-only, "
                          "broken into short display lines. Saving writes the file's own lines "
                          "unchanged.")
                           .arg(longestLine(m_doc->displayOnlyText) / 1024));
    else if (m_doc->hugeLines)
        notices.append(tr("This file has very long lines: syntax colouring and line wrapping "
                          "are off to keep editing responsive."));
    m_doc->diskNoticeShown = false;
    if (notices.isEmpty())
        m_infoBar->clearMessage();
    else
        m_infoBar->showMessage(notices.join(QLatin1Char(' ')));
    m_binaryLock->check(decoded.utf8);
}

void SedGUI::applyDecoded(const QByteArray &utf8, bool keepUndo)
{
    const qsizetype longest = longestLine(utf8);
    const bool huge = longest > HugeLineBytes;
    const bool wasHuge = m_doc->hugeLines;
    m_doc->displayOnly = longest > DisplayOnlyLineBytes;
    m_doc->displayOnlyText = m_doc->displayOnly ? utf8 : QByteArray();
    const QByteArray shown = m_doc->displayOnly ? brokenForDisplay(utf8) : utf8;
    m_editor->setReadOnly(false);
    setHugeLines(huge);
    if (wasHuge && !huge)
        applySettings();
    m_editor->setEolMode(eolMode(m_doc->format.lineEnding));

    const auto length = static_cast<unsigned long>(shown.size());
    const bool replaceUndoably = keepUndo && !huge;
    if (!replaceUndoably) {
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 0UL);
        m_editor->SendScintilla(QsciScintillaBase::SCI_CLEARALL);
    }
    // Before the text goes in: a lexer set afterwards would colour the whole
    // document at once instead of what is shown.
    if (!m_doc->languageChosen)
        applyLanguage(huge ? QString() : LanguageDetector::detect(m_doc->filePath, utf8));
    if (replaceUndoably) {
        // One undo step: the user can take the reload back.
        m_editor->SendScintilla(QsciScintillaBase::SCI_BEGINUNDOACTION);
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETTARGETRANGE, 0UL,
                                m_editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
        m_editor->SendScintilla(QsciScintillaBase::SCI_REPLACETARGET, length, shown.constData());
        m_editor->SendScintilla(QsciScintillaBase::SCI_ENDUNDOACTION);
    } else {
        m_editor->SendScintilla(QsciScintillaBase::SCI_ALLOCATE, length + 1);
        // By length: NUL bytes and invalid UTF-8 survive.
        m_editor->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT, length, shown.constData());
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETUNDOCOLLECTION, 1UL);
        m_editor->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        m_editor->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, 0UL);
        // A new text starts at its first column, measured afresh.
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETSCROLLWIDTH, 1UL);
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETXOFFSET, 0UL);
    }
    m_editor->SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
    m_doc->forcedModified = false;
    m_editor->setReadOnly(m_doc->displayOnly);
    m_indentation->detect(utf8);
    emitEditState(false);
    updateTitle();
}

void SedGUI::setHugeLines(bool huge)
{
    m_doc->hugeLines = huge;
    if (huge) {
        m_editor->setLexer(nullptr);
        m_colours->apply();
        m_editor->setWrapMode(QsciScintilla::WrapNone);
        m_editor->setBraceMatching(QsciScintilla::NoBraceMatch);
        m_editor->SendScintilla(QsciScintillaBase::SCI_SETLAYOUTCACHE,
                                QsciScintillaBase::SC_CACHE_CARET);
    }
}

QString SedGUI::languageName() const
{
    return m_doc->language;
}

void SedGUI::setLanguage(const QString &name)
{
    m_doc->languageChosen = true;
    applyLanguage(name);
}

void SedGUI::applyLanguage(const QString &name)
{
    const QString language = m_doc->hugeLines ? QString() : name;
    if (language == m_doc->language && (m_editor->lexer() != nullptr) == !language.isEmpty())
        return;
    QsciLexer *old = m_editor->lexer();
    QsciLexer *lexer = LanguageLexers::create(language, m_editor);
    if (lexer) {
        const QFont font = m_editor->font();
        lexer->setDefaultFont(font);
        lexer->setFont(font);
    }
    m_editor->setLexer(lexer);
    // setLexer(nullptr) forgets the widget's own font; give it back.
    if (!lexer && old)
        m_editor->setFont(old->defaultFont());
    m_colours->apply();
    delete old;
    m_doc->language = lexer ? language : QString();
    m_indentation->setLanguage(m_doc->language);
}

bool SedGUI::save()
{
    if (m_doc->filePath.isEmpty())
        return saveAs();
    const QString &path = m_doc->filePath;
    const FileIdentity now = FileIdentity::of(path);
    if (now.exists && now != m_doc->diskIdentity) {
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Warning;
        question.title = tr("Save");
        question.text = tr("%1 has changed on disk since it was loaded or saved.\n\n"
                           "Overwrite it with your text?")
                            .arg(displayName(path));
        question.buttons = {UserPrompt::Overwrite, UserPrompt::Cancel};
        question.defaultButton = UserPrompt::Cancel;
        question.escapeButton = UserPrompt::Cancel;
        if (UserPrompt::ask(this, question) != UserPrompt::Overwrite)
            return false;
    }
    return saveTo(path);
}

bool SedGUI::saveAs()
{
    QString suggested = m_doc->filePath;
    if (suggested.isEmpty())
        suggested = QDir::current().absoluteFilePath(getTabText().remove(QLatin1Char('*')));
    const QString chosen = UserPrompt::askSaveFileName(this, suggested, Languages::fileFilter());
    if (chosen.isEmpty())
        return false;
    QString why;
    const QString path =
        PosixFile::undoLossyDecoding(QDir::cleanPath(QFileInfo(chosen).absoluteFilePath()), &why);
    if (path.isEmpty()) {
        UserPrompt::tell(this, UserPrompt::Icon::Warning, tr("Save As"), why);
        return false;
    }
    SedGUI *holder = TemplateTree::Instance()->findDocument(path);
    if (holder && holder != this) {
        UserPrompt::tell(this, UserPrompt::Icon::Warning, tr("Save As"),
                         tr("Cannot save as %1: it is open in another tab. Close that tab first.")
                             .arg(displayName(path)));
        return false;
    }
    return saveTo(path);
}

bool SedGUI::saveTo(const QString &path)
{
    const bool renamed = path != m_doc->filePath;
    const TextFormat formatBefore = m_doc->format;
    if (renamed) {
        m_indentation->setFilePath(path);
        // An untitled document becomes a new file: the project's
        // .editorconfig says how that is written.
        if (m_doc->filePath.isEmpty() && !PosixFile::exists(path))
            setTextFormat(m_indentation->formatForNewFile(m_doc->format));
    }
    QString diskError;
    if (!writeFile(path, &diskError)) {
        if (renamed) {
            m_indentation->setFilePath(m_doc->filePath);
            if (m_doc->format != formatBefore)
                setTextFormat(formatBefore);
        }
        if (diskError.isEmpty())
            return false;
        // Whatever went wrong (an immutable file, a read-only folder, a full
        // disk), another place may work: the text is not lost for want of one.
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Critical;
        question.title = tr("Save");
        question.text = tr("%1\n\nSave the document somewhere else?").arg(diskError);
        question.buttons = {UserPrompt::SaveAs, UserPrompt::Cancel};
        question.defaultButton = UserPrompt::SaveAs;
        question.escapeButton = UserPrompt::Cancel;
        return UserPrompt::ask(this, question) == UserPrompt::SaveAs && saveAs();
    }
    m_doc->filePath = path;
    m_doc->untitledNumber = 0;
    m_doc->diskIdentity = FileIdentity::of(path);
    m_editor->SendScintilla(QsciScintillaBase::SCI_SETSAVEPOINT);
    m_doc->forcedModified = false;
    if (renamed && !m_doc->languageChosen && !m_doc->hugeLines) {
        const auto *text = static_cast<const char *>(
            m_editor->SendScintillaPtrResult(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
        applyLanguage(LanguageDetector::detect(
            path, QByteArrayView(text, m_editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH))));
    }
    if (m_doc->diskNoticeShown) {
        m_infoBar->clearMessage();
        m_doc->diskNoticeShown = false;
    }
    // Our own save replaced the inode the old watch was on.
    TemplateTree::Instance()->watchFile(path);
    emitEditState(false);
    updateTitle();
    emit sigFileSaved(path);
    return true;
}

bool SedGUI::writeFile(const QString &path, QString *diskError)
{
    QByteArray utf8;
    if (m_doc->displayOnly) {
        // The editor shows display pieces; the file's own text is kept aside.
        utf8 = m_doc->displayOnlyText;
    } else {
        prepareForSave();
        const auto length =
            static_cast<qsizetype>(m_editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
        const auto *data = static_cast<const char *>(
            m_editor->SendScintillaPtrResult(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
        // No copy of the buffer: it does not change while this function runs.
        utf8 = QByteArray::fromRawData(data, length);
    }

    TextFormat format = m_doc->format;
    QByteArray bytes;
    QString error;
    if (!TextFileCodec::encode(utf8, format, &bytes, &error)) {
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Warning;
        question.title = tr("Save");
        question.text = tr("Cannot save %1 in %2: %3\n\nSave it in UTF-8 instead?")
                            .arg(displayName(path), QString::fromLatin1(format.encoding), error);
        question.buttons = {UserPrompt::SaveAsUtf8, UserPrompt::Cancel};
        question.defaultButton = UserPrompt::Cancel;
        question.escapeButton = UserPrompt::Cancel;
        if (UserPrompt::ask(this, question) != UserPrompt::SaveAsUtf8)
            return false;
        format.encoding = "UTF-8";
        format.bom = false;
        if (!TextFileCodec::encode(utf8, format, &bytes, &error)) {
            UserPrompt::tell(this, UserPrompt::Icon::Critical, tr("Save"), error);
            return false;
        }
    }
    // A save cut short must not lose the text: it is on disk before the file is touched.
    m_journal->writeAndWait();
    if (!SafeSaver::save(path, bytes, &error)) {
        *diskError = error;
        return false;
    }
    m_doc->format = format;
    return true;
}

void SedGUI::saveFile()
{
    save();
}

void SedGUI::saveFileAs()
{
    saveAs();
}

TextFormat SedGUI::textFormat() const
{
    return m_doc->format;
}

void SedGUI::setTextFormat(const TextFormat &format)
{
    if (format == m_doc->format)
        return;
    if (format.lineEnding != m_doc->format.lineEnding) {
        m_editor->setEolMode(eolMode(format.lineEnding));
        if (m_doc->displayOnly)
            m_doc->displayOnlyText =
                TextFileCodec::convertLineEndings(m_doc->displayOnlyText, format.lineEnding);
        else
            m_editor->convertEols(eolMode(format.lineEnding));
    }
    m_doc->format = format;
    setForcedModified(true);
    // The journal records the format; an encoding alone changes no text.
    m_journal->onChanged();
}

bool SedGUI::reloadWithEncoding(const QByteArray &encoding)
{
    if (m_doc->filePath.isEmpty())
        return false;
    const QString &path = m_doc->filePath;
    if (isModified()) {
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Warning;
        question.title = tr("Reopen");
        question.text = tr("Reopening %1 with another encoding replaces your unsaved changes "
                           "(Undo brings them back).\n\nReopen it?")
                            .arg(displayName(path));
        question.buttons = {UserPrompt::Reload, UserPrompt::Cancel};
        question.defaultButton = UserPrompt::Cancel;
        question.escapeButton = UserPrompt::Cancel;
        if (UserPrompt::ask(this, question) != UserPrompt::Reload)
            return false;
    }
    // Reading may fail halfway (a file cut short under us): the text is safe first.
    m_journal->writeNow();
    const FileIdentity identity = FileIdentity::of(path);
    QByteArray bytes;
    QString error;
    DecodedText decoded;
    if (!FileReader::read(path, &bytes, &error) ||
        !TextFileCodec::decodeAs(bytes, encoding, &decoded, &error)) {
        UserPrompt::tell(this, UserPrompt::Icon::Warning, tr("Reopen"), error);
        return false;
    }
    m_doc->format = decoded.format;
    m_doc->diskIdentity = identity;
    applyDecoded(decoded.utf8, true);
    if (decoded.notice.isEmpty())
        m_infoBar->clearMessage();
    else
        m_infoBar->showMessage(decoded.notice);
    return true;
}

bool SedGUI::reloadFromDisk()
{
    const QString &path = m_doc->filePath;
    m_journal->writeNow();
    const FileIdentity identity = FileIdentity::of(path);
    QByteArray bytes;
    QString error;
    if (!FileReader::read(path, &bytes, &error)) {
        UserPrompt::tell(this, UserPrompt::Icon::Warning, tr("Reload"), error);
        return false;
    }
    int line = 0;
    int index = 0;
    m_editor->getCursorPosition(&line, &index);
    const int firstVisible = m_editor->firstVisibleLine();
    m_doc->diskIdentity = identity;
    loadBytes(bytes, true);
    m_editor->setCursorPosition(std::min(line, std::max(m_editor->lines() - 1, 0)), 0);
    m_editor->setFirstVisibleLine(firstVisible);
    return true;
}

bool SedGUI::handleExternalChange()
{
    if (m_doc->filePath.isEmpty() || m_doc->closing)
        return false;
    const QString path = m_doc->filePath;
    const FileIdentity now = FileIdentity::of(path);
    if (now == m_doc->diskIdentity)
        return false;
    const FileIdentity before = m_doc->diskIdentity;
    // Recorded before asking: this on-disk state is never asked about again.
    m_doc->diskIdentity = now;

    if (!now.exists) {
        UserPrompt::Question question;
        question.icon = UserPrompt::Icon::Warning;
        question.title = tr("File Deleted from Disk");
        question.text = tr("%1 was deleted from disk (or moved away).\n\nKeep it in the editor "
                           "(saving writes it there again), or close it?")
                            .arg(displayName(path));
        question.buttons = {UserPrompt::KeepInEditor, UserPrompt::Close};
        question.defaultButton = UserPrompt::KeepInEditor;
        question.escapeButton = UserPrompt::KeepInEditor;
        UserPrompt::Button answer = UserPrompt::KeepInEditor;
        if (!ExternalChangeBatch::answerFor(this, &answer))
            answer = UserPrompt::ask(this, question);
        if (answer == UserPrompt::Close) {
            // After the window's activation is over; a modified text still
            // asks whether to save it.
            QMetaObject::invokeMethod(
                this, [this] { closeTool(false); }, Qt::QueuedConnection);
            return false;
        }
        setForcedModified(true);
        m_infoBar->showMessage(tr("%1 was deleted from disk. Your text is kept; saving writes "
                                  "it there again.")
                                   .arg(displayName(path)));
        m_doc->diskNoticeShown = true;
        return true;
    }

    const bool modified = isModified();
    if (!modified && before.exists && EditorSettings::load().reloadUnmodifiedSilently) {
        reloadFromDisk();
        return true;
    }

    UserPrompt::Question question;
    question.icon = UserPrompt::Icon::Question;
    question.title = tr("File Changed on Disk");
    if (modified)
        question.text = tr("%1 has changed on disk, and you have unsaved changes.\n\n"
                           "Keep your text (saving will overwrite the file), or reload the "
                           "file from disk (Undo brings your text back)?")
                            .arg(displayName(path));
    else
        question.text = tr("%1 has changed on disk.\n\nReload it?").arg(displayName(path));
    question.buttons = {UserPrompt::Keep, UserPrompt::Reload};
    // Neither the default nor Escape loses the user's text.
    question.defaultButton = modified ? UserPrompt::Keep : UserPrompt::Reload;
    question.escapeButton = UserPrompt::Keep;
    // Several files changed at once: the user has answered for all in one list.
    UserPrompt::Button answer = UserPrompt::Keep;
    if (!ExternalChangeBatch::answerFor(this, &answer))
        answer = UserPrompt::ask(this, question);
    if (answer == UserPrompt::Reload) {
        if (!reloadFromDisk())
            setForcedModified(true);
    } else {
        // The buffer no longer matches the file: saving it is a change.
        setForcedModified(true);
        m_infoBar->showMessage(
            tr("%1 has changed on disk; you kept your text.").arg(displayName(path)));
        m_doc->diskNoticeShown = true;
    }
    TemplateTree::Instance()->watchFile(path);
    return true;
}

void SedGUI::noteDiskChange()
{
    if (m_doc->filePath.isEmpty() || m_doc->closing)
        return;
    if (FileIdentity::of(m_doc->filePath) == m_doc->diskIdentity)
        return;
    const QString name = displayName(m_doc->filePath);
    m_infoBar->showMessage(QFileInfo::exists(m_doc->filePath)
                               ? tr("%1 has changed on disk.").arg(name)
                               : tr("%1 was deleted from disk.").arg(name),
                           tr("Review"));
    m_doc->diskNoticeShown = true;
}

} // namespace koru::sedgui
