#include "textfilecodec.h"

#include "encodingdetector.h"
#include "iconvcodec.h"
#include "unicodetranscoder.h"

#include <QCoreApplication>
#include <QHash>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace koru::sedgui {

namespace {

struct Bom
{
    const char *encoding;
    const char *bytes;
    int size;
};

// UTF-32LE before UTF-16LE: its mark begins with UTF-16LE's.
constexpr Bom Boms[] = {
    {"UTF-8", "\xEF\xBB\xBF", 3},        {"UTF-32LE", "\xFF\xFE\x00\x00", 4},
    {"UTF-32BE", "\x00\x00\xFE\xFF", 4}, {"UTF-16LE", "\xFF\xFE", 2},
    {"UTF-16BE", "\xFE\xFF", 2},
};

QString tr(const char *text)
{
    return QCoreApplication::translate("koru::sedgui::TextFileCodec", text);
}

const Bom *bomOf(const QByteArray &encoding)
{
    for (const Bom &bom : Boms) {
        if (encoding == bom.encoding)
            return &bom;
    }
    return nullptr;
}

bool isUnicodeForm(const QByteArray &encoding)
{
    return bomOf(encoding) != nullptr;
}

bool startsWith(const QByteArray &bytes, const Bom &bom)
{
    return bytes.size() >= bom.size && std::memcmp(bytes.constData(), bom.bytes, bom.size) == 0;
}

// Decodes bytes from offset `skip` (past a BOM) in one of the Unicode forms.
bool decodeUnicode(const QByteArray &bytes, qsizetype skip, const QByteArray &encoding,
                   QByteArray *utf8)
{
    const char *data = bytes.constData() + skip;
    const qsizetype size = bytes.size() - skip;
    if (encoding == "UTF-8") {
        if (UnicodeTranscoder::firstInvalidUtf8(data, size) >= 0)
            return false;
        // Without a BOM the file's buffer is shared, not copied.
        *utf8 = skip == 0 ? bytes : QByteArray(data, size);
        return true;
    }
    const bool bigEndian = encoding.endsWith("BE");
    if (encoding.startsWith("UTF-16"))
        return UnicodeTranscoder::utf16ToUtf8(data, size, bigEndian, utf8);
    return UnicodeTranscoder::utf32ToUtf8(data, size, bigEndian, utf8);
}

// Line number (1-based) of a byte offset; CRLF, LF and a lone CR each end a line.
qsizetype lineOfOffset(const QByteArray &utf8, qsizetype offset)
{
    qsizetype line = 1;
    const char *data = utf8.constData();
    for (qsizetype i = 0; i < offset; ++i) {
        if (data[i] == '\n' || (data[i] == '\r' && (i + 1 >= utf8.size() || data[i + 1] != '\n')))
            ++line;
    }
    return line;
}

// "'€' on line 3 cannot be saved in ISO-8859-1." A character with no glyph
// is named by its code point, a byte that is not UTF-8 by its value.
QString unencodableMessage(const QByteArray &utf8, qsizetype offset, const QByteArray &encoding)
{
    const int length =
        UnicodeTranscoder::utf8SequenceLength(utf8.constData() + offset, utf8.size() - offset);
    const qsizetype line = lineOfOffset(utf8, offset);
    if (length == 0) {
        return tr("The byte 0x%1 on line %2 is not valid UTF-8 and cannot be saved in %3.")
            .arg(QString::number(static_cast<unsigned char>(utf8.at(offset)), 16).toUpper())
            .arg(line)
            .arg(QLatin1String(encoding));
    }
    const QString character = QString::fromUtf8(utf8.constData() + offset, length);
    const char32_t cp = character.toUcs4().value(0);
    const QChar::Category category = QChar::category(cp);
    const bool visible = category != QChar::Other_Control && category != QChar::Other_Format &&
                         category != QChar::Separator_Space && category != QChar::Other_NotAssigned;
    const QString name =
        visible ? u'\'' + character + u'\''
                : QStringLiteral("U+%1").arg(uint(cp), 4, 16, QLatin1Char('0')).toUpper();
    return tr("%1 on line %2 cannot be saved in %3.")
        .arg(name)
        .arg(line)
        .arg(QLatin1String(encoding));
}

// Where two byte strings first differ, or -1.
qsizetype firstDifference(const QByteArray &a, const QByteArray &b)
{
    const qsizetype common = qMin(a.size(), b.size());
    for (qsizetype i = 0; i < common; ++i) {
        if (a.at(i) != b.at(i))
            return i;
    }
    return a.size() == b.size() ? -1 : common;
}

// Start of the UTF-8 character that contains the byte at offset.
qsizetype characterStart(const QByteArray &utf8, qsizetype offset)
{
    while (offset > 0 && (static_cast<unsigned char>(utf8.at(offset)) & 0xC0) == 0x80)
        --offset;
    return offset;
}

struct LineEndingCounts
{
    qsizetype lf = 0;
    qsizetype cr = 0;
    qsizetype crlf = 0;
};

const char *findByte(const char *p, const char *end, char byte)
{
    const void *found = std::memchr(p, byte, size_t(end - p));
    return found ? static_cast<const char *>(found) : end;
}

// Counts a byte value eight bytes at a time: in each word, the bytes equal
// to it become 1 and the rest 0 (exactly: no carries cross bytes). Up to 255
// words are summed per byte lane, then the lanes are added up.
// CR, rare, is left to memchr.
qsizetype countByte(const char *p, const char *end, char byte)
{
    constexpr std::uint64_t Low7 = 0x7F7F7F7F7F7F7F7FULL;
    constexpr std::uint64_t Ones = 0x0101010101010101ULL;
    const std::uint64_t pattern = Ones * static_cast<unsigned char>(byte);
    qsizetype count = 0;
    while (end - p >= 8) {
        std::uint64_t lanes = 0;
        for (int n = 0; n < 255 && end - p >= 8; ++n, p += 8) {
            std::uint64_t word;
            std::memcpy(&word, p, 8);
            const std::uint64_t x = word ^ pattern;
            const std::uint64_t nonZero = ((x & Low7) + Low7) | x;
            lanes += (~nonZero >> 7) & Ones;
        }
        constexpr std::uint64_t EvenBytes = 0x00FF00FF00FF00FFULL;
        const std::uint64_t pairs = (lanes & EvenBytes) + ((lanes >> 8) & EvenBytes);
        count += qsizetype((pairs * 0x0001000100010001ULL) >> 48);
    }
    return count + std::count(p, end, byte);
}

LineEndingCounts countLineEndings(const QByteArray &bytes)
{
    const char *data = bytes.constData();
    const char *end = data + bytes.size();
    const qsizetype allLf = countByte(data, end, '\n');
    qsizetype allCr = 0;
    qsizetype crlf = 0;
    for (const char *p = findByte(data, end, '\r'); p < end; p = findByte(p + 1, end, '\r')) {
        ++allCr;
        if (p + 1 < end && p[1] == '\n')
            ++crlf;
    }
    return {allLf - crlf, allCr - crlf, crlf};
}

// UTF-16 without a BOM: text in a Latin or Cyrillic script has a zero byte
// in nearly every unit, always on the same side, and no unit that is all
// zero. Only the start is looked at; decoding all of it decides.
bool looksLikeUtf16(const QByteArray &bytes, QByteArray *encoding)
{
    const qsizetype sample = qMin<qsizetype>(bytes.size(), 64 * 1024) & ~qsizetype(1);
    const char *data = bytes.constData();
    if (sample < 2 || bytes.size() % 2 != 0 ||
        std::find(data, data + sample, '\0') == data + sample)
        return false;
    qsizetype zeroEven = 0;
    qsizetype zeroOdd = 0;
    for (qsizetype i = 0; i < sample; i += 2) {
        const bool even = data[i] == 0;
        const bool odd = data[i + 1] == 0;
        if (even && odd)
            return false;
        zeroEven += even;
        zeroOdd += odd;
    }
    const qsizetype units = sample / 2;
    if (zeroOdd * 2 >= units && zeroEven * 20 < units)
        *encoding = "UTF-16LE";
    else if (zeroEven * 2 >= units && zeroOdd * 20 < units)
        *encoding = "UTF-16BE";
    else
        return false;
    return true;
}

bool hasC1Bytes(const QByteArray &bytes)
{
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80 && byte <= 0x9F)
            return true;
    }
    return false;
}

