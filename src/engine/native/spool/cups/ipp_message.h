// IPP messages: requests, answers, and what answers say of printers.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/native/spool/cups/server_libraries.h"
#include "engine/native/spool/print_server.h"

namespace pagivo::native {

struct IppDeleter {
  void operator()(ipp_t* message) const noexcept { ippDelete(message); }
};
using IppMessage = std::unique_ptr<ipp_t, IppDeleter>;

// A request in the name of the environment's user. It goes to a printer or, when the address is
// empty, to the server.
IppMessage NewRequest(ipp_op_t operation, const std::string& printerUri);

void AddText(ipp_t* message, ipp_tag_t group, ipp_tag_t kind, const char* name,
             const std::string& value);
void AddRequestedAttributes(ipp_t* request, std::span<const char* const> names);

// The values of an attribute in a message or collection. They are empty when it is not there.
std::string TextOf(ipp_attribute_t* attribute);
std::vector<std::string> TextsOf(ipp_attribute_t* attribute);
std::vector<ipp_t*> CollectionsOf(ipp_attribute_t* attribute);  // borrowed
ipp_attribute_t* Find(ipp_t* message, const char* name);

// A message's bytes as they go to a server.
std::vector<std::uint8_t> BytesOf(ipp_t* message);

// Collections in an answer may be nested this deep. libcups reads each in a call of its own.
inline constexpr int kDeepestNesting = 16;
// Reads what came from a server. Null when it is no message, or nested deeper than that.
IppMessage ParseAnswer(std::span<const std::uint8_t> bytes);
// The status of a message that was parsed. Servers may say any number.
int StatusOf(std::span<const std::uint8_t> answer);

// The attributes to ask for, and the printers that an answer with them describes.
extern const std::vector<const char*> kPrinterAttributes;
std::vector<Printer> ReadPrinters(ipp_t* answer);

// The attributes to ask for, and the paper of the printer that an answer with them describes.
extern const std::vector<const char*> kMediaAttributes;
PrinterMedia ReadMedia(ipp_t* answer);

}  // namespace pagivo::native
