// The faces in use, each opened once, and the choice among them.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
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

  // More faces than this stay open only while somebody holds them.
  static constexpr std::size_t kMostIdleFaces = 64;

  // The closest face that can be opened, none when there is no such face on the machine. It stays
  // open while somebody holds it (shared_from_this) and at least until the next call.
  std::optional<StyledFace> Find(const FaceQuery& query);

  // See FaceFinder.
  void ForgetInstallation() noexcept { finder_->Forget(); }

 private:
  const Face* Open(const FaceFile& file);

  std::unique_ptr<FaceFinder> finder_;
  // A file that cannot be opened as a face has a null one.
  std::map<std::pair<std::string, int>, std::shared_ptr<Face>> faces_;
};

// The face for each character of a font: its own one as far as that goes, else the closest one that
// has the character.
class FaceChoice {
 public:
  // `query` names no code point. `catalog` must outlive the choice, which holds the faces that it
  // gives.
  FaceChoice(FaceCatalog& catalog, FaceQuery query, const StyledFace& primary)
      : catalog_(catalog), query_(std::move(query)), primary_(primary) {
    Hold(primary);
  }

  const StyledFace& Primary() const noexcept { return primary_; }
  // A character that no face has gets the primary face. The answers are remembered.
  StyledFace FaceFor(char32_t codePoint);

 private:
  StyledFace FindFallback(char32_t codePoint) const;
  void Hold(const StyledFace& face) { held_.insert(face.face->shared_from_this()); }

  FaceCatalog& catalog_;
  FaceQuery query_;
  StyledFace primary_;
  std::unordered_map<char32_t, StyledFace> fallbacks_;
  std::set<std::shared_ptr<const Face>> held_;
};

}  // namespace pagivo::native