void finish(DecodedText *text)
{
    text->format.lineEnding = TextFileCodec::detectLineEnding(text->utf8, &text->mixedLineEndings);
}

DecodedText rawText(const QByteArray &bytes, const QString &notice)
{
    DecodedText text;
    text.utf8 = bytes;
    text.rawBytes = true;
    text.notice = notice;
    finish(&text);
    return text;
}

} // namespace

bool TextFileCodec::isValidUtf8(const char *data, qsizetype size)
{
    return UnicodeTranscoder::firstInvalidUtf8(data, size) < 0;
}

DecodedText TextFileCodec::decode(const QByteArray &bytes)
{
    for (const Bom &bom : Boms) {
        if (!startsWith(bytes, bom))
            continue;
        DecodedText text;
        if (decodeUnicode(bytes, bom.size, bom.encoding, &text.utf8)) {
            text.format.encoding = bom.encoding;
            text.format.bom = true;
            finish(&text);
            return text;
        }
        // "\xFF\xFE\0\0" may also be UTF-16LE text starting with U+0000.
        if (std::strcmp(bom.encoding, "UTF-32LE") == 0)
            continue;
        if (std::strcmp(bom.encoding, "UTF-8") == 0) {
            // Damaged UTF-8: the mark stays a mark, the rest stays bytes.
            DecodedText raw = rawText(bytes.sliced(bom.size),
                                      tr("Not valid UTF-8: the bytes are kept as they are."));
            raw.format.bom = true;
            return raw;
        }
        return rawText(bytes, tr("The file starts with a %1 byte order mark but is not valid "
                                 "%1: the bytes are kept as they are.")
                                  .arg(QLatin1String(bom.encoding)));
    }

    QByteArray utf16Encoding;
    if (looksLikeUtf16(bytes, &utf16Encoding)) {
        DecodedText text;
        if (decodeUnicode(bytes, 0, utf16Encoding, &text.utf8)) {
            text.format.encoding = utf16Encoding;
            text.notice = tr("No byte order mark: opened as %1.").arg(QLatin1String(utf16Encoding));
            finish(&text);
            return text;
        }
    }

    if (isValidUtf8(bytes.constData(), bytes.size())) {
        DecodedText text;
        text.utf8 = bytes;
        finish(&text);
        return text;
    }

    const QString rawNotice = tr("Not valid UTF-8: the bytes are kept as they are.");
    // NULs mean binary data, and mostly well-formed UTF-8 with a few bad
    // bytes is a damaged UTF-8 file: in both, a legacy decoding would show
    // nonsense where the user expects what is there.
    if (std::memchr(bytes.constData(), 0, size_t(bytes.size())))
        return rawText(bytes, rawNotice);
    qsizetype multiByte = 0;
    qsizetype invalid = 0;
    UnicodeTranscoder::countUtf8(bytes.constData(), bytes.size(), &multiByte, &invalid);
    if (multiByte > invalid)
        return rawText(bytes, rawNotice);

    QByteArray encoding = canonicalEncoding(EncodingDetector::detect(bytes));
    // Text in ISO-8859-1 has no C1 control codes; bytes 0x80-0x9F mean the
    // Windows superset, or no text at all.
    if (encoding.isEmpty() || isUnicodeForm(encoding) || encoding == "US-ASCII" ||
        (encoding == "ISO-8859-1" && hasC1Bytes(bytes)))
        encoding = "WINDOWS-1252";
    DecodedText text;
    if (!IconvCodec::toUtf8Reversibly(bytes, encoding, &text.utf8))
        return rawText(bytes, rawNotice);
    text.format.encoding = encoding;
    text.notice = tr("Not valid UTF-8: opened as %1.").arg(QLatin1String(encoding));
    finish(&text);
    return text;
}

