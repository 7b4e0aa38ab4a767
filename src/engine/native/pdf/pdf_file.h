// The structure of a PDF file: numbered objects and the table that says where they are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/native/pdf/deflater.h"
#include "engine/native/pdf/pdf_writer.h"

namespace pagivo::native {

using ObjectNumber = std::uint32_t;

// " 12 0 R" without its leading blank.
void AppendReference(std::string& out, ObjectNumber number);

// Writes to the sink as it goes and keeps eight bytes an object. Every reserved number must be
// written once, in any order, before Finish.
class PdfFile {
 public:
  // The sink must outlive the file. Whatever it raises ends the writing.
  explicit PdfFile(const ByteSink& sink);
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  ObjectNumber Reserve();

  // An object that is no stream; it is packed with others into a compressed stream of objects.
  void WriteObject(ObjectNumber number, std::string_view value);

  // A stream that the file has once, made small here. `entries` are those of its dictionary but for
  // length and filter.
  void WriteStream(ObjectNumber number, std::string_view entries, std::string_view data);

  // A stream whose data are in their final form already; `entries` name the filter.
  void WriteEncodedStream(ObjectNumber number, std::string_view entries, std::string_view data);

  // Writes what is left. `trailerEntries` name the catalog and the document information.
  void Finish(std::string_view trailerEntries);

  // For data that WriteEncodedStream takes.
  Deflater& Compressor() noexcept { return deflater_; }

 private:
  void Emit(std::string_view bytes);
  void FlushOutput();
  void FlushObjectStream();
  std::string CrossReferenceRows(int offsetBytes) const;
  void SetEntry(ObjectNumber number, std::uint64_t entry);

  const ByteSink& sink_;
  Deflater deflater_{Effort::Small};
  std::string output_;        // not yet given to the sink
  std::uint64_t offset_ = 0;  // bytes emitted

  // Where each object is: its offset in the file, or kPacked with the number of the object stream
  // and the index in it.
  std::vector<std::uint64_t> entries_;

  ObjectNumber packedStream_ = 0;  // the object stream being filled, 0 for none
  std::uint32_t packedCount_ = 0;
  std::string packedIndex_;
  std::string packedObjects_;
};

}  // namespace pagivo::native
