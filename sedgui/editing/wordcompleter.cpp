#include "editing/wordcompleter.h"

#include "editing/completionlist.h"
#include "editing/scintillacalls.h"
#include "languages.h"
#include "sedgui.h"
#include "templatetree.h"

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <algorithm>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

constexpr qsizetype MaxWordLength = 64;
constexpr int MaxOffered = 500;

using scintilla::send;

// Letters of any script (all bytes of multi-byte UTF-8), digits and '_'.
bool isWordByte(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') ||
           (u >= '0' && u <= '9') || u == '_';
}

// The bytes [start, end) of the buffer, read in place.
QByteArrayView rangeOf(QsciScintilla *editor, qint64 start, qint64 end)
{
    // The pointer comes back in the result, which is as wide as a pointer here.
    static_assert(sizeof(long) == sizeof(const char *));
    const auto *data = reinterpret_cast<const char *>(
        editor->SendScintilla(Sci::SCI_GETRANGEPOINTER, static_cast<unsigned long>(start),
                              static_cast<long>(end - start)));
    return data ? QByteArrayView(data, end - start) : QByteArrayView();
}

// The word is worth offering for prefix (any word for an empty prefix).
bool completes(QByteArrayView word, QByteArrayView prefix)
{
    return word.size() > prefix.size() && word.startsWith(prefix);
}

// Calls visit with each word of text that is long enough to be worth
// completing, until it returns false; a word cut by either end of text is left
// out when the text goes on there.
template<typename Visit>
void forEachWord(QByteArrayView text, bool cutAtStart, bool cutAtEnd, Visit visit)
{
    qsizetype i = 0;
    if (cutAtStart) {
        while (i < text.size() && isWordByte(text[i])) {
            ++i;
        }
    }
    while (i < text.size()) {
        while (i < text.size() && !isWordByte(text[i])) {
            ++i;
        }
        const qsizetype start = i;
        while (i < text.size() && isWordByte(text[i])) {
            ++i;
        }
        const qsizetype length = i - start;
        const bool cut = cutAtEnd && i == text.size();
        const bool startsWithDigit = length > 0 && text[start] >= '0' && text[start] <= '9';
        if (!cut && length >= WordCompleter::MinimumPrefix && length <= MaxWordLength &&
            !startsWithDigit && !visit(text.sliced(start, length))) {
            return;
        }
    }
}

} // namespace

WordCompleter::WordCompleter(SedGUI *tool, QObject *parent)
    : QObject(parent)
    , m_tool(tool)
{
    setObjectName(QStringLiteral("WordCompleter"));
    QsciScintilla *editor = tool->editor();
    m_list = new CompletionList(editor);
    m_indexTimer.setInterval(0);
    connect(&m_indexTimer, &QTimer::timeout, this, &WordCompleter::indexSlice);
    connect(editor, &QsciScintillaBase::SCN_CHARADDED, this, &WordCompleter::onCharAdded);
    connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length) {
                onModified(position, type, length);
            });
    // Undo, Redo and Replace All change the text without telling where.
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(0);
    connect(editor, &QsciScintilla::textChanged, this, [this] {
        if (m_indexedTo >= 0) {
            ++m_textChanges;
            m_checkTimer.start();
        }
    });
    connect(&m_checkTimer, &QTimer::timeout, this, [this] {
        if (m_textChanges != m_edits) {
            restartIndexing();
        }
        m_textChanges = m_edits = 0;
    });
}

void WordCompleter::onCharAdded(int ch)
{
    QsciScintilla *editor = m_tool->editor();
    if (ch < 0 || ch > 0xff || !isWordByte(char(ch)) || m_list->isOpen() ||
        send(editor, Sci::SCI_GETSELECTIONS) > 1) {
        return;
    }
    qint64 caret = 0;
    if (prefixAtCaret(&caret).size() >= MinimumPrefix) {
        complete(false);
    }
}

QByteArray WordCompleter::prefixAtCaret(qint64 *caret) const
{
    QsciScintilla *editor = m_tool->editor();
    *caret = send(editor, Sci::SCI_GETCURRENTPOS);
    const qint64 from = std::max<qint64>(0, *caret - MaxWordLength);
    const QByteArrayView before = rangeOf(editor, from, *caret);
    qsizetype start = before.size();
    while (start > 0 && isWordByte(before[start - 1])) {
        --start;
    }
    return before.sliced(start).toByteArray();
}

