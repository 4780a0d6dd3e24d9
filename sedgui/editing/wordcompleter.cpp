#include "editing/wordcompleter.h"

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

// Adds the words of text that are long enough to be worth completing and
// start with prefix; a word cut by either end of text is left out when the
// text goes on there.
void collectWords(QByteArrayView text, bool cutAtStart, bool cutAtEnd, QByteArrayView prefix,
                  QSet<QByteArray> *words, qsizetype limit)
{
    qsizetype i = 0;
    if (cutAtStart) {
        while (i < text.size() && isWordByte(text[i])) {
            ++i;
        }
    }
    while (i < text.size() && words->size() < limit) {
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
            !startsWithDigit && completes(text.sliced(start, length), prefix)) {
            words->insert(text.sliced(start, length).toByteArray());
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
    send(editor, Sci::SCI_AUTOCSETORDER, Sci::SC_ORDER_PERFORMSORT);
    send(editor, Sci::SCI_AUTOCSETMAXHEIGHT, 10);
    m_indexTimer.setInterval(0);
    connect(&m_indexTimer, &QTimer::timeout, this, &WordCompleter::indexSlice);
    connect(editor, &QsciScintillaBase::SCN_CHARADDED, this, &WordCompleter::onCharAdded);
}

void WordCompleter::onCharAdded(int ch)
{
    QsciScintilla *editor = m_tool->editor();
    if (ch < 0 || ch > 0xff || !isWordByte(char(ch)) || send(editor, Sci::SCI_AUTOCACTIVE) ||
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
    collectWords(rangeOf(editor, from, to), from > 0, to < length, prefix, &words, MaxIndexedWords);
    QSet<QByteArray> keywords;
    addKeywords(&keywords);
    for (SedGUI *document : TemplateTree::Instance()->documents()) {
        if (auto *other = document->findChild<WordCompleter *>()) {
            other->startIndexing();
            for (const QByteArray &word : std::as_const(other->m_index)) {
                if (completes(word, prefix)) {
                    words.insert(word);
                }
            }
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

int WordCompleter::complete(bool explicitly)
{
    QsciScintilla *editor = m_tool->editor();
    qint64 caret = 0;
    const QByteArray prefix = prefixAtCaret(&caret);
    if (!explicitly && prefix.size() < MinimumPrefix) {
        return 0;
    }
    const QStringList offered = candidates(prefix);
    if (offered.isEmpty()) {
        return 0;
    }
    send(editor, Sci::SCI_AUTOCSETCHOOSESINGLE, explicitly ? 1 : 0);
    const QByteArray list = offered.join(QLatin1Char(' ')).toUtf8();
    editor->SendScintilla(Sci::SCI_AUTOCSHOW, static_cast<uintptr_t>(prefix.size()),
                          list.constData());
    return int(offered.size());
}

void WordCompleter::startIndexing()
{
    if (m_indexedTo < 0) {
        m_indexedTo = 0;
        m_indexTimer.start();
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
    // The buffer may have changed since the last slice: a word cut at the
    // start is not taken in.
    const bool cutAtStart = from > 0 && isWordByte(rangeOf(editor, from - 1, from)[0]);
    collectWords(text.first(end), cutAtStart, false, {}, &m_index, MaxIndexedWords);
    m_indexedTo = from + end;
    if (m_indexedTo >= length || m_index.size() >= MaxIndexedWords) {
        m_indexTimer.stop();
    }
}

} // namespace koru::sedgui
