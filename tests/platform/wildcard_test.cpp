#include <gtest/gtest.h>

#include "platform/findfile.h"

namespace jx {
namespace {

struct MaskCase {
  const char* name;
  const char* mask;
  bool matches;
};

const MaskCase kMaskCases[] = {
    {"Makefile", "*.*", true},
    {"Makefile", "*", true},
    {".", "*.*", true},
    {"..", "*", true},
    {"a.c", "?.c", true},
    {"ab.c", "?.c", false},
    {".c", "?.c", true},  // '?' may match nothing before the '.'
    {"a", "a?", true},    // ... and at the end of the name
    {"ab", "a?", true},
    {"abc", "a?", false},
    {"a.txt", "a??.txt", true},
    {"abcd.txt", "a??.txt", false},
    {"a.c", "a?c", true},
    {"x.TXT", "*.txt", false},  // case matters on POSIX
    {"x.txt", "*.txt", true},
    {"makefile", "Makefile", false},
    {"x.txt.bak", "*.txt", false},
    {"Makefile", "*.", true},
    {"a.txt", "*.", false},
    {"foo", "foo.", true},
    {"foo.", "foo.", true},
    {"foo", "foo.*", true},
    {"foo.c", "foo.*", true},
    {"foo.tar.gz", "foo.*", true},
    {"food", "foo.*", false},
    {"report 2020.txt", "report *.txt", true},
    {"report2020.txt", "report *.txt", false},
    {"Grüße.txt", "Gr??e.txt", true},  // '?' is one character, not one byte
    {"Grüße.txt", "Gr?e.txt", false},
    {"Grüße.txt", "Grüße.txt", true},
    {"Grüsse.txt", "Grüße.txt", false},
    {"Grüße.txt", "Grü*.txt", true},
    {"日本.txt", "*本.txt", true},
    {"aXbXc", "a*b*c", true},
    {"abab", "*ab", true},
    {"ab", "*ab*", true},
    {"ac", "a*b*c", false},
    {"", "*", true},
    {"a", "", false},
    {".profile", ".*", true},
    {"profile", "*.*e", false},
    {"x.e", "*.*e", true},
};

TEST(MatchesMask, Table) {
  for (const MaskCase& c : kMaskCases) {
    EXPECT_EQ(c.matches, MatchesMask(c.name, c.mask)) << "name \"" << c.name << "\" mask \"" << c.mask << "\"";
  }
}

TEST(MatchesMask, LongPatternsBeyondTheStackBuffer) {
  const std::string name(300, 'a');
  EXPECT_TRUE(MatchesMask(name, std::string(299, 'a') + "?"));
  EXPECT_TRUE(MatchesMask(name, std::string(150, '*') + std::string(150, 'a')));
  EXPECT_FALSE(MatchesMask(name, std::string(301, 'a')));
}

}  // namespace
}  // namespace jx
