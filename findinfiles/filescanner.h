#pragma once

#include "textmatcher.h"

#include <QByteArray>
#include <QList>

#include <atomic>
#include <vector>

// Reads one file at a time, once, and hands its text to the matcher. A file with a
// NUL byte in its first block is binary and skipped, unless a UTF-16 or UTF-32 byte
// order mark says otherwise. Text that is not valid UTF-8 is decoded as the legacy
// 8-bit encoding (Windows-1252) before its hits are reported, as the editor would
// show it.
class FileScanner
{
public:
    enum class Result { Searched, Binary, Unreadable, Cancelled };

    explicit FileScanner(const TextMatcher &matcher);
    ~FileScanner();
    FileScanner(const FileScanner &) = delete;
    FileScanner &operator=(const FileScanner &) = delete;

    // Hands the matching lines of the file at path (local 8-bit bytes) to sink,
    // one at a time, so that a file with millions of hits is never held whole.
    Result scan(const QByteArray &path, const TextMatcher::HitSink &sink,
                const std::atomic<bool> *cancel = nullptr);
    // Replaces hits with the matching lines of the file.
    Result scan(const QByteArray &path, QList<TextMatcher::LineHit> &hits,
                const std::atomic<bool> *cancel = nullptr);

    static bool isValidUtf8(const char *data, qsizetype size);
    // The bytes of a file that is not UTF-8, decoded and written out as UTF-8.
    static QByteArray legacyToUtf8(QByteArrayView bytes);

private:
    bool read(int fd, qsizetype sizeHint);
    void unmap();

    const TextMatcher &m_matcher;
    std::vector<char> m_buffer;
    const char *m_data = nullptr;
    qsizetype m_size = 0;
    void *m_mapped = nullptr;
    qsizetype m_mappedSize = 0;
};
