#include "engine/native/pdf/font_program.h"

#include <hb-subset.h>
#include FT_CID_H

#include <algorithm>
#include <memory>

namespace pagivo::native {
namespace {

template <auto destroy>
struct Releaser {
  template <typename Object>
  void operator()(Object* object) const {
    destroy(object);
  }
};
using Blob = std::unique_ptr<hb_blob_t, Releaser<hb_blob_destroy>>;
using FacePointer = std::unique_ptr<hb_face_t, Releaser<hb_face_destroy>>;
using Input = std::unique_ptr<hb_subset_input_t, Releaser<hb_subset_input_destroy>>;
using Plan = std::unique_ptr<hb_subset_plan_t, Releaser<hb_subset_plan_destroy>>;

constexpr hb_tag_t kCff = HB_TAG('C', 'F', 'F', ' ');

// What a reader needs to draw glyphs by number.
constexpr hb_tag_t kOutlineTables[] = {HB_TAG('g', 'l', 'y', 'f'), HB_TAG('l', 'o', 'c', 'a'),
                                       HB_TAG('h', 'e', 'a', 'd'), HB_TAG('h', 'h', 'e', 'a'),
                                       HB_TAG('h', 'm', 't', 'x'), HB_TAG('m', 'a', 'x', 'p'),
                                       HB_TAG('c', 'v', 't', ' '), HB_TAG('f', 'p', 'g', 'm'),
                                       HB_TAG('p', 'r', 'e', 'p'), kCff};

bool IsOutlineTable(hb_tag_t tag) {
  return std::ranges::find(kOutlineTables, tag) != std::end(kOutlineTables);
}

std::string BytesOf(const Blob& blob) {
  unsigned length = 0;
  const char* data = hb_blob_get_data(blob.get(), &length);
  return data == nullptr ? std::string() : std::string(data, length);
}

std::vector<hb_tag_t> TablesOf(hb_face_t* face) {
  unsigned count = hb_face_get_table_tags(face, 0, nullptr, nullptr);
  std::vector<hb_tag_t> tags(count);
  hb_face_get_table_tags(face, 0, &count, tags.data());
  tags.resize(count);
  return tags;
}

// Tables that shape text would otherwise draw further glyphs in.
void DropOtherTables(hb_face_t* face, hb_subset_input_t* input) {
  hb_set_t* dropped = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const hb_tag_t tag : TablesOf(face)) {
    if (!IsOutlineTable(tag)) hb_set_add(dropped, tag);
  }
}

Plan MakePlan(hb_face_t* face, std::span<const std::uint32_t> glyphs) {
  const Input input(hb_subset_input_create_or_fail());
  if (!input) return nullptr;
  hb_subset_input_set_flags(input.get(),
                            HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
  hb_set_t* wanted = hb_subset_input_glyph_set(input.get());
  for (const std::uint32_t glyph : glyphs) hb_set_add(wanted, glyph);
  DropOtherTables(face, input.get());
  return Plan(hb_subset_plan_create_or_fail(face, input.get()));
}

// A font file of the outline tables only.
FacePointer KeepOutlineTables(hb_face_t* face) {
  FacePointer kept(hb_face_builder_create());
  for (const hb_tag_t tag : TablesOf(face)) {
    if (!IsOutlineTable(tag)) continue;
    const Blob table(hb_face_reference_table(face, tag));
    hb_face_builder_add_table(kept.get(), tag, table.get());
  }
  return kept;
}

// A CFF program is embedded as the bare table, a TrueType one as a font file.
void SetBytes(hb_face_t* face, FontProgram& program) {
  program.bytes = BytesOf(Blob(hb_face_reference_table(face, kCff)));
  program.format = program.bytes.empty() ? OutlineFormat::TrueType : OutlineFormat::Cff;
  if (program.bytes.empty()) program.bytes = BytesOf(Blob(hb_face_reference_blob(face)));
}

// What readers call a glyph: a CID-keyed program numbers its characters, and its subset keeps these
// numbers; in any other program the glyph's own number is that of the character.
std::uint32_t CharacterOf(const Face& face, std::uint32_t glyph, std::uint32_t programGlyph) {
  FT_UInt character = 0;
  const FT_Error error = FT_Get_CID_From_Glyph_Index(face.FreeType(), glyph, &character);
  return error == 0 ? character : programGlyph;
}

}  // namespace

FontProgram MakeFontProgram(const Face& face, std::span<const std::uint32_t> glyphs) {
  const Plan plan = MakePlan(face.HarfBuzz(), glyphs);
  const FacePointer subset(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
  if (!subset) return MakeWholeFontProgram(face, glyphs);

  FontProgram program;
  SetBytes(subset.get(), program);
  const hb_map_t* newGlyphs = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
  for (const std::uint32_t glyph : glyphs) {
    // A glyph that the face does not have is drawn as the missing one.
    const std::uint32_t newGlyph = hb_map_has(newGlyphs, glyph) ? hb_map_get(newGlyphs, glyph) : 0;
    program.characters.push_back(CharacterOf(face, glyph, newGlyph));
  }
  return program;
}

FontProgram MakeWholeFontProgram(const Face& face, std::span<const std::uint32_t> glyphs) {
  FontProgram program;
  program.subset = false;
  SetBytes(KeepOutlineTables(face.HarfBuzz()).get(), program);
  for (const std::uint32_t glyph : glyphs) {
    program.characters.push_back(CharacterOf(face, glyph, glyph));
  }
  return program;
}

}  // namespace pagivo::native
