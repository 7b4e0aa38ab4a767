// How long shaping and measuring take, for the strings that reports are made of.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "engine/native/fonts/advance_table.h"
#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/fonts/shaper.h"

namespace pagivo::native {
namespace {

constexpr std::size_t kStringsPerPage = 185;

using Strings = std::vector<std::string>;

std::string RandomNumber(std::minstd_rand& random) {
  const std::string digits = std::to_string(random() % 1'000'000 + 1'000'000);
  return digits.substr(0, 1) + '.' + digits.substr(1, 3) + ',' + digits.substr(4, 2);
}

std::string RandomWord(std::minstd_rand& random) {
  std::string word(1, static_cast<char>('A' + random() % 26));
  for (std::size_t length = 2 + random() % 14; word.size() < length;) {
    word += static_cast<char>('a' + random() % 26);
  }
  return word;
}

// Two numbers for every word, as in a table with a name at the head of each row.
Strings RandomStrings(std::size_t count) {
  std::minstd_rand random(1);
  Strings strings;
  for (std::size_t i = 0; i < count; ++i) {
    strings.push_back(i % 3 == 0 ? RandomWord(random) : RandomNumber(random));
  }
  return strings;
}

std::int64_t CharactersIn(const Strings& strings) {
  std::int64_t count = 0;
  for (const std::string& text : strings) count += static_cast<std::int64_t>(text.size());
  return count;
}

Font& Arial() {
  return FontLibrary::Instance().Find("Arial", false, false);
}

void ShapePage(benchmark::State& state) {
  const Strings strings = RandomStrings(kStringsPerPage);
  ShapedLine line;
  for (auto _ : state) {
    for (const std::string& text : strings) {
      Arial().Shape(text, line);
      benchmark::DoNotOptimize(line.glyphs.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * CharactersIn(strings));
}
BENCHMARK(ShapePage);

void ShapePageWithoutLookup(benchmark::State& state) {
  const Strings strings = RandomStrings(kStringsPerPage);
  Font& font = Arial();
  ShapedLine line;
  for (auto _ : state) {
    for (const std::string& text : strings) {
      font.Shape(text, line);
      benchmark::DoNotOptimize(line.glyphs.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * CharactersIn(strings));
}
BENCHMARK(ShapePageWithoutLookup);

void MeasurePage(benchmark::State& state) {
  const Strings strings = RandomStrings(kStringsPerPage);
  Font& font = Arial();
  for (auto _ : state) {
    for (const std::string& text : strings) benchmark::DoNotOptimize(font.Width(text));
  }
  state.SetItemsProcessed(state.iterations() * CharactersIn(strings));
}
BENCHMARK(MeasurePage);

// What the tables save: the same page, every string shaped by HarfBuzz.
void ShapePageWithHarfBuzz(benchmark::State& state) {
  const Strings strings = RandomStrings(kStringsPerPage);
  FaceCatalog catalog(MakeFaceFinder());
  const FaceQuery query{"Arial", false, false, std::nullopt};
  FaceChoice faces(catalog, query, *catalog.Find(query));
  Shaper shaper;
  ShapedLine line;
  for (auto _ : state) {
    for (const std::string& text : strings) shaper.Shape(text, faces, line);
  }
  state.SetItemsProcessed(state.iterations() * CharactersIn(strings));
}
BENCHMARK(ShapePageWithHarfBuzz);

// A document of pages whose strings are all different; reports how often HarfBuzz was asked.
void ShapeDocument(benchmark::State& state) {
  const Strings strings = RandomStrings(kStringsPerPage * static_cast<std::size_t>(state.range(0)));
  FaceCatalog catalog(MakeFaceFinder());
  const Face& face = *catalog.Find({"Arial", false, false, std::nullopt})->face;
  std::uint64_t calls = 0;
  for (auto _ : state) {
    Shaper shaper;
    AdvanceTable advances(face, shaper);
    std::vector<ShapedGlyph> glyphs;
    for (const std::string& text : strings) advances.Shape(text, glyphs);
    calls = shaper.Calls();
  }
  state.SetItemsProcessed(state.iterations() * CharactersIn(strings));
  state.counters["HarfBuzzCalls"] = static_cast<double>(calls);
}
BENCHMARK(ShapeDocument)->Arg(1)->Arg(100)->Arg(5000)->Unit(benchmark::kMillisecond);

void StartLibrary(benchmark::State& state) {
  for (auto _ : state) {
    FontLibrary library(MakeFaceFinder());
    benchmark::DoNotOptimize(&library.Find("Arial", false, false));
  }
}
BENCHMARK(StartLibrary)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace pagivo::native
