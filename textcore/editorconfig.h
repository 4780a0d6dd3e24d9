#pragma once

#include "textformat.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace koru::sedgui {

// The coding style a project asks for in its ".editorconfig" files, for one
// file: read through libeditorconfig from the file's folder and its parents,
// up to a file with "root = true". Properties the files do not set stay unset.
class EditorConfig
{
public:
    enum class IndentStyle { Unset, Tabs, Spaces };

    struct Properties
    {
        IndentStyle indentStyle = IndentStyle::Unset;
        // Columns per level; 0 when unset or "tab" (then indentSizeIsTab).
        int indentSize = 0;
        // "indent_size = tab": one level is one tab, as wide as the tab width.
        bool indentSizeIsTab = false;
        int tabWidth = 0; // 0 when unset
        std::optional<LineEnding> lineEnding;
        // Canonical encoding ("UTF-8", "ISO-8859-1", "UTF-16LE", ...) and
        // whether it is written with a byte order mark; empty when unset.
        QByteArray encoding;
        bool bom = false;
        std::optional<bool> trimTrailingWhitespace;
        std::optional<bool> insertFinalNewline;

        bool isEmpty() const { return *this == Properties(); }
        friend bool operator==(const Properties &, const Properties &) = default;
    };

    // The properties for the file at absolutePath (it need not exist). A
    // malformed .editorconfig gives no properties and, if error is given, a
    // sentence naming the file.
    static Properties forFile(const QString &absolutePath, QString *error = nullptr);
};

} // namespace koru::sedgui
