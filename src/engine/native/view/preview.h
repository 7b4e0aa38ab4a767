// The preview of a document: which of its pages are visible, how large and where, and every way in
// which that changes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/native/document/document.h"
#include "engine/native/view/page_placement.h"
#include "engine/native/view/preview_state.h"
#include "engine/print_engine.h"

namespace pagivo::native {

// Where a preview finds what it shows.
class PreviewSource {
 public:
  // The document as it is now. Another one may take its place; the preview is told of that.
  virtual const Document& GetDocument() const noexcept = 0;
  // The paper of page 1 as long as the document has no pages.
  virtual PageGeometry BlankPage() const noexcept = 0;
  // What a user who looks at the document must not miss; empty when there is nothing to say.
  virtual std::string_view Notice() const noexcept = 0;

 protected:
  ~PreviewSource() = default;
};

// Hears what happens to a preview.
class PreviewObserver {
 public:
  // Something visible may look different now, or be elsewhere.
  virtual void ViewChanged() = 0;
  // There is another document, and the one before is gone.
  virtual void DocumentReplaced() = 0;

 protected:
  ~PreviewObserver() = default;
};

// What the host puts and what the user does meet here, and here alone the window's events are
// raised. A handler of an event may do anything, discard the window and its engine too: whoever
// lets the user act holds the preview meanwhile.
class Preview final : private PageSource {
 public:
  enum class Direction : std::int8_t { Back = -1, Forward = 1 };

  // `source` outlives the preview.
  explicit Preview(const PreviewSource& source) : source_(source) {}
  Preview(const Preview&) = delete;
  Preview& operator=(const Preview&) = delete;

  // The window that wants the events, or null. Borrowed.
  void SetEvents(PrintEngineEvents* events) noexcept { events_ = events; }
  // Who is told of changes, or null. Borrowed; the last one who asks is told.
  void Observe(PreviewObserver* observer);
  void StopObserving(const PreviewObserver& observer) noexcept;

  // --- What the document's owner tells --------------------------------------------------------
  // The new document is shown from its first page on, which raises no event.
  void DocumentReplaced();
  // Of the many pages of a document few are visible, so most changes of pages concern nobody.
  void PageChanged(std::int32_t page);
  void ViewChanged();

  // --- What the host reads and puts -----------------------------------------------------------
  std::int32_t Page() const noexcept { return state_.Page(); }
  // Below 1 means page 1, above the count the last one. A change asks BeforePageChange, which may
  // choose another page, and raises AfterPageChange.
  void ShowPage(std::int32_t page);
  std::int32_t ZoomMode() const noexcept { return state_.ZoomMode(); }
  double Zoom() const { return state_.Zoom(PagesInView()); }
  double ScrollTop() const { return state_.ScrollTop(PagesInView()); }
  // Windows put mode and zoom again after every key, so what is in force already is no change.
  void PutZoomMode(std::int32_t mode);
  void PutZoom(double percent);
  void PutScrollTop(double top);

  // --- What is visible ------------------------------------------------------------------------
  const PreviewSource& Source() const noexcept { return source_; }
  const SurfaceArea& Area() const noexcept { return state_.Area(); }
  // No change that the observer is told of.
  void PutArea(const SurfaceArea& area);
  // The visible pages. Asks BeforePageChange which pages may stand beside the shown one.
  const PageLayout& Layout();
  // Whether a page that does not fit scrolls in the present mode, how far it is scrolled, and how
  // far it can be.
  bool Scrolls() const noexcept { return state_.Scrolls(); }
  ScrollPosition Scrolled() const { return state_.Scrolled(PagesInView()); }
  ScrollPosition MaximumScroll() const { return state_.MaximumScroll(PagesInView()); }
  // What an arrow scrolls, device pixels.
  std::int32_t ScrollStep() const;

  // --- What the user does ---------------------------------------------------------------------
  // The window hears of a key first. It sets the key code to 0 when it consumes the key.
  void RaiseKeyDown(std::int16_t& keyCode, std::int16_t shift);
  void ScrollTo(const ScrollPosition& position);
  // Whether there was anything left to scroll.
  bool ScrollBy(double right, double down);
  // Scrolls, or turns to the view before or behind when there is nothing left to scroll.
  void ScrollDown(double pixels);
  void ScrollSideways(double pixels);
  // The screenful, pair or page before or behind, from its bottom or top.
  void TurnView(Direction direction);
  // The same, but only a row of the overview.
  void TurnRow(Direction direction);
  void ShowFirstPage();
  void ShowLastPage();
  // Shows that page as a whole.
  void OpenPage(std::int32_t page);
  // Raises AfterPageChange too, for the window's page box names the visible pages, which depend on
  // the mode.
  void ShowInMode(std::int32_t mode);
  // A step of zoom. The place of the page at that point stays there as far as the page can be
  // scrolled, and its page becomes the shown one.
  void ZoomAt(SurfacePoint at, Direction direction);
  void ZoomInMiddle(Direction direction);

 private:
  std::int32_t PageCount() const override { return source_.GetDocument().PageCount(); }
  PageGeometry GeometryOf(std::int32_t page) const override;
  bool IsAdmitted(std::int32_t page) override { return AdmittedPage(page) == page; }

  std::int32_t Clamp(std::int32_t page) const;
  ShownPages PagesInView() const;
  std::int32_t AdmittedPage(std::int32_t page);
  std::int32_t LastPage() { return AdmittedPage(PageCount()); }
  void RaiseAfterPageChange();
  void TurnBy(std::int32_t pages, Direction direction);

  const PreviewSource& source_;
  PrintEngineEvents* events_ = nullptr;
  PreviewObserver* observer_ = nullptr;
  PreviewState state_;
  std::optional<PageLayout> layout_;  // until something changes
};

}  // namespace pagivo::native
