// The structure of a PDF file: numbered objects, the table that says where they are, and the tree
// that leads readers to any page in a few steps.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/native/pdf/deflater.h"
#include "engine/native/pdf/pdf_syntax.h"

namespace pagivo::native {

// Takes the file's bytes in order. May raise Error, which ends the writing.
using ByteSink = std::function<void(std::span<const std::uint8_t>)>;

// Writes to the sink as it goes and keeps eight bytes an object. Every reserved number must be
// written once, in any order, before Finish.
class PdfFile {
 public:
  // The sink must outlive the file. Whatever it raises ends the writing.
  explicit PdfFile(const ByteSink& sink);
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  // The number of an object that will be written.
  PdfReference Reserve();

  // An object that is no stream; it is packed with others into a compressed stream of objects.
  void WriteObject(PdfReference object, const PdfDictionary& dictionary);

  // A stream that the file has once, made small here. The dictionary lacks its length and filter.
  void WriteStream(PdfReference stream, PdfDictionary dictionary, std::string_view data);

  // A stream whose data are in their final form already. The dictionary names the filter and lacks
  // the length.
  void WriteEncodedStream(PdfReference stream, PdfDictionary dictionary, std::string_view data);

  // Writes what is left.
  void Finish(PdfReference catalog, PdfReference information);

  // For data that WriteEncodedStream takes.
  Deflater& Compressor() noexcept { return deflater_; }

 private:
  void Emit(std::string_view bytes);
  void FlushOutput();
  void FlushObjectStream();
  std::string CrossReferenceRows(int offsetBytes) const;
  void SetEntry(PdfReference object, std::uint64_t entry);

  const ByteSink& sink_;
  Deflater deflater_{Effort::Small};
  std::string output_;        // not yet given to the sink
  std::uint64_t offset_ = 0;  // bytes emitted

  // Where each object is: its offset in the file, or kPacked with the number of the object stream
  // and the index in it.
  std::vector<std::uint64_t> entries_;

  PdfReference packedStream_;  // the object stream being filled, 0 for none
  std::uint32_t packedCount_ = 0;
  std::string packedIndex_;
  std::string packedObjects_;
};

// Grows from its leaves: a node is written as soon as it is full, so memory holds one node a level,
// and four bytes a page.
class PageTree {
 public:
  explicit PageTree(PdfFile& file) : file_(file) {}

  // Adds the next page and gives the node that the page must name as its parent.
  PdfReference Add(PdfReference page);

  // The pages added so far, for what leads to them.
  std::span<const PdfReference> Pages() const noexcept { return pages_; }

  // Writes the nodes that are left. `inherited` are the entries that pages without their own take
  // from the root. Gives the root. There must be a page.
  PdfReference Finish(const PdfDictionary& inherited);

 private:
  struct Node {
    PdfReference object;
    std::int64_t pages = 0;
    std::vector<PdfReference> kids;
  };

  Node& OpenNode(std::size_t level);
  void Close(std::size_t level);
  void Write(const Node& node, PdfReference parent, const PdfDictionary& inherited);

  PdfFile& file_;
  std::vector<Node> levels_;  // the open node of each level, leaves first
  std::vector<PdfReference> pages_;
};

}  // namespace pagivo::native
