#include "engine/native/pdf/pdf_file.h"

#include <bit>
#include <cassert>
#include <utility>

namespace pagivo::native {
namespace {

constexpr std::size_t kOutputChunk = std::size_t{64} << 10;

// The index in an object stream takes one byte of the cross-reference table.
constexpr std::uint32_t kObjectsPerStream = 200;

constexpr std::uint64_t kNotWritten = UINT64_MAX;
constexpr std::uint64_t kPacked = std::uint64_t{1} << 63;
constexpr unsigned kPackedIndexBits = 8;

// The most kids of a node in the tree of pages.
constexpr std::size_t kKids = 32;

// The second line tells programs that the file is no text.
constexpr std::string_view kHeader = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n";

// Each byte minus the one above it, with the row's filter type 2 in front: neighbouring rows of a
// cross-reference table differ little.
std::string PredictUp(std::string_view rows, std::size_t rowSize) {
  std::string predicted;
  predicted.reserve(rows.size() + rows.size() / rowSize);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % rowSize == 0) predicted.push_back(2);
    const int above = i < rowSize ? 0 : rows[i - rowSize];
    predicted.push_back(static_cast<char>(rows[i] - above));
  }
  return predicted;
}

void AppendBigEndian(std::string& out, std::uint64_t value, int bytes) {
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
    out.push_back(static_cast<char>(value >> shift));
  }
}

}  // namespace

PdfFile::PdfFile(const ByteSink& sink) : sink_(sink) {
  Emit(kHeader);
}

PdfReference PdfFile::Reserve() {
  entries_.push_back(kNotWritten);
  return {static_cast<std::uint32_t>(entries_.size())};
}

void PdfFile::SetEntry(PdfReference object, std::uint64_t entry) {
  assert(object.number >= 1 && entries_[object.number - 1] == kNotWritten);
  entries_[object.number - 1] = entry;
}

void PdfFile::WriteObject(PdfReference object, const PdfDictionary& dictionary) {
  if (packedStream_.number == 0) packedStream_ = Reserve();
  SetEntry(object, kPacked | std::uint64_t{packedStream_.number} << kPackedIndexBits |
                       std::uint64_t{packedCount_});
  AppendInteger(packedIndex_, object.number);
  packedIndex_.push_back(' ');
  AppendInteger(packedIndex_, static_cast<std::int64_t>(packedObjects_.size()));
  packedIndex_.push_back(' ');
  AppendObject(packedObjects_, dictionary);
  packedObjects_.push_back('\n');
  if (++packedCount_ == kObjectsPerStream) FlushObjectStream();
}

void PdfFile::FlushObjectStream() {
  if (packedStream_.number == 0) return;
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"ObjStm"});
  dictionary.Put("N", packedCount_).Put("First", packedIndex_.size());
  WriteStream(packedStream_, std::move(dictionary), packedIndex_ + packedObjects_);
  packedStream_ = {};
  packedCount_ = 0;
  packedIndex_.clear();
  packedObjects_.clear();
}

void PdfFile::WriteStream(PdfReference stream, PdfDictionary dictionary, std::string_view data) {
  dictionary.Put("Filter", PdfName{"FlateDecode"});
  WriteEncodedStream(stream, std::move(dictionary), deflater_.Compress(data));
}

void PdfFile::WriteEncodedStream(PdfReference stream, PdfDictionary dictionary,
                                 std::string_view data) {
  SetEntry(stream, offset_);
  dictionary.Put("Length", data.size());
  std::string head;
  AppendInteger(head, stream.number);
  head += " 0 obj\n";
  AppendObject(head, dictionary);
  head += "stream\n";
  Emit(head);
  Emit(data);
  Emit("\nendstream\nendobj\n");
}

