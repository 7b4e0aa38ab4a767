// What holds for the layout of both setup dialogs.
#include <set>

#include "engine/native/setup/page_setup_form.h"
#include "engine/native/setup/printer_setup_form.h"
#include "engine/native/setup/setup_dialog_test.h"

namespace pagivo::native {
namespace {

class DialogLayoutTest : public SetupDialogTest, public ::testing::WithParamInterface<bool> {
 protected:
  DialogLayoutTest() {
    if (GetParam()) {
      form = std::make_shared<PageSetupForm>(windows, *engine);
    } else {
      form = std::make_shared<PrinterSetupForm>(windows, *engine);
    }
    form->Load();
  }
  ~DialogLayoutTest() override { form->Unload(); }

  std::span<const std::shared_ptr<Control>> Controls() { return form->Controls().All(); }
  // The room that a control has to lie in.
  Extent RoomOf(const Control& control) {
    const Control* container = control.Container();
    if (container == nullptr) return form->Design().client;
    return {container->Width(), container->Height()};
  }

  std::shared_ptr<Form> form;
};

bool Overlap(const Control& one, const Control& other) {
  return one.Left() < other.Left() + other.Width() && other.Left() < one.Left() + one.Width() &&
         one.Top() < other.Top() + other.Height() && other.Top() < one.Top() + one.Height();
}

TEST_P(DialogLayoutTest, ControlsLieWithinWhatContainsThem) {
  for (const auto& control : Controls()) {
    const Extent room = RoomOf(*control);
    EXPECT_GT(control->Width(), 0) << control->Name();
    EXPECT_GT(control->Height(), 0) << control->Name();
    EXPECT_GE(control->Left(), 0) << control->Name();
    EXPECT_GE(control->Top(), 0) << control->Name();
    EXPECT_LE(control->Left() + control->Width(), room.width) << control->Name();
    EXPECT_LE(control->Top() + control->Height(), room.height) << control->Name();
  }
}

TEST_P(DialogLayoutTest, ControlsBesideEachOtherDoNotOverlap) {
  for (const auto& one : Controls()) {
    for (const auto& other : Controls()) {
      if (one == other || one->Container() != other->Container()) continue;
      EXPECT_FALSE(Overlap(*one, *other)) << one->Name() << ", " << other->Name();
    }
  }
}

TEST_P(DialogLayoutTest, AccessKeysAreUnique) {
  std::set<char> keys;
  for (const auto& control : Controls()) {
    if (control->AccessKey() == 0) continue;
    EXPECT_TRUE(keys.insert(control->AccessKey()).second) << control->AccessKey();
  }
  EXPECT_FALSE(keys.empty());
}

TEST_P(DialogLayoutTest, WhatHasNoCaptionHasAnAccessKeyOnTheLabelBeforeItOrANameOfItsOwn) {
  const Control* before = nullptr;
  for (const auto& control : Controls()) {
    if (control->CanTakeFocus() && control->Caption().empty()) {
      const bool isLabelled = before->Kind() == ControlKind::Label && before->AccessKey() != 0;
      EXPECT_TRUE(isLabelled || !control->Design().accessibleName.empty()) << control->Name();
    }
    before = control.get();
  }
}

TEST_P(DialogLayoutTest, TheTabOrderIsThatOfTheTable) {
  std::int16_t last = -1;
  for (const auto& control : Controls()) {
    if (control->Kind() == ControlKind::Surface) continue;
    EXPECT_EQ(control->Design().tabIndex, last + 1) << control->Name();
    last = control->Design().tabIndex;
  }
}

TEST_P(DialogLayoutTest, EnterIsOkAndEscIsAnnuleren) {
  EXPECT_EQ(form->Controls().ButtonWith(ButtonRole::Default)->Caption(), "OK");
  EXPECT_EQ(form->Controls().ButtonWith(ButtonRole::Cancel)->Caption(), "Annuleren");
  EXPECT_FALSE(form->Design().sizable);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogLayoutTest, ::testing::Bool(), [](const auto& test) {
  return test.param ? "PageSetup" : "PrinterSetup";
});

}  // namespace
}  // namespace pagivo::native
