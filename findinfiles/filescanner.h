#pragma once

#include "textmatcher.h"

#include <QByteArray>
#include <QList>
#include <QStringDecoder>

#include <atomic>
#include <functional>
#include <vector>

// Reads one file at a time, once, with read() in windows of at most ReadBytes
// into buffers that are kept from file to file, and hands its text to the
// matcher. Nothing is mapped: a file that another program shortens, lengthens
// or deletes while it is read ends its scan with Changed or Deleted, never with
// a fault.
//
// A window is searched up to its last line break; the partial line after it is
// carried into the next window, so a match is never split. A line too long for
// MaxLineBytes is cut, keeping a few bytes before the cut for context; memory
// stays bounded whatever the file holds.
//
// Text is decoded as the editor decodes it: a byte order mark, else strict
// UTF-8, else the encoding that detection finds (UTF-16 without a mark
// included). A file larger than one window is decoded as its first window
// that is not UTF-8 suggests. A file with a NUL byte in its first block that does not decode as
// UTF-16 or UTF-32 is binary and skipped.
class FileScanner
{
public:
    enum class Result { Searched, Binary, Unreadable, Cancelled, Changed, Deleted };

    // Bytes asked of one read(): small enough that the window is still in the
    // processor's cache when it is searched (16 MB windows cost 15-20% more
    // time on a large file), large enough that the calls themselves cost little.
    static constexpr qsizetype ReadBytes = 1024 * 1024;

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

    // For tests: the bytes asked of one read() (a line longer than four times
    // that is searched in parts), and a call after each read with the bytes of
    // the file read so far.
    using ReadHook = std::function<void(const QByteArray &path, qint64 bytesRead)>;
    void setReadSize(qsizetype bytes) { m_readSize = bytes; }
    void setReadHook(ReadHook hook) { m_readHook = std::move(hook); }

    static bool isValidUtf8(const char *data, qsizetype size);

private:
    enum class Mode { Undecided, Raw, Decoded };

    bool readMore(int fd, const QByteArray &path);
    bool decideEncoding(bool wholeFile, bool notUtf8);
    void decodeFrom(qsizetype offset);
    qsizetype cutPoint(bool *forced) const;
    bool searchWindow(qsizetype cut, bool forced, const TextMatcher::HitSink &sink,
                      const std::atomic<bool> *cancel);

    const TextMatcher &m_matcher;
    qsizetype m_readSize = ReadBytes;
    ReadHook m_readHook;

    // The text being searched: the carried partial line, then new text.
    std::vector<char> m_text;
    qsizetype m_filled = 0;
    // Raw bytes read for a decoded file.
    std::vector<char> m_raw;
    // Per file.
    Mode m_mode = Mode::Undecided;
    QStringDecoder m_decoder;
    qint64 m_bytesRead = 0;
    qint64 m_expectedSize = 0; // when it was opened
    qint64 m_line = 1;         // of m_text[0]
    qsizetype m_searchFrom = 0;
    bool m_lineHasHit = false; // the line cut at the end of the last window
    bool m_checkUtf8 = true;   // raw windows are checked and decoded when not UTF-8
    bool m_eof = false;
};
