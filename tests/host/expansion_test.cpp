#include "host/expansion.h"

#include <gtest/gtest.h>

#include <map>

#include "rtl/sysutils.h"

namespace jx {
namespace {

const std::map<std::string, std::string, std::less<>> kVariables = {
    {"OUT", "build"}, {"A.B-c_1", "dotted"}, {"PCT", "%OUT%"}, {"EMPTY", ""}};

bool Resolve(std::string_view name, std::string& value) {
  auto it = kVariables.find(name);
  if (it == kVariables.end()) return false;
  value = it->second;
  return true;
}

struct Row {
  const char* text;
  const char* expected;
  int count;
};

class ExpansionTable : public ::testing::TestWithParam<Row> {};

TEST_P(ExpansionTable, Expands) {
  int count = -1;
  EXPECT_EQ(GetParam().expected, ExpandReferences(GetParam().text, Resolve, count));
  EXPECT_EQ(GetParam().count, count);
}

INSTANTIATE_TEST_SUITE_P(Rules, ExpansionTable,
                         ::testing::Values(Row{"", "", 0},                                   //
                                           Row{"plain text", "plain text", 0},               //
                                           Row{"%OUT%/*.o", "build/*.o", 1},                 //
                                           Row{"$(OUT)/x", "build/x", 1},                    //
                                           Row{"%OUT%$(OUT)", "buildbuild", 2},              //
                                           Row{"%A.B-c_1%", "dotted", 1},                    //
                                           Row{"[%EMPTY%]", "[]", 1},                        //
                                           Row{"100%%", "100%", 0},                          //
                                           Row{"%%OUT%%", "%OUT%", 0},                       //
                                           Row{"$$(OUT)", "$(OUT)", 0},                      //
                                           Row{"50% off", "50% off", 0},                     //
                                           Row{"a % b %OUT%", "a % b build", 1},             //
                                           Row{"%", "%", 0},                                 //
                                           Row{"%OUT", "%OUT", 0},                           //
                                           Row{"%1X%", "%1X%", 0},                           //
                                           Row{"%O T%", "%O T%", 0},                         //
                                           Row{"$(OUT", "$(OUT", 0},                         //
                                           Row{"$OUT $( OUT)", "$OUT $( OUT)", 0},           //
                                           Row{"$$", "$$", 0},                               //
                                           Row{"%PCT%", "%OUT%", 1}));                       // not expanded again

TEST(Expansion, UnknownVariableNamesIt) {
  int count = 0;
  try {
    ExpandReferences("x %NOPE% y", Resolve, count);
    FAIL() << "no exception";
  } catch (const Exception& e) {
    EXPECT_EQ("Variable \"NOPE\" is not defined", e.Message());
  }
  EXPECT_THROW(ExpandReferences("$(Missing)", Resolve, count), Exception);
}

TEST(Expansion, VariableNames) {
  EXPECT_TRUE(IsVariableName("_a1.b-c"));
  EXPECT_TRUE(IsVariableName("X"));
  EXPECT_FALSE(IsVariableName(""));
  EXPECT_FALSE(IsVariableName("1A"));
  EXPECT_FALSE(IsVariableName("-A"));
  EXPECT_FALSE(IsVariableName("A B"));
  EXPECT_FALSE(IsVariableName("A%"));
}

}  // namespace
}  // namespace jx
