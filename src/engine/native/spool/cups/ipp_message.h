// IPP requests and answers, owned.
#pragma once

#include <cups/cups.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace pagivo::native {

struct IppDeleter {
  void operator()(ipp_t* message) const noexcept { ippDelete(message); }
};
using IppMessage = std::unique_ptr<ipp_t, IppDeleter>;

// A request in the name of the environment's user, to a printer or, when that is empty, the server.
IppMessage NewRequest(ipp_op_t operation, const std::string& printerUri);

void AddText(ipp_t* message, ipp_tag_t group, ipp_tag_t kind, const char* name,
             const std::string& value);
void AddRequestedAttributes(ipp_t* request, std::span<const char* const> names);

// The values of an attribute in a message or collection; a default when it is not there.
std::string TextOf(ipp_attribute_t* attribute);
std::vector<std::string> TextsOf(ipp_attribute_t* attribute);
std::vector<ipp_t*> CollectionsOf(ipp_attribute_t* attribute);  // borrowed
ipp_attribute_t* Find(ipp_t* message, const char* name);

// As it goes to a server.
std::vector<std::uint8_t> BytesOf(ipp_t* message);

// Collections in collections that an answer may have. libcups reads each in a call of its own.
inline constexpr int kDeepestNesting = 16;
// From a server. Null when it is no message, or nested deeper than that.
IppMessage ParseAnswer(std::span<const std::uint8_t> bytes);
// The status of a message that was parsed; servers may say any number.
int StatusOf(std::span<const std::uint8_t> answer);

}  // namespace pagivo::native
