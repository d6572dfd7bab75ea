#include "rtl/unicodecase.h"

namespace jx {
namespace {

constexpr char32_t kEscapeBase = 0xDC00;

// Lower-case letters first..last (every `step`-th one) whose upper case is
// lower + delta. The same rows read backwards give the lower case.
struct CaseRange {
  char32_t first, last;
  int step;
  int delta;
};

constexpr CaseRange kCaseRanges[] = {
    {0x0061, 0x007A, 1, -0x20},  {0x00E0, 0x00F6, 1, -0x20}, {0x00F8, 0x00FE, 1, -0x20},
    {0x00FF, 0x00FF, 1, 0x79},   {0x0101, 0x012F, 2, -1},    {0x0133, 0x0137, 2, -1},
    {0x013A, 0x0148, 2, -1},     {0x014B, 0x0177, 2, -1},    {0x017A, 0x017E, 2, -1},
    {0x03AC, 0x03AC, 1, -0x26},  {0x03AD, 0x03AF, 1, -0x25}, {0x03B1, 0x03C1, 1, -0x20},
    {0x03C3, 0x03CB, 1, -0x20},  {0x03CC, 0x03CC, 1, -0x40}, {0x03CD, 0x03CE, 1, -0x3F},
    {0x0430, 0x044F, 1, -0x20},  {0x0450, 0x045F, 1, -0x50}, {0x0461, 0x0481, 2, -1},
    {0x048B, 0x04BF, 2, -1},
};

constexpr char32_t kFinalSigma = 0x03C2, kCapitalSigma = 0x03A3;

bool InRange(char32_t cp, char32_t first, char32_t last, int step) {
  return cp >= first && cp <= last && (cp - first) % step == 0;
}

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

}  // namespace

char32_t DecodeUtf8(std::string_view s, size_t& pos) {
  const auto lead = static_cast<unsigned char>(s[pos]);
  if (lead < 0x80) {
    ++pos;
    return lead;
  }
  int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
  char32_t cp = length == 4 ? lead & 0x07 : length == 3 ? lead & 0x0F : lead & 0x1F;
  bool valid = length != 0 && pos + length <= s.size();
  for (int i = 1; valid && i < length; ++i) {
    const auto c = static_cast<unsigned char>(s[pos + i]);
    valid = IsContinuation(c);
    cp = (cp << 6) | (c & 0x3F);
  }
  // Overlong forms, surrogates and values past U+10FFFF are not characters.
  constexpr char32_t kMinimum[] = {0, 0, 0x80, 0x800, 0x10000};
  if (valid && (cp < kMinimum[length] || (cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF)) valid = false;
  if (!valid) {
    ++pos;
    return kEscapeBase + lead;
  }
  pos += length;
  return cp;
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp >= kEscapeBase + 0x80 && cp <= kEscapeBase + 0xFF) {
    out += static_cast<char>(cp - kEscapeBase);
  } else if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

char32_t UnicodeUpper(char32_t cp) {
  if (cp == kFinalSigma) return kCapitalSigma;
  for (const CaseRange& r : kCaseRanges) {
    if (InRange(cp, r.first, r.last, r.step)) return cp + r.delta;
  }
  return cp;
}

char32_t UnicodeLower(char32_t cp) {
  for (const CaseRange& r : kCaseRanges) {
    if (InRange(cp, r.first + r.delta, r.last + r.delta, r.step)) return cp - r.delta;
  }
  return cp;
}

}  // namespace jx
