#include "filescanner.h"

#include <QStringDecoder>

#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Looked at for a NUL byte to tell binary files from text.
constexpr qsizetype BinaryProbeBytes = 8192;
// Files above this size are mapped rather than read into the buffer.
constexpr qsizetype MapThreshold = 16 * 1024 * 1024;
// The read buffer shrinks back to this after a large file.
constexpr size_t KeptBufferBytes = 4 * 1024 * 1024;

enum class Bom { None, Utf8, Utf16LE, Utf16BE, Utf32LE, Utf32BE };

Bom detectBom(const char *data, qsizetype size)
{
    const auto *b = reinterpret_cast<const uchar *>(data);
    if (size >= 4 && b[0] == 0xFF && b[1] == 0xFE && b[2] == 0 && b[3] == 0)
        return Bom::Utf32LE;
    if (size >= 4 && b[0] == 0 && b[1] == 0 && b[2] == 0xFE && b[3] == 0xFF)
        return Bom::Utf32BE;
    if (size >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF)
        return Bom::Utf8;
    if (size >= 2 && b[0] == 0xFF && b[1] == 0xFE)
        return Bom::Utf16LE;
    if (size >= 2 && b[0] == 0xFE && b[1] == 0xFF)
        return Bom::Utf16BE;
    return Bom::None;
}

QByteArray unicodeToUtf8(QByteArrayView bytes, Bom bom)
{
    QStringConverter::Encoding encoding = QStringConverter::Utf16LE;
    switch (bom) {
    case Bom::Utf16BE:
        encoding = QStringConverter::Utf16BE;
        break;
    case Bom::Utf32LE:
        encoding = QStringConverter::Utf32LE;
        break;
    case Bom::Utf32BE:
        encoding = QStringConverter::Utf32BE;
        break;
    default:
        break;
    }
    QStringDecoder decoder(encoding, QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder(bytes);
    return (text.startsWith(QChar(QChar::ByteOrderMark)) ? text.mid(1) : text).toUtf8();
}

} // namespace

FileScanner::FileScanner(const TextMatcher &matcher)
    : m_matcher(matcher)
{}

FileScanner::~FileScanner()
{
    unmap();
}

bool FileScanner::isValidUtf8(const char *data, qsizetype size)
{
    const auto *p = reinterpret_cast<const uchar *>(data);
    const auto *end = p + size;
    while (p < end) {
        // Most source text is ASCII: step over it eight bytes at a time.
        while (end - p >= 8) {
            quint64 word;
            std::memcpy(&word, p, 8);
            if (word & 0x8080808080808080ULL)
                break;
            p += 8;
        }
        if (p >= end)
            break;
        const uchar c = *p;
        if (c < 0x80) {
            ++p;
            continue;
        }
        int length = 0;
        char32_t min = 0;
        char32_t cp = 0;
        if (c >= 0xC2 && c <= 0xDF) {
            length = 2;
            min = 0x80;
            cp = c & 0x1F;
        } else if ((c & 0xF0) == 0xE0) {
            length = 3;
            min = 0x800;
            cp = c & 0x0F;
        } else if (c >= 0xF0 && c <= 0xF4) {
            length = 4;
            min = 0x10000;
            cp = c & 0x07;
        } else {
            return false;
        }
        if (end - p < length)
            return false;
        for (int i = 1; i < length; ++i) {
            if ((p[i] & 0xC0) != 0x80)
                return false;
            cp = (cp << 6) | (p[i] & 0x3F);
        }
        if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        p += length;
    }
    return true;
}

QByteArray FileScanner::legacyToUtf8(QByteArrayView bytes)
{
    // Qt decodes Windows-1252 through ICU; without it Latin-1 is the next best.
    QStringDecoder decoder("windows-1252");
    if (decoder.isValid()) {
        const QString text = decoder.decode(bytes);
        return text.toUtf8();
    }
    return QString::fromLatin1(bytes).toUtf8();
}

void FileScanner::unmap()
{
    if (m_mapped) {
        munmap(m_mapped, size_t(m_mappedSize));
        m_mapped = nullptr;
        m_mappedSize = 0;
    }
}

bool FileScanner::read(int fd, qsizetype sizeHint)
{
    unmap();
    m_data = nullptr;
    m_size = 0;
    if (sizeHint > MapThreshold) {
        void *mapped = mmap(nullptr, size_t(sizeHint), PROT_READ, MAP_PRIVATE, fd, 0);
        if (mapped != MAP_FAILED) {
            madvise(mapped, size_t(sizeHint), MADV_SEQUENTIAL);
            m_mapped = mapped;
            m_mappedSize = sizeHint;
            m_data = static_cast<const char *>(mapped);
            m_size = sizeHint;
            return true;
        }
    }
    if (m_buffer.capacity() > KeptBufferBytes && size_t(sizeHint) < KeptBufferBytes)
        std::vector<char>().swap(m_buffer);
    // Read to the end rather than trusting the size: it may grow, and some files
    // report no size at all.
    size_t capacity = size_t(sizeHint) + 1;
    if (m_buffer.size() < capacity)
        m_buffer.resize(capacity);
    size_t filled = 0;
    for (;;) {
        if (filled == m_buffer.size())
            m_buffer.resize(m_buffer.size() * 2);
        const ssize_t got = ::read(fd, m_buffer.data() + filled, m_buffer.size() - filled);
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (got == 0)
            break;
        filled += size_t(got);
    }
    m_data = m_buffer.data();
    m_size = qsizetype(filled);
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
        return Result::Unreadable;
    struct stat st;
    // Only regular files: a FIFO or a device would block or never end.
    if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        close(fd);
        return Result::Unreadable;
    }
    const bool readOk = read(fd, qsizetype(st.st_size));
    close(fd);
    if (!readOk)
        return Result::Unreadable;

    const char *data = m_data;
    qsizetype size = m_size;
    const Bom bom = detectBom(data, size);
    QByteArray converted;
    if (bom == Bom::Utf8) {
        data += 3;
        size -= 3;
    } else if (bom != Bom::None) {
        converted = unicodeToUtf8(QByteArrayView(data, size), bom);
        data = converted.constData();
        size = converted.size();
    } else if (std::memchr(data, 0, size_t(std::min(size, BinaryProbeBytes)))) {
        return Result::Binary;
    }

    bool decoded = bom != Bom::None;
    if (!decoded && !m_matcher.isEncodingNeutral()) {
        if (!isValidUtf8(data, size)) {
            converted = legacyToUtf8(QByteArrayView(data, size));
            data = converted.constData();
            size = converted.size();
        }
        decoded = true;
    }

    // The raw bytes give the right lines; their text needs the file's real
    // encoding, which is worth checking only once the file has a hit.
    bool legacy = false;
    const TextMatcher::HitSink firstHitChecksEncoding = [&](const TextMatcher::LineHit &hit) {
        if (!decoded) {
            decoded = true;
            legacy = !isValidUtf8(data, size);
            if (legacy)
                return false;
        }
        return sink(hit);
    };
    m_matcher.findLines(QByteArrayView(data, size), firstHitChecksEncoding, cancel);
    if (legacy) {
        converted = legacyToUtf8(QByteArrayView(data, size));
        m_matcher.findLines(QByteArrayView(converted), sink, cancel);
    }
    if (cancel && cancel->load())
        return Result::Cancelled;
    return Result::Searched;
}
