#include "host/expansion.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "rtl/sysutils.h"

namespace jx {
namespace {

bool Resolve(std::string_view name, std::string& value) {
  static const std::map<std::string, std::string, std::less<>> variables = {
      {"OUT", "build"}, {"A.B-c_1", "dotted"}, {"PCT", "%OUT%"}, {"EMPTY", ""}};
  auto it = variables.find(name);
  if (it == variables.end()) return false;
  value = it->second;
  return true;
}

// Text, what it expands to (or the error's message), how many references.
TEST(Expansion, ReferencesEscapesAndLiteralText) {
  const std::tuple<const char*, const char*, int> rows[] = {
      {"", "", 0}, {"plain text", "plain text", 0}, {"%OUT%/*.o", "build/*.o", 1}, {"$(OUT)/x", "build/x", 1},
      {"%OUT%$(OUT)", "buildbuild", 2}, {"%A.B-c_1%", "dotted", 1}, {"[%EMPTY%]", "[]", 1}, {"100%%", "100%", 0},
      {"%%OUT%%", "%OUT%", 0}, {"$$(OUT)", "$(OUT)", 0}, {"50% off", "50% off", 0},
      {"a % b %OUT%", "a % b build", 1}, {"%", "%", 0}, {"%OUT", "%OUT", 0}, {"%1X%", "%1X%", 0},
      {"%O T%", "%O T%", 0}, {"$(OUT", "$(OUT", 0}, {"$OUT $( OUT)", "$OUT $( OUT)", 0}, {"$$", "$$", 0},
      {"%PCT%", "%OUT%", 1},  // not expanded again
      {"x %NOPE% y", "Variable \"NOPE\" is not defined", -1},
      {"$(Missing)", "Variable \"Missing\" is not defined", -1}};
  for (const auto& [text, expected, references] : rows) {
    int count = -1;
    try {
      EXPECT_EQ(expected, ExpandReferences(text, Resolve, count)) << text;
      EXPECT_EQ(references, count) << text;
    } catch (const Exception& e) {
      EXPECT_EQ(expected, e.Message()) << text;
      EXPECT_EQ(-1, references) << text;
    }
  }
  for (const char* name : {"_a1.b-c", "X"}) EXPECT_TRUE(IsVariableName(name)) << name;
  for (const char* name : {"", "1A", "-A", "A B", "A%"}) EXPECT_FALSE(IsVariableName(name)) << name;
}

}  // namespace
}  // namespace jx
