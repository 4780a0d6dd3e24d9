#include "filescanner.h"

#include "encodingdetector.h"
#include "linecounter.h"
#include "textfilecodec.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using koru::sedgui::EncodingDetector;
using koru::sedgui::LineCounter;
using koru::sedgui::TextFileCodec;

namespace {

// Looked at for a NUL byte to tell binary files from text.
constexpr qsizetype BinaryProbeBytes = 8192;
// Kept before the cut of a line too long to search whole (at most one read's
// worth): a match that spans the cut and starts in them is still found.
constexpr qsizetype CutContextBytes = 4096;

const char *unicodeBom(const char *data, qsizetype size)
{
    const auto *b = reinterpret_cast<const uchar *>(data);
    if (size >= 4 && b[0] == 0xFF && b[1] == 0xFE && b[2] == 0 && b[3] == 0)
        return "UTF-32LE";
    if (size >= 4 && b[0] == 0 && b[1] == 0 && b[2] == 0xFE && b[3] == 0xFF)
        return "UTF-32BE";
    if (size >= 2 && b[0] == 0xFF && b[1] == 0xFE)
        return "UTF-16LE";
    if (size >= 2 && b[0] == 0xFE && b[1] == 0xFF)
        return "UTF-16BE";
    return nullptr;
}

bool hasUtf8Bom(const char *data, qsizetype size)
{
    return size >= 3 && std::memcmp(data, "\xEF\xBB\xBF", 3) == 0;
}

} // namespace

FileScanner::FileScanner(const TextMatcher &matcher)
    : m_matcher(matcher)
{}

FileScanner::~FileScanner() = default;

bool FileScanner::isValidUtf8(const char *data, qsizetype size)
{
    return TextFileCodec::isValidUtf8(data, size);
}

bool FileScanner::readMore(int fd, const QByteArray &path)
{
    const bool decoding = m_mode == Mode::Decoded;
    std::vector<char> &buffer = decoding ? m_raw : m_text;
    const size_t at = decoding ? 0 : size_t(m_filled);
    // Asking for one byte more than the file still holds finds its end in the
    // same read; asking for far more costs the kernel time for nothing.
    const qsizetype want =
        std::min(std::max<qsizetype>(m_expectedSize - m_bytesRead + 1, 4096), m_readSize);
    if (buffer.size() < at + size_t(want))
        buffer.resize(at + size_t(want));
    qsizetype got = 0;
    while (got < want) {
        const ssize_t n = ::read(fd, buffer.data() + at + got, size_t(want - got));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0) {
            m_eof = true;
            break;
        }
        got += n;
        // A short read that reaches the size the file had is its end: no
        // second read() only to be told so. A file that grew after it is
        // found changed by the size it has when the scan ends.
        if (got < want && m_expectedSize > 0 && m_bytesRead + got >= m_expectedSize) {
            m_eof = true;
            break;
        }
    }
    m_bytesRead += got;
    // A file that grows as it is read (a log being written) is read up to a
    // little past the size it had, so that the scan ends; it is then reported
    // as changed. Files that report no size (kernel files) are read to the end.
    if (m_expectedSize > 0 && m_bytesRead > m_expectedSize)
        m_eof = true;
    if (decoding) {
        const QByteArray utf8 =
            QString(m_decoder.decode(QByteArrayView(m_raw.data(), got))).toUtf8();
        if (m_text.size() < size_t(m_filled + utf8.size()))
            m_text.resize(size_t(m_filled + utf8.size()));
        std::memcpy(m_text.data() + m_filled, utf8.constData(), size_t(utf8.size()));
        m_filled += utf8.size();
    } else {
        m_filled += got;
    }
    if (m_readHook)
        m_readHook(path, m_bytesRead);
    return true;
}

// Replaces the raw bytes of m_text from offset on with their text, decoded in
// the encoding of m_decoder, which goes on decoding what is read after them.
void FileScanner::decodeFrom(qsizetype offset)
{
    const QByteArray utf8 =
        QString(m_decoder.decode(QByteArrayView(m_text.data() + offset, m_filled - offset)))
            .toUtf8();
    if (m_text.size() < size_t(offset + utf8.size()))
        m_text.resize(size_t(offset + utf8.size()));
    std::memcpy(m_text.data() + offset, utf8.constData(), size_t(utf8.size()));
    m_filled = offset + utf8.size();
    m_mode = Mode::Decoded;
}