bool TextFileCodec::decodeAs(const QByteArray &bytes, const QByteArray &encoding, DecodedText *out,
                             QString *error)
{
    const QByteArray name = canonicalEncoding(encoding);
    if (name.isEmpty()) {
        *error = tr("Unknown encoding: %1").arg(QString::fromLatin1(encoding));
        return false;
    }
    DecodedText text;
    text.format.encoding = name;
    bool ok;
    if (const Bom *bom = bomOf(name)) {
        text.format.bom = startsWith(bytes, *bom);
        const int skip = text.format.bom ? bom->size : 0;
        ok = decodeUnicode(bytes, skip, name, &text.utf8);
    } else {
        ok = IconvCodec::toUtf8Reversibly(bytes, name, &text.utf8);
    }
    if (!ok) {
        *error = tr("The file is not valid %1: it was left as it is.").arg(QLatin1String(name));
        return false;
    }
    finish(&text);
    *out = std::move(text);
    return true;
}

bool TextFileCodec::encode(const QByteArray &utf8, const TextFormat &format, QByteArray *out,
                           QString *error)
{
    const QByteArray name = canonicalEncoding(format.encoding);
    if (name.isEmpty()) {
        *error = tr("Unknown encoding: %1").arg(QString::fromLatin1(format.encoding));
        return false;
    }
    if (name == "UTF-8") {
        // Byte for byte, including bytes that are not UTF-8: they were loaded
        // that way and are saved that way.
        *out = format.bom ? QByteArray(Boms[0].bytes, Boms[0].size) + utf8 : utf8;
        return true;
    }
    if (const Bom *bom = bomOf(name)) {
        QByteArray bytes;
        if (format.bom)
            bytes.append(bom->bytes, bom->size);
        const bool bigEndian = name.endsWith("BE");
        const qsizetype bad = name.startsWith("UTF-16")
                                  ? UnicodeTranscoder::utf8ToUtf16(utf8, bigEndian, &bytes)
                                  : UnicodeTranscoder::utf8ToUtf32(utf8, bigEndian, &bytes);
        if (bad >= 0) {
            *error = unencodableMessage(utf8, bad, name);
            return false;
        }
        *out = std::move(bytes);
        return true;
    }

    const qsizetype invalid = UnicodeTranscoder::firstInvalidUtf8(utf8.constData(), utf8.size());
    if (invalid >= 0) {
        *error = unencodableMessage(utf8, invalid, name);
        return false;
    }
    QByteArray bytes;
    qsizetype bad = -1;
    if (!IconvCodec::fromUtf8(utf8, name, &bytes, &bad)) {
        *error = unencodableMessage(utf8, characterStart(utf8, qMax<qsizetype>(bad, 0)), name);
        return false;
    }
    // Reading the bytes back must give the same text, or the table stood in
    // one character for another.
    QByteArray back;
    if (!IconvCodec::toUtf8(bytes, name, &back) || back != utf8) {
        const qsizetype diff = qMax<qsizetype>(firstDifference(back, utf8), 0);
        *error = unencodableMessage(utf8, characterStart(utf8, qMin(diff, utf8.size() - 1)), name);
        return false;
    }
    *out = std::move(bytes);
    return true;
}

