#pragma once

// Where the Find in Files dialog keeps its state in the user's settings store.
namespace FindInFilesSettings {

inline constexpr char StoreName[] = "SRC_EDITOR";
inline constexpr char Group[] = "Find_In_Files";
inline constexpr char History[] = "SearchHistory";
inline constexpr char Regex[] = "RegularExpression";
inline constexpr char CaseSensitive[] = "CaseSensitive";
inline constexpr char WholeWord[] = "WholeWord";
inline constexpr char IncludeHidden[] = "IncludeHidden";
inline constexpr char RespectGitIgnore[] = "RespectGitIgnore";
inline constexpr char IncludeGlobs[] = "IncludeGlobs";
inline constexpr char ExcludeGlobs[] = "ExcludeGlobs";
inline constexpr char OpenDocumentsOnly[] = "OpenDocumentsOnly";
inline constexpr char ReplaceWith[] = "ReplaceWith";

inline constexpr int MaxHistory = 20;

} // namespace FindInFilesSettings