void WordCompleter::addKeywords(QSet<QByteArray> *words) const
{
    const QString language = m_tool->languageName();
    if (language.isEmpty()) {
        return;
    }
    const QsciLexer *lexer = m_tool->editor()->lexer();
    for (int set = 1; set <= 2; ++set) {
        QByteArray keywords = Languages::keywords(language, set);
        if (keywords.isEmpty() && lexer) {
            keywords = lexer->keywords(set);
        }
        for (const QByteArray &keyword : keywords.split(' ')) {
            if (keyword.size() >= 2) {
                words->insert(keyword);
            }
        }
    }
}

QStringList WordCompleter::candidates(const QByteArray &prefix)
{
    // Only the words that complete the prefix are copied: the indexes of large
    // documents hold many thousands.
    QsciScintilla *editor = m_tool->editor();
    QSet<QByteArray> words;
    const qint64 length = send(editor, Sci::SCI_GETLENGTH);
    const qint64 caret = send(editor, Sci::SCI_GETCURRENTPOS);
    const qint64 from = std::max<qint64>(0, caret - Window);
    const qint64 to = std::min(length, caret + Window);
    forEachWord(rangeOf(editor, from, to), from > 0, to < length, [&](QByteArrayView word) {
        if (completes(word, prefix)) {
            words.insert(word.toByteArray());
        }
        return true;
    });
    QSet<QByteArray> keywords;
    addKeywords(&keywords);
    for (SedGUI *document : TemplateTree::Instance()->documents()) {
        if (auto *other = document->findChild<WordCompleter *>()) {
            other->collect(prefix, other != this, &words);
        }
    }
    QStringList offered;
    for (const QSet<QByteArray> *set : {&words, &keywords}) {
        for (const QByteArray &word : *set) {
            if (completes(word, prefix) && (set == &words || !words.contains(word))) {
                offered.append(QString::fromUtf8(word));
            }
        }
    }
    std::sort(offered.begin(), offered.end());
    if (offered.size() > MaxOffered) {
        offered.resize(MaxOffered);
    }
    return offered;
}

void WordCompleter::collect(const QByteArray &prefix, bool sort, QSet<QByteArray> *words)
{
    startIndexing();
    // The words of the document typed in change at every key: they are read
    // through. Those of the others stay the same while it is typed in: they
    // are kept sorted, so that a prefix finds its words without reading all.
    if (sort && !m_sortedCurrent) {
        m_sorted.clear();
        m_sorted.reserve(m_index.size() + m_previous.size());
        for (const auto *index : {&m_index, &m_previous}) {
            for (auto it = index->keyBegin(); it != index->keyEnd(); ++it) {
                m_sorted.append(*it);
            }
        }
        std::sort(m_sorted.begin(), m_sorted.end());
        m_sorted.erase(std::unique(m_sorted.begin(), m_sorted.end()), m_sorted.end());
        m_sortedCurrent = true;
    }
    if (m_sortedCurrent) {
        for (auto it = std::upper_bound(m_sorted.cbegin(), m_sorted.cend(), prefix);
             it != m_sorted.cend() && it->startsWith(prefix); ++it) {
            words->insert(*it);
        }
        return;
    }
    for (const auto *index : {&m_index, &m_previous}) {
        for (auto it = index->keyBegin(); it != index->keyEnd(); ++it) {
            if (completes(*it, prefix)) {
                words->insert(*it);
            }
        }
    }
}

int WordCompleter::complete(bool explicitly)
{
    qint64 caret = 0;
    const QByteArray prefix = prefixAtCaret(&caret);
    if (!explicitly && prefix.size() < MinimumPrefix) {
        return 0;
    }
    const QStringList offered = candidates(prefix);
    if (offered.isEmpty()) {
        return 0;
    }
    m_list->open(offered, caret - prefix.size());
    if (explicitly && offered.size() == 1) {
        m_list->insert(offered.first());
    }
    return int(offered.size());
}

void WordCompleter::startIndexing()
{
    if (m_indexedTo < 0) {
        m_indexedTo = 0;
        m_indexTimer.start();
    }
}

