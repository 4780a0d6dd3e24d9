#include "encodingdetector.h"

#include <uchardet.h>

namespace koru::sedgui {

namespace {

// Enough text for a confident guess; a legacy file of hundreds of megabytes
// should not make the detector read all of it.
constexpr qsizetype SampleLimit = 1024 * 1024;

} // namespace

QByteArray EncodingDetector::detect(const QByteArray &bytes)
{
    uchardet_t detector = uchardet_new();
    if (!detector)
        return {};
    QByteArray name;
    if (uchardet_handle_data(detector, bytes.constData(),
                             size_t(qMin(bytes.size(), SampleLimit))) == 0) {
        uchardet_data_end(detector);
        name = QByteArray(uchardet_get_charset(detector));
    }
    uchardet_delete(detector);
    return name;
}

} // namespace koru::sedgui
