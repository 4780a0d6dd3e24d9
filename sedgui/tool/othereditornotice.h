#pragma once

#include <QCoreApplication>
#include <QString>

namespace koru::sedgui {

// What a document says when it opens a file that another running editor has
// unsaved changes to (that editor's recovery journal for the same file), as a
// lock file would tell: whose changes and since when.
class OtherEditorNotice
{
    Q_DECLARE_TR_FUNCTIONS(koru::sedgui::OtherEditorNotice)

public:
    // The sentence for the info bar, or empty when no other editor has
    // unsaved changes to path (an absolute path).
    static QString forFile(const QString &path);
};

} // namespace koru::sedgui
