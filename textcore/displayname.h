#pragma once

#include <QString>

namespace koru::sedgui {

// How a name (a file's, a folder's, a path) is shown to the user: as it is.
// Characters that would not show, or that would change how the rest reads
// (bidirectional overrides and isolates, zero-width characters, controls,
// line separators), are written as "<U+XXXX>", so that one name can never
// pass for another on screen. A literal "<U+" in a name has its "<" written
// the same way, so different names always look different.
class DisplayName
{
public:
    static QString visible(const QString &name);
    // visible(name) with every "&" doubled, for texts that read "&" as the
    // mark of a keyboard mnemonic (tab texts, menu entries).
    static QString forMnemonicText(const QString &name);
};

} // namespace koru::sedgui
