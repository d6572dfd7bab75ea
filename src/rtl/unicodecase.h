// UTF-8 decoding and simple (one to one) Unicode case mapping for the
// "Ansi" text functions. Covers Latin-1, Latin Extended-A, Greek and
// Cyrillic; other characters have no case here.
#pragma once

#include <string>
#include <string_view>

namespace jx {

// The code point at `pos`, advancing `pos` past it. A byte that does not
// start a valid sequence yields 0xDC00 + the byte (a lone surrogate, so it
// can never equal a real character) and advances by one.
char32_t DecodeUtf8(std::string_view s, size_t& pos);
// Appends `cp` as UTF-8; an escaped byte from DecodeUtf8 is written back as is.
void AppendUtf8(std::string& out, char32_t cp);

char32_t UnicodeUpper(char32_t cp);
char32_t UnicodeLower(char32_t cp);

}  // namespace jx
