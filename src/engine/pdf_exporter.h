// The contract with the PDF exporter.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/object.h"
#include "pagivo/variant.h"

namespace pagivo {

class PdfExporter : public Object {
 public:
  // Writes pages firstPage..lastPage of the engine's completed document to the named file. Raises
  // an Error when it cannot; what was there before is then untouched.
  virtual void ExportPdf(const ObjectRef& engine, const std::string& fileName,
                         std::int16_t firstPage, std::int16_t lastPage) = 0;

  // Late binding, through the table of operations.
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;
};

}  // namespace pagivo
