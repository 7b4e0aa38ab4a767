#include "engine/native/fonts/itemizer.h"

#include <fribidi.h>

#include <algorithm>
#include <iterator>
#include <optional>

#include "engine/native/fonts/utf8.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

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

}  // namespace

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

}  // namespace pagivo::native
