#include "searchcore.h"

#include "literalfinder.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <algorithm>
#include <pcre2.h>

namespace koru::sedgui {

namespace {

constexpr quint32 FirstFindPreviousWindow = 4096;

struct CompileContextDeleter
{
    void operator()(pcre2_compile_context *context) const { pcre2_compile_context_free(context); }
};

struct MatchDataDeleter
{
    void operator()(pcre2_match_data *data) const { pcre2_match_data_free(data); }
};

// Match data is scratch space for one match at a time. Each thread keeps its
// own, grown to the largest pattern it has run, instead of allocating per call.
pcre2_match_data *threadMatchData(quint32 pairs)
{
    thread_local std::unique_ptr<pcre2_match_data, MatchDataDeleter> data;
    thread_local quint32 capacity = 0;
    if (capacity < pairs) {
        data.reset(pcre2_match_data_create(pairs, nullptr));
        capacity = data ? pairs : 0;
    }
    return data.get();
}

// Every ASCII character that is not a letter or digit is escaped, which makes
// it literal whatever it is; letters, digits and non-ASCII bytes are literal
// as they are. Unlike \Q...\E this survives a "\E" in the text.
QByteArray escapedLiteral(const QByteArray &text)
{
    QByteArray escaped;
    escaped.reserve(text.size() * 2);
    for (const char c : text) {
        const auto byte = uchar(c);
        const bool alphanumeric = (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z') ||
                                  (byte >= 'A' && byte <= 'Z');
        if (byte < 0x80 && !alphanumeric)
            escaped.append('\\');
        escaped.append(c);
    }
    return escaped;
}

// Steps over one character: CRLF counts as one, and so does a UTF-8 sequence.
qsizetype nextCharacter(QByteArrayView text, qsizetype at)
{
    if (at + 1 < text.size() && text[at] == '\r' && text[at + 1] == '\n')
        return at + 2;
    ++at;
    while (at < text.size() && (uchar(text[at]) & 0xC0) == 0x80)
        ++at;
    return at;
}

QString pcreMessage(int errorCode)
{
    PCRE2_UCHAR buffer[256];
    const int length = pcre2_get_error_message(errorCode, buffer, sizeof buffer);
    return length > 0 ? QString::fromUtf8(reinterpret_cast<const char *>(buffer), length)
                      : QStringLiteral("error %1").arg(errorCode);
}

} // namespace

struct SearchCore::Compiled
{
    pcre2_code *code = nullptr;
    quint32 pairs = 1;
    int groups = 1; // the pairs a Match holds
    bool jit = false;
    // A case-sensitive plain text: searched for as bytes, without the engine.
    QByteArray literal;

    ~Compiled() { pcre2_code_free(code); }
};

qsizetype SearchCore::Match::groupBegin(int group) const
{
    return found() && group >= 0 && group < MaxGroups ? m_groups[2 * group] : -1;
}

qsizetype SearchCore::Match::groupEnd(int group) const
{
    return found() && group >= 0 && group < MaxGroups ? m_groups[2 * group + 1] : -1;
}

SearchCore::SearchCore(const QString &pattern, Options options)
    : m_pattern(pattern)
    , m_options(options)
{
    if (!pattern.isEmpty())
        compile();
}

void SearchCore::compile()
{
    std::unique_ptr<pcre2_compile_context, CompileContextDeleter> context(
        pcre2_compile_context_create(nullptr));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_ANYCRLF);
    quint32 options = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_UCP | PCRE2_MULTILINE;
    if (!m_options.testFlag(CaseSensitive))
        options |= PCRE2_CASELESS;

    const QByteArray patternBytes = m_pattern.toUtf8();
    int errorCode = 0;
    PCRE2_SIZE errorOffset = 0;
    const auto compileBytes = [&](const QByteArray &bytes) {
        return pcre2_compile(reinterpret_cast<PCRE2_SPTR>(bytes.constData()), bytes.size(), options,
                             &errorCode, &errorOffset, context.get());
    };

