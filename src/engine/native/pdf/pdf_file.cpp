#include "engine/native/pdf/pdf_file.h"

#include <bit>
#include <cassert>

#include "engine/native/pdf/number_format.h"

namespace pagivo::native {
namespace {

constexpr std::size_t kOutputChunk = std::size_t{64} << 10;

// The index in an object stream takes one byte of the cross-reference table.
constexpr std::uint32_t kObjectsPerStream = 200;

constexpr std::uint64_t kNotWritten = UINT64_MAX;
constexpr std::uint64_t kPacked = std::uint64_t{1} << 63;
constexpr unsigned kPackedIndexBits = 8;

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

void AppendReference(std::string& out, ObjectNumber number) {
  AppendInteger(out, number);
  out += " 0 R";
}

PdfFile::PdfFile(const ByteSink& sink) : sink_(sink) {
  Emit(kHeader);
}

ObjectNumber PdfFile::Reserve() {
  entries_.push_back(kNotWritten);
  return static_cast<ObjectNumber>(entries_.size());
}

void PdfFile::SetEntry(ObjectNumber number, std::uint64_t entry) {
  assert(number >= 1 && entries_[number - 1] == kNotWritten);
  entries_[number - 1] = entry;
}

void PdfFile::WriteObject(ObjectNumber number, std::string_view value) {
  if (packedStream_ == 0) packedStream_ = Reserve();
  SetEntry(number, kPacked | std::uint64_t{packedStream_} << kPackedIndexBits | packedCount_);
  AppendInteger(packedIndex_, number);
  packedIndex_.push_back(' ');
  AppendInteger(packedIndex_, static_cast<std::int64_t>(packedObjects_.size()));
  packedIndex_.push_back(' ');
  packedObjects_.append(value).push_back('\n');
  if (++packedCount_ == kObjectsPerStream) FlushObjectStream();
}

void PdfFile::FlushObjectStream() {
  if (packedStream_ == 0) return;
  std::string entries = "/Type/ObjStm/N ";
  AppendInteger(entries, packedCount_);
  entries += "/First ";
  AppendInteger(entries, static_cast<std::int64_t>(packedIndex_.size()));
  WriteStream(packedStream_, entries, packedIndex_ + packedObjects_);
  packedStream_ = 0;
  packedCount_ = 0;
  packedIndex_.clear();
  packedObjects_.clear();
}

void PdfFile::WriteStream(ObjectNumber number, std::string_view entries, std::string_view data) {
  std::string all(entries);
  all += "/Filter/FlateDecode";
  WriteEncodedStream(number, all, deflater_.Compress(data));
}

void PdfFile::WriteEncodedStream(ObjectNumber number, std::string_view entries,
                                 std::string_view data) {
  SetEntry(number, offset_);
  std::string head;
  AppendInteger(head, number);
  head.append(" 0 obj\n<<").append(entries).append("/Length ");
  AppendInteger(head, static_cast<std::int64_t>(data.size()));
  head += ">>stream\n";
  Emit(head);
  Emit(data);
  Emit("\nendstream\nendobj\n");
}

void PdfFile::Finish(std::string_view trailerEntries) {
  FlushObjectStream();
  const ObjectNumber table = Reserve();
  const std::uint64_t tableOffset = offset_;
  // Both the largest offset and the largest object number must fit the second field.
  const int bits = static_cast<int>(std::bit_width(tableOffset | entries_.size()));
  const int offsetBytes = (bits + 7) / 8;

  std::string entries = "/Type/XRef/Size ";
  AppendInteger(entries, static_cast<std::int64_t>(entries_.size() + 1));
  entries += "/W[1 ";
  AppendInteger(entries, offsetBytes);
  entries += " 1]/DecodeParms<</Predictor 12/Columns ";
  AppendInteger(entries, offsetBytes + 2);
  entries.append(">>").append(trailerEntries);

  // The table lists itself, too.
  entries_[table - 1] = tableOffset;
  const std::string rows = CrossReferenceRows(offsetBytes);
  entries_[table - 1] = kNotWritten;
  WriteStream(table, entries, PredictUp(rows, static_cast<std::size_t>(offsetBytes) + 2));

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
  output_ += bytes;
  offset_ += bytes.size();
  if (output_.size() >= kOutputChunk) FlushOutput();
}

void PdfFile::FlushOutput() {
  sink_({reinterpret_cast<const std::uint8_t*>(output_.data()), output_.size()});
  output_.clear();
}

}  // namespace pagivo::native