LineEnding TextFileCodec::detectLineEnding(const QByteArray &bytes, bool *mixed)
{
    const LineEndingCounts counts = countLineEndings(bytes);
    if (mixed)
        *mixed = (counts.lf > 0) + (counts.crlf > 0) + (counts.cr > 0) > 1;
    if (counts.crlf > counts.lf && counts.crlf >= counts.cr)
        return LineEnding::CRLF;
    if (counts.cr > counts.lf && counts.cr > counts.crlf)
        return LineEnding::CR;
    return LineEnding::LF;
}

QByteArray TextFileCodec::convertLineEndings(const QByteArray &utf8, LineEnding to)
{
    const LineEndingCounts counts = countLineEndings(utf8);
    const qsizetype lines = counts.lf + counts.cr + counts.crlf;
    const bool already = (to == LineEnding::LF && lines == counts.lf) ||
                         (to == LineEnding::CR && lines == counts.cr) ||
                         (to == LineEnding::CRLF && lines == counts.crlf);
    if (already)
        return utf8;

    const char *eol = to == LineEnding::CRLF ? "\r\n" : to == LineEnding::CR ? "\r" : "\n";
    const int eolSize = to == LineEnding::CRLF ? 2 : 1;
    const qsizetype oldEolBytes = counts.lf + counts.cr + 2 * counts.crlf;
    QByteArray result(utf8.size() - oldEolBytes + lines * eolSize, Qt::Uninitialized);
    char *out = result.data();
    const char *p = utf8.constData();
    const char *end = p + utf8.size();
    // Two cursors, one per byte value: memchr finds each far faster than a
    // byte loop finds either, and CR is usually absent altogether.
    const char *nextLf = findByte(p, end, '\n');
    const char *nextCr = findByte(p, end, '\r');
    while (p < end) {
        const char *brk = qMin(nextLf, nextCr);
        const qsizetype run = brk - p;
        std::memcpy(out, p, size_t(run));
        out += run;
        if (brk == end)
            break;
        std::memcpy(out, eol, size_t(eolSize));
        out += eolSize;
        p = brk + 1;
        if (*brk == '\r' && p < end && *p == '\n')
            ++p;
        if (nextLf < p)
            nextLf = findByte(p, end, '\n');
        if (nextCr < p)
            nextCr = findByte(p, end, '\r');
    }
    Q_ASSERT(out == result.constData() + result.size());
    return result;
}

