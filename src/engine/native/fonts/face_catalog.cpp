#include "engine/native/fonts/face_catalog.h"

#include "pagivo/error.h"

namespace pagivo::native {

std::optional<StyledFace> FaceCatalog::Find(const FaceQuery& query) {
  for (std::size_t rank = 0;; ++rank) {
    const std::optional<FaceFile> file = finder_->Find(query, rank);
    if (!file) return std::nullopt;
    const Face* face = Open(*file);
    if (face != nullptr) {
      return StyledFace{face, query.bold && !file->bold, query.italic && !file->italic};
    }
  }
}

// A broken file is no failure as long as another face can stand in.
const Face* FaceCatalog::Open(const FaceFile& file) {
  if (faces_.size() >= kMostIdleFaces && !faces_.contains({file.path, file.index})) {
    std::erase_if(faces_, [](const auto& entry) { return entry.second.use_count() <= 1; });
  }
  const auto [entry, isNew] = faces_.try_emplace({file.path, file.index});
  if (isNew) {
    try {
      entry->second = std::make_shared<Face>(file.path, file.index);
    } catch (const Error&) {
      return nullptr;
    }
  }
  return entry->second.get();
}

StyledFace FaceChoice::FaceFor(char32_t codePoint) {
  if (primary_.face->GlyphOf(codePoint) != 0) return primary_;
  const auto known = fallbacks_.find(codePoint);
  if (known != fallbacks_.end()) return known->second;
  const StyledFace found = FindFallback(codePoint);
  Hold(found);
  return fallbacks_.emplace(codePoint, found).first->second;
}

StyledFace FaceChoice::FindFallback(char32_t codePoint) const {
  FaceQuery query = query_;
  query.codePoint = codePoint;
  return catalog_.Find(query).value_or(primary_);
}

}  // namespace pagivo::native
