#include "engine/native/spool/cups/ipp_message.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
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

// --- Printers -----------------------------------------------------------------------------------

const std::vector<const char*> kPrinterAttributes = {
    "printer-name",  "printer-uri-supported", "device-uri",
    "printer-state", "printer-state-reasons", "printer-is-accepting-jobs"};

const std::vector<const char*> kMediaAttributes = {"media-col-default", "media-col-database",
                                                   "media-size-supported"};

namespace {

// Of a printer that has custom sizes but does not say how far they are printable: a quarter inch.
constexpr MediaMargins kUsualMargins{.left = 635, .top = 635, .right = 635, .bottom = 635};

PrinterState StateOf(int value) {
  if (value == IPP_PSTATE_PROCESSING) return PrinterState::Printing;
  return value == IPP_PSTATE_STOPPED ? PrinterState::Stopped : PrinterState::Idle;
}

void ReadAttribute(Printer& printer, ipp_attribute_t* attribute) {
  const std::string_view name = ippGetName(attribute);
  if (name == "printer-name") {
    printer.name = TextOf(attribute);
  } else if (name == "printer-uri-supported") {
    printer.uri = TextOf(attribute);
  } else if (name == "device-uri") {
    printer.deviceAddress = TextOf(attribute);
  } else if (name == "printer-state") {
    printer.state = StateOf(ippGetInteger(attribute, 0));
  } else if (name == "printer-state-reasons") {
    printer.stateReasons = TextsOf(attribute);
    std::erase(printer.stateReasons, "none");
  } else if (name == "printer-is-accepting-jobs") {
    printer.acceptsJobs = ippGetBoolean(attribute, 0) != 0;
  }
}

// A side of a size: a length, or the range of a custom size.
struct Extent {
  int lower = 0;
  int upper = 0;
};

Extent ReadExtent(ipp_t* size, const char* name) {
  ipp_attribute_t* attribute = Find(size, name);
  if (ippGetValueTag(attribute) != IPP_TAG_RANGE) {
    const int length = ippGetInteger(attribute, 0);
    return {length, length};
  }
  Extent extent;
  extent.lower = ippGetRange(attribute, 0, &extent.upper);
  return extent;
}

int MarginOf(ipp_t* medium, const char* name) {
  return std::max(0, ippGetInteger(Find(medium, name), 0));
}

MediaMargins ReadMargins(ipp_t* medium) {
  return {.left = MarginOf(medium, "media-left-margin"),
          .top = MarginOf(medium, "media-top-margin"),
          .right = MarginOf(medium, "media-right-margin"),
          .bottom = MarginOf(medium, "media-bottom-margin")};
}

void AddSize(PrinterMedia& printer, ipp_t* size, const MediaMargins& margins) {
  const Extent width = ReadExtent(size, "x-dimension");
  const Extent height = ReadExtent(size, "y-dimension");
  if (width.lower <= 0 || height.lower <= 0) return;
  if (width.lower == width.upper && height.lower == height.upper) {
    printer.media.push_back({.size = {width.lower, height.lower}, .margins = margins});
  } else {
    printer.custom.push_back({.smallest = {width.lower, height.lower},
                              .largest = {width.upper, height.upper},
                              .margins = margins});
  }
}

void AddMedia(PrinterMedia& printer, ipp_attribute_t* media) {
  for (ipp_t* medium : CollectionsOf(media)) {
    for (ipp_t* size : CollectionsOf(Find(medium, "media-size"))) {
      AddSize(printer, size, ReadMargins(medium));
    }
  }
}

// What the database leaves out: custom ranges often, and everything with old servers.
void AddMissing(PrinterMedia& printer, ipp_attribute_t* sizes) {
  const MediaMargins margins =
      printer.media.empty() ? kUsualMargins : printer.media.front().margins;
  PrinterMedia all;
  for (ipp_t* size : CollectionsOf(sizes)) AddSize(all, size, margins);
  if (printer.media.empty()) printer.media = all.media;
  if (printer.custom.empty()) printer.custom = all.custom;
}

}  // namespace

// Each printer is a group of attributes; groups are separated by an attribute of no group.
std::vector<Printer> ReadPrinters(ipp_t* answer) {
  std::vector<Printer> printers;
  bool isNew = true;
  for (auto* attribute = ippFirstAttribute(answer); attribute != nullptr;
       attribute = ippNextAttribute(answer)) {
    if (ippGetGroupTag(attribute) != IPP_TAG_PRINTER || ippGetName(attribute) == nullptr) {
      isNew = true;
      continue;
    }
    if (isNew) printers.emplace_back();
    isNew = false;
    ReadAttribute(printers.back(), attribute);
  }
  std::erase_if(printers,
                [](const Printer& printer) { return printer.name.empty() || printer.uri.empty(); });
  return printers;
}

// The default medium first: where the same size is there with several margins, it counts.
PrinterMedia ReadMedia(ipp_t* answer) {
  PrinterMedia printer;
  AddMedia(printer, Find(answer, "media-col-default"));
  AddMedia(printer, Find(answer, "media-col-database"));
  AddMissing(printer, Find(answer, "media-size-supported"));
  return printer;
}

}  // namespace pagivo::native
