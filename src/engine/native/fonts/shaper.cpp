#include "engine/native/fonts/shaper.h"

#include <hb-ot.h>

#include <iterator>
#include <new>
#include <utility>

namespace pagivo::native {
namespace {

hb_segment_properties_t PropertiesOf(const TextRun& run) {
  hb_segment_properties_t properties = HB_SEGMENT_PROPERTIES_DEFAULT;
  properties.direction = run.level % 2 != 0 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR;
  properties.script = run.script;
  // The language of the component's users; the environment's would change the result.
  properties.language = hb_language_from_string("nl", -1);
  return properties;
}

constexpr hb_feature_t SwitchedOff(hb_tag_t feature) {
  return {feature, 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END};
}

// Alternates at random would make two outputs of one record differ.
constexpr hb_feature_t kFeatures[] = {SwitchedOff(HB_TAG('r', 'a', 'n', 'd'))};
// One shaper for every face, whatever others the library was built with.
constexpr const char* kShapers[] = {"ot", nullptr};

// The clusters of a run from left to right rise, from right to left they fall.
void SetTextRanges(std::span<ShapedGlyph> glyphs, const std::vector<std::uint32_t>& offsets,
                   const TextRun& run) {
  const bool rightToLeft = run.level % 2 != 0;
  std::uint32_t next = run.end;
  std::uint32_t current = run.end;
  for (std::size_t i = glyphs.size(); i-- > 0;) {
    ShapedGlyph& glyph = glyphs[rightToLeft ? glyphs.size() - 1 - i : i];
    if (glyph.textBegin != current) next = std::exchange(current, glyph.textBegin);
    glyph.textBegin = offsets[current];
    glyph.textEnd = offsets[next];
  }
}

// Players care about the face alone, so a change of script or direction does not show.
void ExtendRuns(const StyledFace& face, std::uint32_t begin, ShapedLine& line) {
  const auto end = static_cast<std::uint32_t>(line.glyphs.size());
  const ShapedRun run{face.face, face.emboldened, face.slanted, begin, end};
  const auto continues = [&run](const ShapedRun& last) {
    return last.face == run.face && last.emboldened == run.emboldened &&
           last.slanted == run.slanted;
  };
  if (!line.runs.empty() && continues(line.runs.back())) {
    line.runs.back().glyphEnd = end;
  } else {
    line.runs.push_back(run);
  }
}

}  // namespace

std::vector<std::uint32_t> LatinLookups(const Face& face, hb_tag_t table) {
  // Fractions come about around a fraction slash only, which is no simple text.
  static constexpr hb_feature_t kWithoutFractions[] = {
      SwitchedOff(HB_TAG('r', 'a', 'n', 'd')), SwitchedOff(HB_TAG('f', 'r', 'a', 'c')),
      SwitchedOff(HB_TAG('n', 'u', 'm', 'r')), SwitchedOff(HB_TAG('d', 'n', 'o', 'm'))};
  const hb_segment_properties_t properties = PropertiesOf(TextRun());
  hb_shape_plan_t* plan = hb_shape_plan_create_cached(
      face.HarfBuzz(), &properties, kWithoutFractions, std::size(kWithoutFractions), kShapers);
  hb_set_t* lookups = hb_set_create();
  hb_ot_shape_plan_collect_lookups(plan, table, lookups);
  std::vector<std::uint32_t> indexes;
  for (hb_codepoint_t index = HB_SET_VALUE_INVALID; hb_set_next(lookups, &index) != 0;) {
    indexes.push_back(index);
  }
  hb_set_destroy(lookups);
  hb_shape_plan_destroy(plan);
  return indexes;
}

Shaper::Shaper() : buffer_(hb_buffer_create()) {}

void Shaper::Shape(std::string_view text, FaceChoice& faces, ShapedLine& line) {
  line.glyphs.clear();
  line.runs.clear();
  Decode(text, decoded_);
  for (const TextRun& run : Itemize(decoded_, faces)) {
    ShapeRun(decoded_.codePoints, run);
    Append(run, line);
  }
}

hb_buffer_t* Shaper::ShapeLatin(const Face& face, std::span<const std::uint32_t> codePoints) {
  TextRun run;
  run.end = static_cast<std::uint32_t>(codePoints.size());
  run.face.face = &face;
  ShapeRun(codePoints, run);
  return buffer_.get();
}

void Shaper::ShapeRun(std::span<const std::uint32_t> codePoints, const TextRun& run) {
  hb_buffer_t* buffer = buffer_.get();
  hb_buffer_clear_contents(buffer);
  // The code points around the run go along as context: letters join across a change of face.
  hb_buffer_add_codepoints(buffer, codePoints.data(), static_cast<int>(codePoints.size()),
                           run.begin, static_cast<int>(run.end - run.begin));
  const hb_segment_properties_t properties = PropertiesOf(run);
  hb_buffer_set_segment_properties(buffer, &properties);
  const bool shaped = hb_shape_full(run.face.face->HarfBuzzFont(), buffer, kFeatures,
                                    std::size(kFeatures), kShapers) != 0;
  if (!shaped || hb_buffer_allocation_successful(buffer) == 0) throw std::bad_alloc();
  ++calls_;
}

void Shaper::Append(const TextRun& run, ShapedLine& line) const {
  unsigned int count = 0;
  const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(buffer_.get(), &count);
  const hb_glyph_position_t* positions = hb_buffer_get_glyph_positions(buffer_.get(), &count);
  const std::size_t begin = line.glyphs.size();
  for (unsigned int i = 0; i < count; ++i) {
    line.glyphs.push_back({infos[i].codepoint, positions[i].x_advance, positions[i].x_offset,
                           positions[i].y_offset, infos[i].cluster, 0});
  }
  SetTextRanges(std::span(line.glyphs).subspan(begin), decoded_.offsets, run);
  ExtendRuns(run.face, static_cast<std::uint32_t>(begin), line);
}

}  // namespace pagivo::native