void WordCompleter::restartIndexing()
{
    if (m_previous.isEmpty()) {
        m_previous = std::move(m_index);
    }
    m_index.clear();
    m_sortedCurrent = false;
    m_indexedTo = 0;
    m_complete = false;
    m_indexTimer.start();
}

void WordCompleter::addWord(QByteArrayView word)
{
    const QByteArray key = word.toByteArray();
    const auto it = m_index.find(key);
    if (it != m_index.end()) {
        ++*it;
    } else if (m_index.size() < MaxIndexedWords) {
        m_index.insert(key, 1);
        m_sortedCurrent = false;
    }
}

void WordCompleter::indexSlice()
{
    QsciScintilla *editor = m_tool->editor();
    const qint64 length = send(editor, Sci::SCI_GETLENGTH);
    const qint64 from = std::min(m_indexedTo, length);
    const qint64 to = std::min(length, from + IndexSlice);
    // A word cut at a slice's end is read whole by the next slice, which
    // starts where this one's last whole word ended.
    const QByteArrayView text = rangeOf(editor, from, to);
    qsizetype end = text.size();
    if (to < length) {
        while (end > 0 && isWordByte(text[end - 1])) {
            --end;
        }
        if (end == 0) {
            end = text.size(); // one enormous "word": step over it
        }
    }
    const bool cutAtStart = from > 0 && isWordByte(rangeOf(editor, from - 1, from)[0]);
    forEachWord(text.first(end), cutAtStart, false, [this](QByteArrayView word) {
        addWord(word);
        return m_index.size() < MaxIndexedWords;
    });
    m_indexedTo = from + end;
    m_complete = m_indexedTo >= length;
    if (m_complete || m_index.size() >= MaxIndexedWords) {
        m_indexTimer.stop();
        m_previous.clear();
        m_sortedCurrent = false;
    }
}

void WordCompleter::onModified(int position, int type, int length)
{
    if (m_indexedTo < 0) {
        return;
    }
    const bool inserted = type & Sci::SC_MOD_INSERTTEXT;
    const bool deleted = type & Sci::SC_MOD_DELETETEXT;
    const bool before = type & (Sci::SC_MOD_BEFOREINSERT | Sci::SC_MOD_BEFOREDELETE);
    if (inserted || deleted) {
        ++m_edits;
    } else if (!before) {
        return;
    }
    if (length > IndexSlice) {
        if (before) {
            restartIndexing();
        }
        return;
    }
    // The words around the place are taken away before the edit and counted
    // again after it; the text beyond them is the same on both sides.
    if (before) {
        const bool deleting = type & Sci::SC_MOD_BEFOREDELETE;
        recount(position, deleting ? position + length : position, -1);
        return;
    }
    if (!m_complete && m_indexedTo > position) {
        m_indexedTo += inserted ? length : -length;
    }
    recount(position, inserted ? position + length : position, 1);
}

void WordCompleter::recount(qint64 from, qint64 to, int sign)
{
    QsciScintilla *editor = m_tool->editor();
    // A word longer than any kept reaches beyond the bytes read and is left
    // out by its length.
    const qint64 reach = MaxWordLength + 2;
    const qint64 base = std::max<qint64>(0, from - reach);
    const QByteArrayView text =
        rangeOf(editor, base, std::min<qint64>(send(editor, Sci::SCI_GETLENGTH), to + reach));
    qint64 start = from - base;
    qint64 end = to - base;
    while (start > 0 && isWordByte(text[start - 1])) {
        --start;
    }
    while (end < text.size() && isWordByte(text[end])) {
        ++end;
    }
    // Only what the index has read is counted; words beyond where it reads
    // are read when it gets there, and a place it has read that reaches
    // beyond is read again.
    if (!m_complete) {
        const qint64 read = m_indexedTo - base;
        if (start >= read) {
            return;
        }
        if (end > read) {
            end = read;
            m_indexedTo = base + start;
        }
    }
    const bool cutAtEnd = end < text.size() && isWordByte(text[end]);
    forEachWord(text.sliced(start, end - start), false, cutAtEnd,
                [this, sign](QByteArrayView word) {
                    if (sign > 0) {
                        addWord(word);
                    } else if (const auto it = m_index.find(word.toByteArray());
                               it != m_index.end() && --*it <= 0) {
                        m_index.erase(it);
                        m_sortedCurrent = false;
                    }
                    return true;
                });
}

} // namespace koru::sedgui