    const bool regex = m_options.testFlag(RegularExpression);
    const QByteArray body = regex ? patternBytes : escapedLiteral(patternBytes);
    pcre2_code *code = compileBytes(body);
    // The pattern alone decides whether it is valid: wrapped for whole words,
    // "a)(b" would pass and a trailing backslash would report the wrong place.
    if (code && m_options.testFlag(WholeWord)) {
        pcre2_code_free(code);
        code = compileBytes("(?<!\\w)(?:" + body + ")(?!\\w)");
    }
    if (!code) {
        m_errorMessage = pcreMessage(errorCode);
        const auto at = qsizetype(std::min<PCRE2_SIZE>(errorOffset, patternBytes.size()));
        m_errorOffset = regex ? QString::fromUtf8(patternBytes.first(at)).size() : 0;
        return;
    }
    auto compiled = std::make_shared<Compiled>();
    compiled->code = code;
    // Without the JIT (a platform it does not support) the interpreter matches alike.
    compiled->jit = pcre2_jit_compile(code, PCRE2_JIT_COMPLETE) == 0;
    quint32 captures = 0;
    pcre2_pattern_info(code, PCRE2_INFO_CAPTURECOUNT, &captures);
    compiled->pairs = captures + 1;
    compiled->groups = int(std::min<quint32>(compiled->pairs, Match::MaxGroups));
    if (!regex && !m_options.testFlag(WholeWord) && m_options.testFlag(CaseSensitive))
        compiled->literal = patternBytes;
    m_compiled = std::move(compiled);
}

QString SearchCore::errorString() const
{
    if (isValid())
        return {};
    return QStringLiteral("The regular expression is not valid: %1 (at character %2).")
        .arg(m_errorMessage)
        .arg(m_errorOffset + 1);
}

SearchCore::Match SearchCore::matchAt(QByteArrayView text, qsizetype from,
                                      quint32 matchOptions) const
{
    if (!m_compiled || from < 0 || from > text.size())
        return {};
    if (const QByteArray &literal = m_compiled->literal; !literal.isEmpty()) {
        // Never empty, so NOTEMPTY_ATSTART changes nothing.
        const qsizetype at = matchOptions & PCRE2_ANCHORED
                                 ? (text.sliced(from).startsWith(literal) ? from : -1)
                                 : LiteralFinder::find(text, from, literal);
        Match match;
        match.m_groups.fill(-1);
        if (at >= 0) {
            match.begin = match.m_groups[0] = at;
            match.end = match.m_groups[1] = at + literal.size();
        }
        return match;
    }
    pcre2_match_data *data = threadMatchData(m_compiled->pairs);
    if (!data)
        return {};
    // An empty view may have no data pointer, which the matcher refuses.
    const char *subject = text.data() ? text.data() : "";
    const auto *bytes = reinterpret_cast<PCRE2_SPTR>(subject);
    // A find in files calls this once per hit, so the checks the JIT needs no
    // repeating are skipped by calling it directly; it takes no ANCHORED.
    const bool jit = m_compiled->jit && !(matchOptions & PCRE2_ANCHORED);
    const int rc =
        jit ? pcre2_jit_match(m_compiled->code, bytes, text.size(), from, matchOptions, data,
                              nullptr)
            : pcre2_match(m_compiled->code, bytes, text.size(), from, matchOptions, data, nullptr);
    // Errors such as the backtracking limit end the search like no match.
    if (rc <= 0)
        return {};

    const PCRE2_SIZE *ovector = pcre2_get_ovector_pointer(data);
    Match match;
    const int groups = m_compiled->groups;
    for (int i = 0; i < 2 * groups; ++i)
        match.m_groups[i] = ovector[i] != PCRE2_UNSET ? qsizetype(ovector[i]) : -1;
    std::fill(match.m_groups.begin() + 2 * groups, match.m_groups.end(), -1);
    match.begin = match.m_groups[0];
    match.end = match.m_groups[1];
    return match;
}

SearchCore::Match SearchCore::find(QByteArrayView text, qsizetype from) const
{
    return matchAt(text, from, 0);
}

SearchCore::Match SearchCore::findAfter(QByteArrayView text, const Match &previous) const
{
    if (!previous.found())
        return find(text, 0);
    if (previous.end > previous.begin)
        return find(text, previous.end);
    // After an empty match only a longer one may start at the same place;
    // failing that, the search moves on by one character (a CRLF is one).
    // Not anchored, so that the JIT takes it: the interpreter checks the
    // UTF-8 of the rest of the text on every call, which made stepping
    // through many empty matches take time in the square of the text's size.
    const qsizetype at = previous.end;
    const Match match = matchAt(text, at, PCRE2_NOTEMPTY_ATSTART);
    const qsizetype next = nextCharacter(text, at);
    if (!match.found() || match.begin == at || match.begin >= next)
        return match;
    return find(text, next);
}

SearchCore::Match SearchCore::findPrevious(QByteArrayView text, qsizetype before) const
{
    before = std::min(before, text.size());
    // Matches are only defined going forwards, so step through them from a
    // window before the offset, widened until it holds one or reaches the start.
    for (qsizetype window = FirstFindPreviousWindow;; window *= 4) {
        qsizetype start = std::max<qsizetype>(0, before - window);
        while (start > 0 && (uchar(text[start]) & 0xC0) == 0x80)
            --start;
        Match last;
        for (Match match = find(text, start); match.found() && match.begin < before;
             match = findAfter(text, match)) {
            last = match;
        }
        if (last.found() || start == 0)
            return last;
    }
}

QByteArray SearchCore::replacement(QByteArrayView text, const Match &match,
                                   QStringView replacementTemplate) const
{
    if (!m_options.testFlag(RegularExpression))
        return replacementTemplate.toUtf8();

    QByteArray result;
    qsizetype literalStart = 0;
    const qsizetype size = replacementTemplate.size();
    for (qsizetype i = 0; i + 1 < size; ++i) {
        const QChar c = replacementTemplate[i];
        if (c != u'\\' && c != u'$')
            continue;
        const QChar next = replacementTemplate[i + 1];
        const bool group = next >= u'0' && next <= u'9';
        if (!group && next != c)
            continue;
        result += replacementTemplate.sliced(literalStart, i - literalStart).toUtf8();
        if (group) {
            const int number = next.unicode() - u'0';
            const qsizetype begin = match.groupBegin(number);
            if (begin >= 0)
                result += text.sliced(begin, match.groupEnd(number) - begin);
        } else {
            result += char(c.unicode());
        }
        ++i;
        literalStart = i + 1;
    }
    result += replacementTemplate.sliced(literalStart).toUtf8();
    return result;
}

QByteArray SearchCore::replaceAll(QByteArrayView text, QStringView replacementTemplate,
                                  qsizetype *count) const
{
    QByteArray result;
    result.reserve(text.size());
    qsizetype copied = 0;
    qsizetype replaced = 0;
    for (Match match = find(text, 0); match.found(); match = findAfter(text, match)) {
        result += text.sliced(copied, match.begin - copied);
        result += replacement(text, match, replacementTemplate);
        copied = match.end;
        ++replaced;
    }
    result += text.sliced(copied);
    if (count)
        *count = replaced;
    return result;
}

} // namespace koru::sedgui
