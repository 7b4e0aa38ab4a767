#include "engine/native/spool/cups/ipp_message.h"

namespace pagivo::native {

IppMessage NewRequest(ipp_op_t operation, const std::string& printerUri) {
  IppMessage request(ippNewRequest(operation));
  if (!printerUri.empty()) {
    AddText(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", printerUri);
  }
  AddText(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", cupsUser());
  return request;
}

void AddText(ipp_t* message, ipp_tag_t group, ipp_tag_t kind, const char* name,
             const std::string& value) {
  ippAddString(message, group, kind, name, nullptr, value.c_str());
}

void AddRequestedAttributes(ipp_t* request, std::span<const char* const> names) {
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(names.size()), nullptr, names.data());
}

std::string TextOf(ipp_attribute_t* attribute) {
  const char* text = ippGetString(attribute, 0, nullptr);
  return text == nullptr ? std::string() : std::string(text);
}

std::vector<std::string> TextsOf(ipp_attribute_t* attribute) {
  std::vector<std::string> texts;
  for (int index = 0; index < ippGetCount(attribute); ++index) {
    if (const char* text = ippGetString(attribute, index, nullptr)) texts.emplace_back(text);
  }
  return texts;
}

std::vector<ipp_t*> CollectionsOf(ipp_attribute_t* attribute) {
  std::vector<ipp_t*> collections;
  for (int index = 0; index < ippGetCount(attribute); ++index) {
    if (ipp_t* collection = ippGetCollection(attribute, index)) collections.push_back(collection);
  }
  return collections;
}

ipp_attribute_t* Find(ipp_t* message, const char* name) {
  return ippFindAttribute(message, name, IPP_TAG_ZERO);
}

}  // namespace pagivo::native