void PdfFile::Finish(PdfReference catalog, PdfReference information) {
  FlushObjectStream();
  const PdfReference table = Reserve();
  const std::uint64_t tableOffset = offset_;
  // Both the largest offset and the largest object number must fit the second field.
  const int bits = static_cast<int>(std::bit_width(tableOffset | entries_.size()));
  const int offsetBytes = (bits + 7) / 8;
  const int rowBytes = offsetBytes + 2;

  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"XRef"}).Put("Size", entries_.size() + 1);
  dictionary.Put("W", PdfArray().Add(1).Add(offsetBytes).Add(1));
  dictionary.Put("DecodeParms", PdfDictionary().Put("Predictor", 12).Put("Columns", rowBytes));
  dictionary.Put("Root", catalog).Put("Info", information);

  // The table lists itself, too.
  entries_[table.number - 1] = tableOffset;
  const std::string rows = CrossReferenceRows(offsetBytes);
  entries_[table.number - 1] = kNotWritten;
  WriteStream(table, std::move(dictionary), PredictUp(rows, static_cast<std::size_t>(rowBytes)));

  std::string tail = "startxref\n";
  AppendInteger(tail, static_cast<std::int64_t>(tableOffset));
  tail += "\n%%EOF\n";
  Emit(tail);
  FlushOutput();
}

std::string PdfFile::CrossReferenceRows(int offsetBytes) const {
  std::string rows;
  const auto addRow = [&](std::uint64_t type, std::uint64_t second, std::uint64_t third) {
    AppendBigEndian(rows, type, 1);
    AppendBigEndian(rows, second, offsetBytes);
    AppendBigEndian(rows, third, 1);
  };
  addRow(0, 0, 255);  // object 0 heads the list of free objects
  for (const std::uint64_t entry : entries_) {
    assert(entry != kNotWritten);
    if ((entry & kPacked) == 0) {
      addRow(1, entry, 0);
    } else {
      addRow(2, (entry & ~kPacked) >> kPackedIndexBits, entry & ((1 << kPackedIndexBits) - 1));
    }
  }
  return rows;
}

void PdfFile::Emit(std::string_view bytes) {
  offset_ += bytes.size();
  if (bytes.size() >= kOutputChunk) {
    if (!output_.empty()) FlushOutput();
    sink_({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    return;
  }
  output_ += bytes;
  if (output_.size() >= kOutputChunk) FlushOutput();
}

void PdfFile::FlushOutput() {
  sink_({reinterpret_cast<const std::uint8_t*>(output_.data()), output_.size()});
  output_.clear();
}

// A full node is closed only when the next kid arrives, so that the last one can become the root.
PageTree::Node& PageTree::OpenNode(std::size_t level) {
  if (level == levels_.size()) levels_.push_back({file_.Reserve(), 0, {}});
  if (levels_[level].kids.size() == kKids) {
    Close(level);
    levels_[level] = {file_.Reserve(), 0, {}};
  }
  return levels_[level];
}

void PageTree::Close(std::size_t level) {
  Node& parent = OpenNode(level + 1);
  const Node& node = levels_[level];
  parent.kids.push_back(node.object);
  parent.pages += node.pages;
  Write(node, parent.object, {});
}

PdfReference PageTree::Add(PdfReference page) {
  Node& leaf = OpenNode(0);
  leaf.kids.push_back(page);
  ++leaf.pages;
  pages_.push_back(page);
  return leaf.object;
}

PdfReference PageTree::Finish(const PdfDictionary& inherited) {
  assert(!levels_.empty());
  for (std::size_t level = 0; level + 1 < levels_.size(); ++level) Close(level);
  Write(levels_.back(), {}, inherited);
  return levels_.back().object;
}

void PageTree::Write(const Node& node, PdfReference parent, const PdfDictionary& inherited) {
  PdfArray kids;
  for (const PdfReference kid : node.kids) kids.Add(kid);
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"Pages"});
  if (parent.number != 0) dictionary.Put("Parent", parent);
  dictionary.Put("Count", node.pages).Put("Kids", kids).PutAll(inherited);
  file_.WriteObject(node.object, dictionary);
}

}  // namespace pagivo::native
