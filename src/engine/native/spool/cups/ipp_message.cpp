#include "engine/native/spool/cups/ipp_message.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace pagivo::native {
namespace {

constexpr std::size_t kHeaderLength = 8;  // version, status, number of the request

// Reads a message's tags and lengths, and nothing that they are about.
class IppScanner {
 public:
  explicit IppScanner(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

  bool IsWellFormed() {
    if (!Skip(kHeaderLength)) return false;
    int depth = 0;
    while (!rest_.empty()) {
      const std::size_t tag = Byte();
      if (tag == IPP_TAG_END) return depth == 0;
      if (tag < IPP_TAG_UNSUPPORTED_VALUE) continue;
      if (tag == IPP_TAG_BEGIN_COLLECTION && ++depth > kDeepestNesting) return false;
      if (tag == IPP_TAG_END_COLLECTION && --depth < 0) return false;
      if (!SkipText() || !SkipText()) return false;  // name and value
    }
    return false;
  }

 private:
  std::size_t Byte() {
    const std::size_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
  }
  bool Skip(std::size_t count) {
    if (rest_.size() < count) return false;
    rest_ = rest_.subspan(count);
    return true;
  }
  // Two bytes of length, and so many bytes.
  bool SkipText() {
    if (rest_.size() < 2) return false;
    const std::size_t high = Byte();
    return Skip(high * 256 + Byte());
  }

  std::span<const std::uint8_t> rest_;
};

ssize_t AppendTo(void* bytes, ipp_uchar_t* data, size_t length) {
  auto& all = *static_cast<std::vector<std::uint8_t>*>(bytes);
  all.insert(all.end(), data, data + length);
  return static_cast<ssize_t>(length);
}

ssize_t TakeFrom(void* bytes, ipp_uchar_t* buffer, size_t length) {
  auto& rest = *static_cast<std::span<const std::uint8_t>*>(bytes);
  const std::size_t count = std::min(length, rest.size());
  std::ranges::copy(rest.first(count), buffer);
  rest = rest.subspan(count);
  return static_cast<ssize_t>(count);
}

}  // namespace

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

std::vector<std::uint8_t> BytesOf(ipp_t* message) {
  std::vector<std::uint8_t> bytes;
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA && state != IPP_STATE_ERROR) {
    state = ippWriteIO(&bytes, AppendTo, 1, nullptr, message);
  }
  return bytes;
}

IppMessage ParseAnswer(std::span<const std::uint8_t> bytes) {
  if (!IppScanner(bytes).IsWellFormed()) return nullptr;
  IppMessage message(ippNew());
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA && state != IPP_STATE_ERROR) {
    state = ippReadIO(&bytes, TakeFrom, 1, nullptr, message.get());
  }
  return state == IPP_STATE_ERROR ? nullptr : std::move(message);
}

int StatusOf(std::span<const std::uint8_t> answer) {
  return answer[2] * 256 + answer[3];
}

ipp_attribute_t* Find(ipp_t* message, const char* name) {
  return ippFindAttribute(message, name, IPP_TAG_ZERO);
}

}  // namespace pagivo::native
