#include "editorconfig.h"

#include "filenameescape.h"

#include <editorconfig/editorconfig.h>

namespace koru::sedgui {

namespace {

// A width the editor can use: libeditorconfig passes any text through.
int width(const QByteArray &value)
{
    bool ok = false;
    const int number = value.toInt(&ok);
    return ok && number > 0 && number <= 32 ? number : 0;
}

std::optional<bool> flag(const QByteArray &value)
{
    if (value == "true")
        return true;
    if (value == "false")
        return false;
    return std::nullopt;
}

void setProperty(EditorConfig::Properties *properties, const QByteArray &name,
                 const QByteArray &value)
{
    using IndentStyle = EditorConfig::IndentStyle;
    if (name == "indent_style") {
        properties->indentStyle = value == "tab"     ? IndentStyle::Tabs
                                  : value == "space" ? IndentStyle::Spaces
                                                     : IndentStyle::Unset;
    } else if (name == "indent_size") {
        properties->indentSizeIsTab = value == "tab";
        properties->indentSize = width(value);
    } else if (name == "tab_width") {
        properties->tabWidth = width(value);
    } else if (name == "end_of_line") {
        if (value == "lf")
            properties->lineEnding = LineEnding::LF;
        else if (value == "crlf")
            properties->lineEnding = LineEnding::CRLF;
        else if (value == "cr")
            properties->lineEnding = LineEnding::CR;
    } else if (name == "charset") {
        static const struct
        {
            const char *name;
            const char *encoding;
            bool bom;
        } charsets[] = {
            {"utf-8", "UTF-8", false},       {"utf-8-bom", "UTF-8", true},
            {"latin1", "ISO-8859-1", false}, {"utf-16le", "UTF-16LE", true},
            {"utf-16be", "UTF-16BE", true},
        };
        for (const auto &charset : charsets) {
            if (value == charset.name) {
                properties->encoding = charset.encoding;
                properties->bom = charset.bom;
            }
        }
    } else if (name == "trim_trailing_whitespace") {
        properties->trimTrailingWhitespace = flag(value);
    } else if (name == "insert_final_newline") {
        properties->insertFinalNewline = flag(value);
    }
}

} // namespace

EditorConfig::Properties EditorConfig::forFile(const QString &absolutePath, QString *error)
{
    Properties properties;
    editorconfig_handle handle = editorconfig_handle_init();
    const int status =
        editorconfig_parse(FileNameEscape::toNative(absolutePath).constData(), handle);
    if (status == 0) {
        const int count = editorconfig_handle_get_name_value_count(handle);
        for (int i = 0; i < count; ++i) {
            const char *name = nullptr;
            const char *value = nullptr;
            editorconfig_handle_get_name_value(handle, i, &name, &value);
            // Names and the values of known properties come lower-cased.
            setProperty(&properties, QByteArray(name), QByteArray(value));
        }
    } else if (error) {
        const char *file = editorconfig_handle_get_err_file(handle);
        *error = file ? QStringLiteral("%1, line %2: not a valid .editorconfig file")
                            .arg(FileNameEscape::fromNative(file))
                            .arg(status)
                      : QString::fromUtf8(editorconfig_get_error_msg(status));
    }
    editorconfig_handle_destroy(handle);
    return properties;
}

} // namespace koru::sedgui
