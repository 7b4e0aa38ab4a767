// The faces in use, each opened once, and the choice among them.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/face_finder.h"

namespace pagivo::native {

// A face and what players must do to it for the style that was asked for.
struct StyledFace {
  const Face* face = nullptr;
  bool emboldened = false;
  bool slanted = false;
  friend bool operator==(const StyledFace&, const StyledFace&) = default;
};

class FaceCatalog {
 public:
  explicit FaceCatalog(std::unique_ptr<FaceFinder> finder) : finder_(std::move(finder)) {}

  // The closest face that can be opened, none when there is no such face on the machine. Faces live
  // as long as the catalog.
  std::optional<StyledFace> Find(const FaceQuery& query);

 private:
  const Face* Open(const FaceFile& file);

  std::unique_ptr<FaceFinder> finder_;
  std::map<std::pair<std::string, int>, std::unique_ptr<Face>> faces_;  // null: cannot be opened
};

// The face for each character of a font: its own one as far as that goes, else the closest one that
// has the character.
class FaceChoice {
 public:
  // `query` without a code point. `catalog` must outlive the choice.
  FaceChoice(FaceCatalog& catalog, FaceQuery query, const StyledFace& primary)
      : catalog_(catalog), query_(std::move(query)), primary_(primary) {}

  const StyledFace& Primary() const noexcept { return primary_; }
  // The primary face, too, for a character that no face has. Remembers its answers.
  StyledFace FaceFor(char32_t codePoint);

 private:
  StyledFace FindFallback(char32_t codePoint) const;

  FaceCatalog& catalog_;
  FaceQuery query_;
  StyledFace primary_;
  std::unordered_map<char32_t, StyledFace> fallbacks_;
};

}  // namespace pagivo::native
