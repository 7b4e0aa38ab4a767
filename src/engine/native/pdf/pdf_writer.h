// A document's pages as a PDF 1.7 file.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "engine/native/document/document.h"

namespace pagivo::native {

// Takes the file's bytes in order. May raise Error, which ends the writing.
using ByteSink = std::function<void(std::span<const std::uint8_t>)>;

// Hears of each page before it is written. May raise Error, which ends the writing.
using PageObserver = std::function<void(std::int32_t page)>;

// Writes pages firstPage..lastPage (from 1, both inclusive, clamped by nobody: they must exist) to
// the sink as it goes; memory does not grow with the number of pages but for a few bytes each. The
// same document gives the same bytes. `observer` may be empty.
void WritePdf(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
              const ByteSink& sink, const PageObserver& observer = {});

// The same to a file: written beside the target and moved over it when complete and on disk. Raises
// ErrorNumber::FileAccess with a Dutch description naming the file and the cause; what was there
// before is then untouched and no temporary file stays behind.
void WritePdfFile(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
                  const std::string& fileName);

}  // namespace pagivo::native