QList<QByteArray> TextFileCodec::availableEncodings()
{
    static const QList<QByteArray> encodings = [] {
        const QList<QByteArray> candidates = {
            "UTF-8",        "UTF-16LE",     "UTF-16BE",     "UTF-32LE",     "UTF-32BE",
            "WINDOWS-1252", "ISO-8859-1",   "ISO-8859-15",  "WINDOWS-1250", "ISO-8859-2",
            "WINDOWS-1251", "KOI8-R",       "KOI8-U",       "ISO-8859-5",   "IBM866",
            "WINDOWS-1253", "ISO-8859-7",   "WINDOWS-1254", "ISO-8859-9",   "WINDOWS-1255",
            "ISO-8859-8",   "WINDOWS-1256", "ISO-8859-6",   "WINDOWS-1257", "ISO-8859-13",
            "WINDOWS-1258", "ISO-8859-3",   "ISO-8859-4",   "ISO-8859-10",  "ISO-8859-14",
            "ISO-8859-16",  "TIS-620",      "SHIFT_JIS",    "CP932",        "EUC-JP",
            "ISO-2022-JP",  "GB18030",      "GBK",          "GB2312",       "BIG5",
            "BIG5-HKSCS",   "EUC-KR",       "UHC",          "EUC-TW",       "MAC-CYRILLIC",
            "MACINTOSH",    "IBM850",       "IBM437",
        };
        QList<QByteArray> supported;
        for (const QByteArray &name : candidates) {
            if (isUnicodeForm(name) || IconvCodec::isSupported(name))
                supported.append(name);
        }
        return supported;
    }();
    return encodings;
}

QByteArray TextFileCodec::canonicalEncoding(const QByteArray &name)
{
    static const QHash<QByteArray, QByteArray> aliases = {
        {"UTF8", "UTF-8"},
        // Without a byte order the names are ambiguous; files that use them
        // are, in practice, little-endian.
        {"UTF-16", "UTF-16LE"},
        {"UTF-32", "UTF-32LE"},
        {"UTF-16-LE", "UTF-16LE"},
        {"UTF16LE", "UTF-16LE"},
        {"UTF-16-BE", "UTF-16BE"},
        {"UTF16BE", "UTF-16BE"},
        {"UTF-32-LE", "UTF-32LE"},
        {"UTF32LE", "UTF-32LE"},
        {"UTF-32-BE", "UTF-32BE"},
        {"UTF32BE", "UTF-32BE"},
        {"ASCII", "US-ASCII"},
        {"ANSI_X3.4-1968", "US-ASCII"},
        {"LATIN1", "ISO-8859-1"},
        {"LATIN-1", "ISO-8859-1"},
        {"L1", "ISO-8859-1"},
        {"LATIN9", "ISO-8859-15"},
        {"SJIS", "SHIFT_JIS"},
        {"SHIFT-JIS", "SHIFT_JIS"},
        {"MS_KANJI", "SHIFT_JIS"},
        {"CSSHIFTJIS", "SHIFT_JIS"},
        {"WINDOWS-31J", "CP932"},
        {"MS932", "CP932"},
        {"EUCJP", "EUC-JP"},
        {"EUCKR", "EUC-KR"},
        {"EUCTW", "EUC-TW"},
        {"CP949", "UHC"},
        {"CP936", "GBK"},
        {"WINDOWS-936", "GBK"},
        {"BIG-5", "BIG5"},
        {"BIG5HKSCS", "BIG5-HKSCS"},
        {"KOI8R", "KOI8-R"},
        {"KOI8U", "KOI8-U"},
        {"X-MAC-CYRILLIC", "MAC-CYRILLIC"},
        {"MACCYRILLIC", "MAC-CYRILLIC"},
        {"CP866", "IBM866"},
        {"CP850", "IBM850"},
        {"CP437", "IBM437"},
        {"TIS620", "TIS-620"},
    };
    QByteArray upper = name.trimmed().toUpper();
    if (upper.isEmpty())
        return {};
    upper = aliases.value(upper, upper);
    // CP1252 -> WINDOWS-1252, ISO8859-1 / ISO_8859-1 -> ISO-8859-1.
    if (upper.startsWith("CP125") && upper.size() == 6)
        upper = "WINDOWS-" + upper.mid(2);
    else if (upper.startsWith("ISO8859-") || upper.startsWith("ISO_8859-"))
        upper = "ISO-8859-" + upper.mid(upper.indexOf('-') + 1);
    if (isUnicodeForm(upper) || IconvCodec::isSupported(upper))
        return upper;
    return {};
}

} // namespace koru::sedgui
