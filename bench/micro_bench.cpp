// The per-name and per-property costs that a search over many files or a
// build of many actions multiplies: wildcard matching and the expansion of
// variable references.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "host/expansion.h"
#include "host/variables.h"
#include "platform/findfile.h"

namespace {

struct MaskCase {
  const char* name;
  const char* mask;
};

// Names against the masks projects use: a plain extension, every name,
// Win32's "name.*", a '?' run, and a miss that must scan the whole name.
const MaskCase kMaskCases[] = {
    {"f01234.o", "*.o"},
    {"Makefile", "*.*"},
    {"report.tar.gz", "report.*"},
    {"a1b2c3.txt", "a?b?c?.txt"},
    {"a_rather_long_file_name_without_the_extension.cpp", "*.zzz"},
};

void BM_MatchesMask(benchmark::State& state) {
  const MaskCase& c = kMaskCases[state.range(0)];
  state.SetLabel(std::string(c.mask) + " on " + c.name);
  for (auto _ : state) benchmark::DoNotOptimize(jx::MatchesMask(c.name, c.mask));
}
BENCHMARK(BM_MatchesMask)->DenseRange(0, std::size(kMaskCases) - 1);

const char* const kTexts[] = {
    "C:/build/output/bin/release",               // no reference
    "%OUT%/*.o",                                 // one
    "%ROOT%/$(CONFIG)/%PLATFORM%/obj/%NAME%.o",  // several, both forms
    "100%% done, $$(not a reference) and 50%",   // escapes and a lone '%'
};

// The host's resolver: the build's variables, as its action host looks them up.
void BM_ExpandReferences(benchmark::State& state) {
  jx::VariableStore variables;
  for (const char* name : {"OUT", "ROOT", "CONFIG", "PLATFORM", "NAME"}) {
    variables.Set(name, jx::Variant(std::string("value-of-") + name));
  }
  const jx::VariableResolver resolve = [&](std::string_view name, std::string& value) {
    const jx::Variant* variable = variables.Find(name);
    if (variable) value = variable->ToString();
    return variable != nullptr;
  };
  const std::string text = kTexts[state.range(0)];
  state.SetLabel(text);
  for (auto _ : state) {
    int count = 0;
    benchmark::DoNotOptimize(jx::ExpandReferences(text, resolve, count));
  }
}
BENCHMARK(BM_ExpandReferences)->DenseRange(0, std::size(kTexts) - 1);

}  // namespace
