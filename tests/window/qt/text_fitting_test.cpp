// A text that is wider than its box.
#include <QFontMetrics>
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

TEST_F(TextFitting, TellsInTheToolTipWhatCannotBeMadeToFit) {
  ShowText("30001 + 30002/32766", [](QLineEdit& edit) {
    EXPECT_GT(WidthOf(edit), edit.width());
    EXPECT_EQ(edit.toolTip(), edit.text());
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
