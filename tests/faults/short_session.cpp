#include "faults/short_session.h"

#include <utility>

#include "pagivo/error.h"
#include "pagivo/page_image.h"
#include "support/data/test_data.h"

namespace pagivo::testing {

ShortSession::ShortSession(const std::string& folder)
    : pdf_(folder + "/sessie.pdf"),
      png_(folder + "/sessie.png"),
      picture_(TestDataPath("pictures/colors.png")) {}

// Whether the call succeeded.
template <typename Call>
bool ShortSession::Try(Call call) {
  try {
    call();
    return true;
  } catch (const Error&) {
    ++outcome_.errors;
  } catch (...) {
    ++outcome_.foreignExceptions;
  }
  return false;
}

SessionOutcome ShortSession::Run() {
  if (!Try([this] { print_.emplace(); })) return outcome_;
  Compose();
  NumberPages();
  std::int16_t page = 1;
  Try([&] { print_->VsPreviewFile(page); });
  outcome_.isPdfWritten = Try([this] { print_->VSPDF(pdf_); });
  outcome_.isPngWritten = Try([this] { WritePagePng(1, 72, png_); });
  Try([this] { print_->VsPPEinde(); });
  return outcome_;
}

void ShortSession::Compose() {
  Try([this] { print_->VsPPInit(); });
  Try([this] { print_->VsPPStart(nullptr); });
  Try([this] { print_->VsPPWatermerkInit(1); });
  Try([this] { print_->VsPPSetFont(fontName_, 11.0F, true, false, true); });
  for (int page = 1; page <= 2; ++page) {
    ComposePage();
    Try([this] { print_->VsPPNewPage(); });
  }
  Try([this] { print_->VsPPFinish(std::move(title_)); });
}

void ShortSession::ComposePage() {
  Try([this] { print_->VsPPPrint(text_, 1440, 1440); });
  Try([this] { print_->VsPPPrintR(rightText_, 9000, 2000); });
  Try([this] { print_->VsPPPrint(mixedText_, 1440, 2500); });
  Try([this] { print_->CallMember("VsPPPrint", byName_); });
  Try([this] { print_->VsPPLine(1440, 3000, 9000, 4000, true, true, std::int32_t{0xFF}); });
  Try([this] { print_->VsPPCircle(4000, 6000, 900); });
  Try([this] { print_->VsPPDrawPolyline(x_, y_); });
  Try([this] { print_->VsPPPicture(picture_, 1440, 9000, 3000, 10000); });
  Try([this] { print_->VsPPZetInhoud(chapter_); });
}

void ShortSession::NumberPages() {
  for (std::int16_t page = 1; page <= 2; ++page) {
    Try([&] { print_->VsPPStartOverlay(page); });
    Try([&] { print_->VsPPPrint(number_, 5000, 15000); });
    Try([this] { print_->VsPPEndOverlay(); });
  }
}

}  // namespace pagivo::testing