// Called with the first window in m_text, or with a window found not to be
// UTF-8 (notUtf8). Returns false for a binary file.
bool FileScanner::decideEncoding(bool wholeFile, bool notUtf8)
{
    const char *data = m_text.data();
    const bool firstWindow = m_bytesRead == m_filled && m_line == 1;
    const char *bom = firstWindow ? unicodeBom(data, m_filled) : nullptr;
    const bool nul =
        firstWindow && std::memchr(data, 0, size_t(std::min(m_filled, BinaryProbeBytes)));
    if (firstWindow && !bom && !nul && !notUtf8 && hasUtf8Bom(data, m_filled)) {
        // Searched as bytes whether they are valid or not, as the editor keeps them.
        m_filled -= 3;
        std::memmove(m_text.data(), data + 3, size_t(m_filled));
        m_mode = Mode::Raw;
        m_checkUtf8 = false;
        return true;
    }
    if (firstWindow && !bom && !nul && !notUtf8) {
        // Most files: checked window by window, decoded once one is not UTF-8.
        m_mode = Mode::Raw;
        m_checkUtf8 = true;
        return true;
    }

    QByteArray encoding;
    if (wholeFile && firstWindow) {
        // Exactly as the editor would open it.
        koru::sedgui::DecodedText text =
            TextFileCodec::decode(QByteArray::fromRawData(data, m_filled));
        const bool unicode =
            text.format.encoding.startsWith("UTF-16") || text.format.encoding.startsWith("UTF-32");
        if (nul && (text.rawBytes || !unicode))
            return false;
        m_checkUtf8 = false;
        if (text.rawBytes) {
            m_mode = Mode::Raw;
            return true;
        }
        text.utf8.detach();
        m_filled = text.utf8.size();
        if (m_text.size() < size_t(m_filled))
            m_text.resize(size_t(m_filled));
        std::memcpy(m_text.data(), text.utf8.constData(), size_t(m_filled));
        m_mode = Mode::Decoded;
        return true;
    }
    if (bom) {
        encoding = bom;
    } else if (nul) {
        // UTF-16 without a mark, as the editor would tell from its first block.
        const koru::sedgui::DecodedText probe = TextFileCodec::decode(
            QByteArray::fromRawData(data, std::min(m_filled, BinaryProbeBytes) & ~qsizetype(3)));
        if (probe.rawBytes || !probe.format.encoding.startsWith("UTF-16"))
            return false;
        encoding = probe.format.encoding;
    } else {
        encoding = TextFileCodec::canonicalEncoding(EncodingDetector::detect(
            QByteArray::fromRawData(data, std::min<qsizetype>(m_filled, 1024 * 1024))));
        if (encoding.isEmpty() || encoding == "US-ASCII" || encoding.startsWith("UTF-"))
            encoding = "WINDOWS-1252";
    }
    m_decoder = QStringDecoder(encoding.constData());
    if (!m_decoder.isValid())
        m_decoder = QStringDecoder(QStringConverter::Latin1);
    m_checkUtf8 = false;
    decodeFrom(0);
    return true;
}

// Where the text to search now ends: after the last complete line break, or
// at the end of the file; 0 when more must be read first. A line longer than
// the window may grow to is cut where it stands (*forced).
qsizetype FileScanner::cutPoint(bool *forced) const
{
    *forced = false;
    if (m_eof)
        return m_filled;
    const char *data = m_text.data();
    qsizetype end = m_filled;
    // A CR at the very end may be the first half of a CRLF.
    if (end > 0 && data[end - 1] == '\r')
        --end;
    const void *lf = memrchr(data, '\n', size_t(end));
    const qsizetype afterLf = lf ? static_cast<const char *>(lf) - data + 1 : 0;
    const void *cr = memrchr(data + afterLf, '\r', size_t(end - afterLf));
    const qsizetype cut = cr ? static_cast<const char *>(cr) - data + 1 : afterLf;
    if (cut > 0)
        return cut;
    if (m_filled >= 4 * m_readSize) {
        *forced = true;
        return m_filled;
    }
    return 0;
}

