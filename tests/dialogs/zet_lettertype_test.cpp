#include "dialogs/zet_lettertype.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "pagivo/error.h"
#include "window/headless/headless_windows.h"

namespace pagivo::testing {
namespace {

constexpr std::array<ControlDesign, 3> kControls{{
    {.name = "Kader", .kind = ControlKind::Frame, .fontName = "Arial", .fontSize = 12},
    {.name = "lblStuk", .kind = ControlKind::Label, .container = "Kader", .fontName = "Arial"},
    {.name = "txtVak", .kind = ControlKind::TextBox, .fontName = "Arial"},
}};
constexpr FormDesign kDesign{
    .caption = "Proef", .client = {.width = 900, .height = 600}, .controls = kControls};

// Windows in which one control refuses every change.
class StubbornWindows : public HeadlessWindows {
 public:
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override {
    if (control.Name() != "lblStuk") return HeadlessWindows::MakeControlPeer(form, control);
    return std::make_unique<Peer>();
  }

 private:
  class Peer : public ControlPeer {
   public:
    void Update() override { throw Error(ErrorNumber::InvalidArgument, "Mislukt"); }
    void Focus() override {}
  };
};

void ExpectDialogFont(const Control& control) {
  EXPECT_EQ(control.FontName(), "Tahoma") << control.Name();
  EXPECT_EQ(control.FontSize(), 8) << control.Name();
}

TEST(ZetLettertype, GivesEveryControlTheFont) {
  const auto form = std::make_shared<Form>(std::make_shared<HeadlessWindows>(), kDesign);
  ZetLettertype(*form);
  for (const auto& control : form->Controls().All()) ExpectDialogFont(*control);
}

TEST(ZetLettertype, GoesOnWithTheNextControlWhenOneRefuses) {
  const auto form = std::make_shared<Form>(std::make_shared<StubbornWindows>(), kDesign);
  ZetLettertype(*form);
  ExpectDialogFont(form->Get("Kader"));
  ExpectDialogFont(form->Get("txtVak"));
}

// Windows that cannot be made at all.
class NoWindows : public HeadlessWindows {
 public:
  std::shared_ptr<FormPeer> MakeFormPeer(Form&) override {
    throw Error(ErrorNumber::InvalidArgument, "Er is geen beeldscherm");
  }
};

TEST(ZetLettertype, IgnoresADialogThatCannotBeLoaded) {
  const auto form = std::make_shared<Form>(std::make_shared<NoWindows>(), kDesign);
  ZetLettertype(*form);
  EXPECT_FALSE(form->IsLoaded());
}

}  // namespace
}  // namespace pagivo::testing
