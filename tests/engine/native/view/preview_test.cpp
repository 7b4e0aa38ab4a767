// A preview by itself, of a document that no engine keeps.
#include "engine/native/view/preview.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "engine/native/document/recorder.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Source final : public PreviewSource {
 public:
  Document document;

  const Document& GetDocument() const noexcept override { return document; }
  PageGeometry BlankPage() const noexcept override { return {6000, 9000}; }
  std::string_view Notice() const noexcept override { return {}; }
};

class Observer final : public PreviewObserver {
 public:
  std::vector<std::string> told;

  void ViewChanged() override { told.emplace_back("view"); }
  void DocumentReplaced() override { told.emplace_back("document"); }
};

// Turns pages away, and may do something at each question.
class Host final : public PrintEngineEvents {
 public:
  std::vector<std::int16_t> asked;
  std::int16_t turnedAway = 0;
  std::function<void()> atQuestion = [] {};
  int afterwards = 0;

  void KeyDown(std::int16_t&, std::int16_t) override {}
  void BeforePageChange(std::int16_t& page) override {
    asked.push_back(page);
    atQuestion();
    if (page == turnedAway) --page;
  }
  void AfterPageChange() override { ++afterwards; }
};

class PreviewAlone : public testing::Test {
 protected:
  PreviewAlone() {
    preview.SetEvents(&host);
    preview.Observe(&observer);
    preview.PutArea({816, 1216, 1});
  }
  // Pages of 800 x 1200 pixels at 100 percent.
  void Compose(int pages) {
    Recorder recorder(source.document);
    for (int page = 0; page < pages; ++page) recorder.BeginPage({12000, 18000});
  }
  std::vector<std::int32_t> VisiblePages() {
    std::vector<std::int32_t> visible;
    for (const PlacedPage& placed : preview.Layout().pages) visible.push_back(placed.page);
    return visible;
  }

  Source source;
  Host host;
  Observer observer;
  Preview preview{source};
};

TEST_F(PreviewAlone, WithoutPagesShowsNothingAndFitsTheBlankPage) {
  EXPECT_THAT(VisiblePages(), IsEmpty());
  EXPECT_NEAR(preview.Zoom(), 200, 1e-9);
  preview.ShowPage(3);
  EXPECT_EQ(preview.Page(), 1);
  EXPECT_THAT(host.asked, IsEmpty());
}

TEST_F(PreviewAlone, AsksForTheNeighbourOnceAsLongAsNothingChanges) {
  Compose(5);
  preview.PutZoomMode(kZoomTwoPages);
  EXPECT_THAT(VisiblePages(), ElementsAre(1, 2));
  EXPECT_THAT(VisiblePages(), ElementsAre(1, 2));
  EXPECT_THAT(host.asked, ElementsAre(2));
  preview.PageChanged(5);
  VisiblePages();
  EXPECT_THAT(host.asked, ElementsAre(2)) << "page 5 is not visible";
  host.turnedAway = 2;
  preview.PageChanged(2);
  EXPECT_THAT(VisiblePages(), ElementsAre(1));
  EXPECT_THAT(host.asked, ElementsAre(2, 2));
}

TEST_F(PreviewAlone, TellsWhoObservesOfEveryChangeAndOfNothingElse) {
  Compose(5);
  preview.ShowPage(2);
  preview.PutZoomMode(kZoomPageWidth);
  preview.PutZoomMode(kZoomPageWidth);
  preview.PutArea({600, 400, 1});
  preview.ScrollTo({0, 50});
  preview.ScrollTo({0, 50});
  EXPECT_THAT(observer.told, ElementsAre("view", "view", "view"));
  preview.DocumentReplaced();
  EXPECT_THAT(observer.told.back(), "document");
  EXPECT_EQ(preview.Page(), 1);
  EXPECT_EQ(host.afterwards, 1) << "another document is no event of the window";
}

TEST_F(PreviewAlone, OnlyWhoObservesCanStopObserving) {
  Observer other;
  preview.StopObserving(other);
  preview.ViewChanged();
  preview.StopObserving(observer);
  preview.ViewChanged();
  EXPECT_THAT(observer.told, ElementsAre("view"));
}

TEST_F(PreviewAlone, GoesOnWithoutAWindowThatLeavesDuringItsOwnEvent) {
  Compose(5);
  host.atQuestion = [this] { preview.SetEvents(nullptr); };
  preview.ShowPage(4);
  EXPECT_EQ(preview.Page(), 4);
  EXPECT_EQ(host.afterwards, 0);
  preview.TurnView(Preview::Direction::Forward);
  EXPECT_EQ(preview.Page(), 5);
  EXPECT_THAT(host.asked, ElementsAre(4));
}

TEST_F(PreviewAlone, TurnsARowOfTheOverviewOrElseAView) {
  Compose(20);
  preview.PutArea({840, 624, 1});  // four by two
  preview.PutZoomMode(kZoomOverview);
  preview.TurnRow(Preview::Direction::Forward);
  EXPECT_EQ(preview.Page(), 5);
  preview.TurnView(Preview::Direction::Forward);
  EXPECT_EQ(preview.Page(), 13);
  preview.OpenPage(13);
  EXPECT_EQ(preview.ZoomMode(), kZoomWholePage);
  preview.TurnRow(Preview::Direction::Back);
  EXPECT_EQ(preview.Page(), 12);
}

}  // namespace
}  // namespace pagivo::native
