// Helper functions the host offers to actions: quoting for command lines and
// parent directories. Portable code, shared by every action that needs them.
#pragma once

#include <string>

namespace jx {

// Wraps `text` in single quotes; with `only_if_needed`, only when it holds a
// blank or is empty. Embedded single quotes are doubled.
std::string QuoteString(const std::string& text, bool only_if_needed);
// The same with double quotes, the quoting of Windows command lines. A text
// already wrapped in double quotes is left as it is.
std::string DoubleQuoteString(const std::string& text, bool only_if_needed);
// Removes one pair of matching surrounding quotes (single or double).
std::string StripQuotes(const std::string& text);
// The parent of a directory path, with or without its trailing delimiter:
// "a/b/c/" and "a/b/c" both give "a/b".
std::string GetParentDir(const std::string& path);

}  // namespace jx
