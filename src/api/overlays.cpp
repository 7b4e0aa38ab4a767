// Drawing over finished pages, and the watermark.
#include "api/engine_access.h"
#include "pagivo/pg_print.h"

namespace pagivo {

namespace {

// Of the watermark picture from the page's left and top, and from its right and bottom, in twips.
constexpr std::int16_t kNearInset = 50;
constexpr double kFarInset = 100;

bool IsWatermark(std::int16_t number) {
  return number >= 1 && number < 4;
}

}  // namespace

void PgPrint::VsPPStartOverlay(const IntegerArgument& Bladnummer) {
  IgnoringErrors([&] {
    const std::int16_t page = Bladnummer;
    if (page > 0) Engine().StartOverlay(page);
  });
}

void PgPrint::VsPPEndOverlay() {
  IgnoringErrors([] { Engine().EndOverlay(); });
}

void PgPrint::VsPPWatermerkInit(const IntegerArgument& Watermerk) {
  IgnoringErrors([&] {
    const std::int16_t watermark = Watermerk;
    if (!IsWatermark(watermark)) return;
    State().WatermarkOn = watermark;
    IgnoringErrors([this] { VsPPSetPreviewMode(1); });
    IgnoringErrors([this] { VsWatermerkAfdrukken(); });
  });
}

void PgPrint::VsWatermerkAfdrukken() {
  const std::int16_t watermark = State().WatermarkOn;
  if (!IsWatermark(watermark)) return;
  IgnoringErrors([] { Engine().PutX1(kNearInset); });
  IgnoringErrors([] { Engine().PutY1(kNearInset); });
  IgnoringErrors([] { Engine().PutX2(ToDouble(Engine().GetPageWidth()) - kFarInset); });
  IgnoringErrors([] { Engine().PutY2(ToDouble(Engine().GetPageHeight()) - kFarInset); });
  IgnoringErrors([&] {
    const auto element = static_cast<std::int16_t>(watermark - 1);
    Engine().PutPicture(PreviewForm().imageWatermerk(element).Picture());
  });
}

}  // namespace pagivo
