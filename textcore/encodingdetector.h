#pragma once

#include <QByteArray>

namespace koru::sedgui {

// Guesses the encoding of bytes that are not UTF-8, with uchardet. The guess
// is a hint only: the codec accepts it when it decodes without loss.
class EncodingDetector
{
public:
    // The detector's name for the encoding ("WINDOWS-1252", "SHIFT_JIS"),
    // empty when it has no idea.
    static QByteArray detect(const QByteArray &bytes);
};

} // namespace koru::sedgui
