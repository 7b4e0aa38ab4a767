#include "engine/native/fonts/shaper.h"

#include <fribidi.h>
#include <hb-ot.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "pagivo/error.h"
#include "values/characters.h"

namespace pagivo::native {
namespace {

// --- Cutting a line into runs

using Levels = std::vector<FriBidiLevel>;

bool RunsFromLeftToRight(const std::vector<FriBidiCharType>& types) {
  return std::none_of(types.begin(), types.end(), [](FriBidiCharType type) {
    return FRIBIDI_IS_RTL(type) || FRIBIDI_IS_ARABIC(type) || FRIBIDI_IS_EXPLICIT(type) ||
           FRIBIDI_IS_ISOLATE(type);
  });
}

// The embedding levels of the line taken as one paragraph, whose direction is that of its first
// strong character. Without anything that runs from right to left all is one level, so that
// numbers do not come apart from the signs around them.
Levels LevelsOf(const std::vector<std::uint32_t>& codePoints) {
  const auto count = static_cast<FriBidiStrIndex>(codePoints.size());
  Levels levels(codePoints.size(), 0);
  std::vector<FriBidiCharType> types(codePoints.size());
  fribidi_get_bidi_types(codePoints.data(), count, types.data());
  if (RunsFromLeftToRight(types)) return levels;
  std::vector<FriBidiBracketType> brackets(codePoints.size());
  fribidi_get_bracket_types(codePoints.data(), count, types.data(), brackets.data());
  FriBidiParType direction = FRIBIDI_PAR_ON;
  // Reordering the whole line here only puts trailing blanks at the paragraph's end; the runs,
  // which faces and scripts cut further, are reordered later.
  const bool resolved = fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), count,
                                                            &direction, levels.data()) != 0 &&
                        fribidi_reorder_line(FRIBIDI_FLAGS_DEFAULT, types.data(), count, 0,
                                             direction, levels.data(), nullptr, nullptr) != 0;
  if (!resolved) throw Error(ErrorNumber::OutOfMemory, "Onvoldoende geheugen");
  return levels;
}

bool IsReal(hb_script_t script) {
  return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED;
}

// Signs and marks take the script before them, at the line's start the one after them. A line of
// signs alone is Latin, as its digits and points would be inside a word.
std::vector<hb_script_t> ScriptsOf(const std::vector<std::uint32_t>& codePoints) {
  hb_unicode_funcs_t* unicode = hb_unicode_funcs_get_default();
  std::vector<hb_script_t> scripts;
  scripts.reserve(codePoints.size());
  for (const std::uint32_t codePoint : codePoints) {
    scripts.push_back(hb_unicode_script(unicode, codePoint));
  }
  const auto first = std::find_if(scripts.begin(), scripts.end(), IsReal);
  hb_script_t current = first != scripts.end() ? *first : HB_SCRIPT_LATIN;
  for (hb_script_t& script : scripts) {
    if (IsReal(script)) current = script;
    script = current;
  }
  return scripts;
}

// Marks, joiners and variation selectors say something about the character before them, so they
// must come from its face.
bool BelongsToItsPredecessor(std::uint32_t codePoint) {
  switch (hb_unicode_general_category(hb_unicode_funcs_get_default(), codePoint)) {
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_FORMAT:
      return true;
    default:
      return false;
  }
}

std::vector<StyledFace> FacesOf(const std::vector<std::uint32_t>& codePoints, FaceChoice& choice) {
  std::vector<StyledFace> faces;
  faces.reserve(codePoints.size());
  for (const std::uint32_t codePoint : codePoints) {
    const bool follows = !faces.empty() && BelongsToItsPredecessor(codePoint);
    faces.push_back(follows ? faces.back() : choice.FaceFor(codePoint));
  }
  return faces;
}

// Rule L2 of the Unicode bidirectional algorithm, for whole runs.
void Reorder(std::vector<TextRun>& runs) {
  std::int8_t highest = 0;
  for (const TextRun& run : runs) highest = std::max(highest, run.level);
  for (std::int8_t level = highest; level > 0; --level) {
    const auto isLower = [level](const TextRun& run) { return run.level < level; };
    for (auto begin = runs.begin(); begin != runs.end();) {
      begin = std::find_if_not(begin, runs.end(), isLower);
      const auto end = std::find_if(begin, runs.end(), isLower);
      std::reverse(begin, end);
      begin = end;
    }
  }
}

// Replaces what `line` holds, keeping its storage.
void Decode(std::string_view text, DecodedLine& line) {
  line.codePoints.clear();
  line.offsets.clear();
  for (std::size_t position = 0; position < text.size();) {
    const DecodedCodePoint decoded = DecodeUtf8(text, position);
    line.codePoints.push_back(decoded.codePoint);
    line.offsets.push_back(static_cast<std::uint32_t>(position));
    position += decoded.length;
  }
  line.offsets.push_back(static_cast<std::uint32_t>(text.size()));
}

// The runs of a line in visual order, from left to right.
std::vector<TextRun> Itemize(const DecodedLine& line, FaceChoice& faces) {
  const Levels levels = LevelsOf(line.codePoints);
  const std::vector<hb_script_t> scripts = ScriptsOf(line.codePoints);
  const std::vector<StyledFace> chosen = FacesOf(line.codePoints, faces);
  std::vector<TextRun> runs;
  for (std::uint32_t i = 0; i < line.codePoints.size(); ++i) {
    const bool continues = !runs.empty() && runs.back().face == chosen[i] &&
                           runs.back().script == scripts[i] && runs.back().level == levels[i];
    if (!continues) runs.push_back({i, i, chosen[i], scripts[i], levels[i]});
    runs.back().end = i + 1;
  }
  Reorder(runs);
  return runs;
}

// --- Shaping a run

hb_segment_properties_t PropertiesOf(const TextRun& run) {
  hb_segment_properties_t properties = HB_SEGMENT_PROPERTIES_DEFAULT;
  properties.direction = run.RunsFromRightToLeft() ? HB_DIRECTION_RTL : HB_DIRECTION_LTR;
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
  std::uint32_t next = run.end;
  std::uint32_t current = run.end;
  for (std::size_t i = glyphs.size(); i-- > 0;) {
    ShapedGlyph& glyph = glyphs[run.RunsFromRightToLeft() ? glyphs.size() - 1 - i : i];
    if (glyph.textBegin != current) next = std::exchange(current, glyph.textBegin);
    glyph.textBegin = offsets[current];
    glyph.textEnd = offsets[next];
  }
}

// Players care about face and direction alone, so a change of script does not show.
void ExtendRuns(const TextRun& text, std::uint32_t begin, ShapedLine& line) {
  const auto end = static_cast<std::uint32_t>(line.glyphs.size());
  const auto& [face, emboldened, slanted] = text.face;
  const ShapedRun run{face, emboldened, slanted, text.RunsFromRightToLeft(), begin, end};
  const auto continues = [&run](const ShapedRun& last) {
    return last.face == run.face && last.emboldened == run.emboldened &&
           last.slanted == run.slanted && last.rightToLeft == run.rightToLeft;
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
  ExtendRuns(run, static_cast<std::uint32_t>(begin), line);
}

}  // namespace pagivo::native
