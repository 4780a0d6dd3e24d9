#include "iconvcodec.h"

#include <cerrno>
#include <iconv.h>

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

} // namespace

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