bool FileScanner::searchWindow(qsizetype cut, bool forced, const TextMatcher::HitSink &sink,
                               const std::atomic<bool> *cancel)
{
    if (m_mode == Mode::Raw && m_checkUtf8 && !m_matcher.isEncodingNeutral() &&
        !isValidUtf8(m_text.data(), cut)) {
        decideEncoding(m_eof, true);
        cut = cutPoint(&forced);
        if (cut == 0)
            return true; // the decoded text needs more to end a line
    }

    qsizetype from = m_searchFrom;
    if (m_lineHasHit) {
        // The rest of a cut line that already gave its hit.
        const char *data = m_text.data();
        const char *lf =
            static_cast<const char *>(std::memchr(data + from, '\n', size_t(cut - from)));
        const char *stop = lf ? lf : data + cut;
        const char *cr =
            static_cast<const char *>(std::memchr(data + from, '\r', size_t(stop - (data + from))));
        const char *lineBreak = cr ? cr : lf;
        if (lineBreak) {
            from = lineBreak - data + 1;
            m_lineHasHit = false;
        } else {
            from = cut;
        }
    }

    const QByteArrayView text(m_text.data(), cut);
    qint64 lastHitLine = 0;
    bool notUtf8 = false;
    bool checked = !(m_mode == Mode::Raw && m_checkUtf8);
    const TextMatcher::HitSink onHit = [&](const TextMatcher::LineHit &hit) {
        if (!checked) {
            // The raw bytes gave the line; its text needs the file's real encoding.
            checked = true;
            notUtf8 = !isValidUtf8(text.data(), text.size());
            if (notUtf8)
                return false;
        }
        lastHitLine = hit.line;
        return sink(hit);
    };
    bool complete = from >= cut || m_matcher.findLines(text, onHit, cancel, from, m_line);
    if (notUtf8) {
        decideEncoding(m_eof, true);
        cut = cutPoint(&forced);
        if (cut == 0)
            return true;
        complete = m_matcher.findLines(QByteArrayView(m_text.data(), cut), onHit, cancel,
                                       m_searchFrom, m_line);
    }
    if (!complete)
        return false;

    if (forced) {
        // One long line: no line break in the window, so the line number stays.
        m_lineHasHit = m_lineHasHit || lastHitLine == m_line;
        const qsizetype keep = std::min({CutContextBytes, m_readSize, cut});
        std::memmove(m_text.data(), m_text.data() + cut - keep, size_t(keep));
        m_filled = keep;
        // One byte of context before the search start: ^ never matches at a cut.
        m_searchFrom = std::min<qsizetype>(1, keep);
        return true;
    }
    if (m_eof)
        return true; // nothing follows that needs the line number
    LineCounter lines(QByteArrayView(m_text.data(), cut));
    m_line += lines.lineAt(cut) - 1;
    std::memmove(m_text.data(), m_text.data() + cut, size_t(m_filled - cut));
    m_filled -= cut;
    m_searchFrom = 0;
    return true;
}

FileScanner::Result FileScanner::scan(const QByteArray &path, QList<TextMatcher::LineHit> &hits,
                                      const std::atomic<bool> *cancel)
{
    hits.clear();
    return scan(
        path,
        [&hits](const TextMatcher::LineHit &hit) {
            hits.append(hit);
            return true;
        },
        cancel);
}

FileScanner::Result FileScanner::scan(const QByteArray &path, const TextMatcher::HitSink &sink,
                                      const std::atomic<bool> *cancel)
{
    const int fd = open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return errno == ENOENT ? Result::Deleted : Result::Unreadable;
    struct stat before;
    // Only regular files: a FIFO or a device would block or never end.
    if (fstat(fd, &before) != 0 || !S_ISREG(before.st_mode)) {
        close(fd);
        return Result::Unreadable;
    }

    // A very long line may have grown the buffer: give that back.
    if (m_text.size() > size_t(2 * m_readSize))
        std::vector<char>().swap(m_text);
    m_filled = 0;
    m_mode = Mode::Undecided;
    m_checkUtf8 = true;
    m_bytesRead = 0;
    m_expectedSize = before.st_size;
    m_line = 1;
    m_searchFrom = 0;
    m_lineHasHit = false;
    m_eof = false;

    Result result = Result::Searched;
    while (result == Result::Searched) {
        if (cancel && cancel->load(std::memory_order_relaxed)) {
            result = Result::Cancelled;
            break;
        }
        if (!readMore(fd, path)) {
            result = Result::Unreadable;
            break;
        }
        if (m_mode == Mode::Undecided && !decideEncoding(m_eof, false)) {
            result = Result::Binary;
            break;
        }
        bool forced = false;
        const qsizetype cut = cutPoint(&forced);
        if (cut > 0 && !searchWindow(cut, forced, sink, cancel))
            result = Result::Cancelled;
        else if (m_eof)
            break;
    }

    struct stat after;
    if (result == Result::Searched && fstat(fd, &after) == 0) {
        if (after.st_nlink == 0)
            result = Result::Deleted;
        else if (m_bytesRead != before.st_size || after.st_size != before.st_size)
            result = Result::Changed;
    }
    close(fd);
    return result;
}
