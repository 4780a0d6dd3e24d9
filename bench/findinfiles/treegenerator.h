#pragma once

#include <QString>

// Writes the benchmark's folder tree, the same bytes on every run: Folders x
// SubFolders x FilesPerFolder C-like files of about FileBytes each. Every file
// holds HitsPerFile lines with CommonToken; every RareEvery-th file holds one
// line with RareToken.
class TreeGenerator
{
public:
    static constexpr int Folders = 25;
    static constexpr int SubFolders = 40;
    static constexpr int FilesPerFolder = 20;
    static constexpr int FileBytes = 26 * 1024;
    static constexpr int HitsPerFile = 50;
    static constexpr int RareEvery = 10;
    static constexpr const char *CommonToken = "common_hit_token";
    static constexpr const char *RareToken = "rare_needle_token";

    static constexpr qint64 fileCount() { return qint64(Folders) * SubFolders * FilesPerFolder; }
    static constexpr qint64 commonHits() { return fileCount() * HitsPerFile; }
    static constexpr qint64 rareHits() { return fileCount() / RareEvery; }

    // Writes the tree under root unless a complete one is already there.
    static bool ensure(const QString &root, QString *error);
};
