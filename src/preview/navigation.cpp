// Moving between pages, and the page box that follows.
#include <cstdint>
#include <string>

#include "preview/frm_afdrukken.h"
#include "preview/frm_ga_naar.h"
#include "values/conversions.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

// Beyond the bottom of any page, in twips; the engine limits it.
constexpr double kBottom = 32000;

bool ShowsTwoPages(PrintEngine& engine) {
  return engine.GetZoomMode() == kZoomTwoPages;
}

void ShowPage(PrintEngine& engine, std::int16_t page) {
  engine.PutPreviewPage(page);
}

// The last pair of the two-page view, or the last page.
std::int16_t LastView(PrintEngine& engine) {
  const std::int16_t last = LastPageOf(engine);
  if (last % 2 == 0 && ShowsTwoPages(engine)) return SubtractIntegers(last, 1);
  return last;
}

void ShowNext(PrintEngine& engine, std::int16_t step) {
  const std::int16_t next = AddIntegers(engine.GetPreviewPage(), step);
  if (next <= LastPageOf(engine)) ShowPage(engine, next);
}

void ShowAskedPage(PrintEngine& engine, std::int32_t page) {
  // Pairs start at odd pages.
  if (page % 2 == 0 && ShowsTwoPages(engine)) --page;
  if (page < 1) {
    ShowPage(engine, 1);
  } else if (page > LastPageOf(engine)) {
    ShowPage(engine, LastPageOf(engine));
  } else {
    ShowPage(engine, static_cast<std::int16_t>(page));
  }
}

// At the bottom of the page the key goes on to the next one; else the engine scrolls by itself.
void ArrowDown(PrintEngine& engine, std::int16_t& keyCode) {
  const std::int32_t old = ToLong(engine.GetScrollTop());
  engine.PutScrollTop(kBottom);
  if (ToLong(engine.GetScrollTop()) != old) {
    engine.PutScrollTop(old);
    return;
  }
  ShowPage(engine, AddIntegers(engine.GetPreviewPage(), 1));
  engine.PutScrollTop(0);
  keyCode = 0;
}

void ArrowUp(PrintEngine& engine, std::int16_t& keyCode) {
  if (engine.GetScrollTop() != 0 || engine.GetPreviewPage() <= 1) return;
  ShowPage(engine, SubtractIntegers(engine.GetPreviewPage(), 1));
  engine.PutScrollTop(kBottom);
  keyCode = 0;
}

}  // namespace

std::int16_t LastPageOf(PrintEngine& engine) {
  return SubtractIntegers(engine.GetPageCount(), 1);
}

void frmAfdrukken::ZetPaginaNummer() {
  const auto engine = vsPrint();
  const std::int16_t page = engine->GetPreviewPage();
  std::string pages = std::to_string(page);
  if (ShowsTwoPages(*engine)) {
    if (page == LastPageOf(*engine)) {
      engine->PutZoomMode(kZoomWholePage);
    } else {
      engine->PutZoomMode(kZoomTwoPages);
      pages += " + " + std::to_string(AddIntegers(page, 1));
    }
  }
  txtPaginanummer().PutText(pages + "/" + std::to_string(LastPageOf(*engine)));
  txtPaginanummer().Refresh();
}

void frmAfdrukken::BladerNaar(std::int16_t richting) {
  const auto self = shared_from_this();
  const auto engine = vsPrint();
  const std::int16_t step = ShowsTwoPages(*engine) ? 2 : 1;
  switch (richting) {
    case 0:
      ShowPage(*engine, 1);
      break;
    case 1:
      // Unchecked: the engine keeps its first page when it is asked for one before it.
      ShowPage(*engine, SubtractIntegers(engine->GetPreviewPage(), step));
      break;
    case 2:
      ShowNext(*engine, step);
      break;
    case 3:
      ShowPage(*engine, LastView(*engine));
      break;
    default:
      break;
  }
  ShowTurnedPage();
}

void frmAfdrukken::GaNaarPagina(std::string_view typed) {
  const auto self = shared_from_this();
  const auto engine = vsPrint();
  const auto dialog = [this]() -> frmGaNaar& {
    return GoToDialog(state_.contents, state_.GoToPageResult);
  };
  if (!typed.empty()) dialog().BeginWith(typed);
  dialog().ShowModal();
  // A host may have discarded the window meanwhile.
  if (!IsLoaded()) return;
  const std::int32_t page = state_.GoToPageResult;
  if (page > 0) ShowAskedPage(*engine, page);
  ShowTurnedPage();
}

void frmAfdrukken::ShowTurnedPage() {
  // A host that hears of the turning may have discarded the window.
  if (!IsLoaded()) return;
  ZetPaginaNummer();
  PreviewSurface().Focus();
}

void frmAfdrukken::KeyDown(std::int16_t& keyCode, std::int16_t) {
  const auto self = shared_from_this();
  const auto engine = vsPrint();
  if (keyCode == kKeyDown) {
    ArrowDown(*engine, keyCode);
  } else if (keyCode == kKeyUp) {
    ArrowUp(*engine, keyCode);
  }
  if (IsLoaded()) AfterPageChange();
}

bool frmAfdrukken::OnUnusedKey(std::int16_t keyCode, std::int16_t shift) {
  const char digit = DigitOf(keyCode, shift);
  if (digit == 0) return false;
  GaNaarPagina({&digit, 1});
  return true;
}

void frmAfdrukken::BeforePageChange(std::int16_t& page) {
  const auto engine = vsPrint();
  // The empty page at the document's end is never shown.
  if (page == engine->GetPageCount()) page = LastPageOf(*engine);
}

void frmAfdrukken::AfterPageChange() {
  ZetPaginaNummer();
}

}  // namespace pagivo
