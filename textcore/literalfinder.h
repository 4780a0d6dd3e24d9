#pragma once

#include <QByteArrayView>

namespace koru::sedgui {

// Finds a string of bytes in a text, sixteen positions at a time: a position
// is looked at closely only when both the first and the last byte of the
// string are in place. What the search core uses for a case-sensitive search
// for plain text, where a regular expression engine would spend most of its
// time starting and stopping.
class LiteralFinder
{
public:
    // Where the first occurrence of needle at or after from starts; -1 when
    // there is none. An empty needle is found at from.
    static qsizetype find(QByteArrayView text, qsizetype from, QByteArrayView needle);
};

} // namespace koru::sedgui
