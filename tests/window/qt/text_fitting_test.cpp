// A text that is wider than its box, or than its label.
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <string>

#include "window/qt/qt_test.h"
#include "window/text_box.h"

namespace pagivo {
namespace {

constexpr ControlDesign kControls[] = {
    {.name = "pages", .kind = ControlKind::TextBox, .placement = {0, 0, 600, 330}, .tabIndex = 0},
};
constexpr FormDesign kDesign{
    .caption = "Vak", .client = {.width = 3000, .height = 600}, .controls = kControls};

class TextFitting : public testing::QtWindowsTest {
 protected:
  // The box with this text as it is shown.
  void ShowText(const std::string& text, const std::function<void(QLineEdit& edit)>& look) {
    const auto form = MakeForm(kDesign);
    Show(*form, [&](QWidget& window) {
      form->Get<TextBox>("pages").PutText(text);
      look(Find<QLineEdit>(window, "pages"));
    });
  }

  static int WidthOf(const QLineEdit& edit) {
    return QFontMetrics(edit.font()).horizontalAdvance(edit.text());
  }
};

TEST_F(TextFitting, LeavesATextThatFitsAsItIs) {
  ShowText("3/16", [](QLineEdit& edit) {
    EXPECT_EQ(edit.font().stretch(), QFont().stretch());
    EXPECT_TRUE(edit.toolTip().isEmpty());
  });
}

TEST_F(TextFitting, NarrowsATextThatIsWiderThanItsBox) {
  ShowText("13 + 14/16", [](QLineEdit& edit) {
    EXPECT_LT(edit.font().stretch(), 100);
    EXPECT_LE(WidthOf(edit), edit.width() - 6);
  });
}

TEST_F(TextFitting, ShowsEveryPageOfEveryDocumentWholeAndTellsItInTheToolTipToo) {
  for (const char* pages : {"999 + 1000/5000", "30001 + 30002/32766", "32765 + 32766/32766"}) {
    ShowText(pages, [](QLineEdit& edit) {
      EXPECT_LE(WidthOf(edit), edit.width() - 6);
      EXPECT_EQ(edit.toolTip(), edit.text());
    });
  }
}

// The columns of a widget in which anything but its ground is drawn.
int LastDrawnColumn(QWidget& widget) {
  const QImage image = widget.grab().toImage();
  for (int x = image.width() - 1; x >= 0; --x) {
    for (int y = 0; y < image.height(); ++y) {
      if (image.pixelColor(x, y).lightness() < 100) return x;
    }
  }
  return -1;
}

constexpr const char* kAddress =
    "ipp://printserver.voorbeeld.nl:631/printers/"
    "kleurenprinter-tweede-verdieping-bij-de-kopieerhoek";

class LabelFitting : public testing::QtWindowsTest {
 protected:
  // A label with so much room, in twips.
  void ShowLabel(const char* text, float height, const std::function<void(QLabel& label)>& look) {
    const ControlDesign controls[] = {
        {.name = "label", .kind = ControlKind::Label, .placement = {0, 0, 2400, height}}};
    const auto form = MakeForm(
        {.caption = "Vak", .client = {.width = 3000, .height = 1200}, .controls = controls});
    Show(*form, [&](QWidget& window) {
      form->Get("label").PutCaption(text);
      look(Find<QLabel>(window, "label"));
    });
  }
};

TEST_F(LabelFitting, ElidesWhatIsTooLongForOneLineAndHasItInTheToolTip) {
  ShowLabel(kAddress, 252, [](QLabel& label) {
    EXPECT_FALSE(label.wordWrap());
    EXPECT_EQ(label.text(), kAddress);
    EXPECT_EQ(label.toolTip(), kAddress);
    // The last thing that stands there is whole: there is room behind it.
    EXPECT_GT(LastDrawnColumn(label), label.width() / 2);
  });
}

TEST_F(LabelFitting, LeavesATextThatFitsWithoutAToolTip) {
  ShowLabel("USB001", 252, [](QLabel& label) { EXPECT_TRUE(label.toolTip().isEmpty()); });
}

TEST_F(LabelFitting, WrapsWhereThereIsRoomForSeveralLines) {
  ShowLabel("Een zin die langer is dan een regel van dit label", 600, [](QLabel& label) {
    EXPECT_TRUE(label.wordWrap());
    EXPECT_TRUE(label.toolTip().isEmpty());
  });
}

TEST_F(TextFitting, GoesBackToTheFontsOwnWidth) {
  const auto form = MakeForm(kDesign);
  Show(*form, [&](QWidget& window) {
    auto& box = form->Get<TextBox>("pages");
    box.PutText("3/16");
    const QFont own = Find<QLineEdit>(window, "pages").font();
    box.PutText("13 + 14/16");
    EXPECT_NE(Find<QLineEdit>(window, "pages").font(), own);
    box.PutText("5/16");
    EXPECT_EQ(Find<QLineEdit>(window, "pages").font(), own);
  });
}

}  // namespace
}  // namespace pagivo
