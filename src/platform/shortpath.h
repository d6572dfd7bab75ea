// Short (8.3) path names, which only Windows file systems keep.
#pragma once

#include <string>

namespace jx {

// The short form of an existing path; "" (and the last error) when the path
// does not exist. Where there are no short names, the path itself.
std::string ExtractShortPathName(const std::string& path);

}  // namespace jx
