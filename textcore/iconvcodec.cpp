#include "iconvcodec.h"

#include <QHash>
#include <QMutex>

#include <cerrno>
#include <cstring>
#include <iconv.h>
#include <memory>

namespace koru::sedgui {

namespace {

const iconv_t InvalidDescriptor = reinterpret_cast<iconv_t>(-1);

bool convert(const QByteArray &input, const char *to, const char *from, QByteArray *out,
             qsizetype *errorOffset)
{
    iconv_t cd = iconv_open(to, from);
    if (cd == InvalidDescriptor) {
        if (errorOffset)
            *errorOffset = 0;
        return false;
    }
    QByteArray result;
    // Most text grows little; the loop below doubles on E2BIG.
    result.resize(input.size() + input.size() / 2 + 64);
    char *in = const_cast<char *>(input.constData());
    size_t inLeft = size_t(input.size());
    qsizetype written = 0;
    bool ok = true;
    bool flushing = false;
    while (true) {
        char *outPtr = result.data() + written;
        size_t outLeft = size_t(result.size() - written);
        // A last call with no input writes the shift sequence that returns a
        // stateful encoding (ISO-2022-JP) to its initial state.
        const size_t rc = flushing ? iconv(cd, nullptr, nullptr, &outPtr, &outLeft)
                                   : iconv(cd, &in, &inLeft, &outPtr, &outLeft);
        written = outPtr - result.data();
        if (rc != size_t(-1)) {
            if (flushing)
                break;
            flushing = true;
            continue;
        }
        if (errno == E2BIG) {
            result.resize(result.size() * 2 + 64);
            continue;
        }
        // EILSEQ: not valid in the source or not representable in the
        // target; EINVAL: a sequence cut off by the end of the input.
        ok = false;
        if (errorOffset)
            *errorOffset = in - input.constData();
        break;
    }
    iconv_close(cd);
    if (!ok)
        return false;
    result.truncate(written);
    *out = std::move(result);
    return true;
}

// The UTF-8 of each byte of a single-byte encoding; length 0 where the byte
// is undefined or would not be written back as itself.
struct ByteTable
{
    char utf8[256][4];
    unsigned char length[256];
};

// Null for an encoding that is not single-byte and stateless: a byte that
// is only the start of a sequence, or a shift state, makes it so.
std::shared_ptr<const ByteTable> buildByteTable(const QByteArray &encoding)
{
    iconv_t cd = iconv_open("UTF-8", encoding.constData());
    if (cd == InvalidDescriptor)
        return nullptr;
    auto table = std::make_shared<ByteTable>();
    bool singleByte = true;
    for (int b = 0; b < 256 && singleByte; ++b) {
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        char byte = char(b);
        char *in = &byte;
        size_t inLeft = 1;
        char *out = table->utf8[b];
        size_t outLeft = sizeof table->utf8[b];
        table->length[b] = 0;
        if (iconv(cd, &in, &inLeft, &out, &outLeft) == size_t(-1)) {
            singleByte = errno == EILSEQ;
            continue;
        }
        const size_t produced = sizeof table->utf8[b] - outLeft;
        char *flushOut = out;
        size_t flushLeft = outLeft;
        singleByte = produced > 0 && iconv(cd, nullptr, nullptr, &flushOut, &flushLeft) == 0 &&
                     flushLeft == outLeft;
        table->length[b] = static_cast<unsigned char>(produced);
    }
    iconv_close(cd);
    if (!singleByte)
        return nullptr;
    for (int b = 0; b < 256; ++b) {
        QByteArray back;
        if (table->length[b] > 0 && (!convert(QByteArray(table->utf8[b], table->length[b]),
                                              encoding.constData(), "UTF-8", &back, nullptr) ||
                                     back != QByteArray(1, char(b))))
            table->length[b] = 0;
    }
    return table;
}

std::shared_ptr<const ByteTable> byteTable(const QByteArray &encoding)
{
    static QMutex mutex;
    static QHash<QByteArray, std::shared_ptr<const ByteTable>> tables;
    const QMutexLocker lock(&mutex);
    const auto found = tables.constFind(encoding);
    if (found != tables.cend())
        return *found;
    auto table = buildByteTable(encoding);
    tables.insert(encoding, table);
    return table;
}

} // namespace

bool IconvCodec::toUtf8Reversibly(const QByteArray &bytes, const QByteArray &encoding,
                                  QByteArray *out)
{
    const std::shared_ptr<const ByteTable> table = byteTable(encoding);
    if (!table) {
        QByteArray decoded;
        QByteArray back;
        if (!toUtf8(bytes, encoding, &decoded) || !fromUtf8(decoded, encoding, &back) ||
            back != bytes)
            return false;
        *out = std::move(decoded);
        return true;
    }
    const auto *data = reinterpret_cast<const unsigned char *>(bytes.constData());
    const qsizetype size = bytes.size();
    qsizetype length = 0;
    for (qsizetype i = 0; i < size; ++i) {
        const unsigned char n = table->length[data[i]];
        if (n == 0)
            return false;
        length += n;
    }
    QByteArray result(length, Qt::Uninitialized);
    char *pos = result.data();
    for (qsizetype i = 0; i < size; ++i) {
        const unsigned char n = table->length[data[i]];
        std::memcpy(pos, table->utf8[data[i]], n);
        pos += n;
    }
    *out = std::move(result);
    return true;
}

bool IconvCodec::isSupported(const QByteArray &encoding)
{
    iconv_t cd = iconv_open("UTF-8", encoding.constData());
    if (cd == InvalidDescriptor)
        return false;
    iconv_close(cd);
    return true;
}

bool IconvCodec::toUtf8(const QByteArray &bytes, const QByteArray &encoding, QByteArray *out,
                        qsizetype *errorOffset)
{
    return convert(bytes, "UTF-8", encoding.constData(), out, errorOffset);
}

bool IconvCodec::fromUtf8(const QByteArray &utf8, const QByteArray &encoding, QByteArray *out,
                          qsizetype *errorOffset)
{
    return convert(utf8, encoding.constData(), "UTF-8", out, errorOffset);
}

} // namespace koru::sedgui
