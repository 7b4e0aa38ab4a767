#include "engine/native/spool/cups/printer_attributes.h"

#include <algorithm>
#include <string_view>

#include "engine/native/spool/cups/ipp_message.h"

namespace pagivo::native {

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
