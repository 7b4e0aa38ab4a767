// The recorded pages of a document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/native/document/display_list.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// A page's paper as the page is turned. Twips; the record's coordinates count from its upper left
// corner.
struct PageGeometry {
  float width = 0;
  float height = 0;
  friend bool operator==(const PageGeometry&, const PageGeometry&) = default;
};

// Pages append to one arena and are never rewritten; an overlay is a further segment of its page.
// Discarding the document frees everything at once.
class Document {
 public:
  Document();
  ~Document();
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  std::int32_t PageCount() const noexcept;
  // `page` counts from 1 and must exist.
  const PageGeometry& GeometryOf(std::int32_t page) const;
  // Another number whenever something has been added to the page's record.
  std::size_t RevisionOf(std::int32_t page) const;
  // Replays all segments of a page, in the order they were recorded.
  void Play(std::int32_t page, Player& player) const;

  const std::string& Title() const noexcept { return title_; }
  void SetTitle(std::string title) { title_ = std::move(title); }

  // Bytes held by the record, pictures not included.
  std::size_t RecordBytes() const noexcept;

 private:
  friend class Recorder;
  struct Storage;
  class Replay;
  std::unique_ptr<Storage> storage_;
  std::string title_;
};

}  // namespace pagivo::native
