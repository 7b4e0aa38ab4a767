// What a script does to a window in the user's place.
#pragma once

#include <cstdint>
#include <string_view>

#include "support/form_user.h"
#include "window/form.h"

namespace pagivo {

class HeadlessUser final : public FormUser {
 public:
  // The form that is shown.
  explicit HeadlessUser(Form& form) : form_(form) {}

  void Click(std::string_view control) override;
  void ClickToolbar(std::string_view toolbar, std::string_view button) override;
  void ClickToolbarMenu(std::string_view toolbar, std::string_view item) override;
  void Replace(std::string_view control, std::string_view text) override;
  void Type(std::string_view control, std::string_view text) override;
  void Erase(std::string_view control) override;
  void PressAccessKey(char letter) override;
  void Pick(std::string_view comboBox, std::int32_t item) override;
  void Scroll(std::string_view scrollBar, std::int16_t value) override;
  void ClickUpArrow(std::string_view scrollBar) override;
  void ClickDownArrow(std::string_view scrollBar) override;
  void Resize(const Extent& size) override;
  void Close() override;

 private:
  void PressKey(std::int16_t keyCode, std::int16_t shift) override;
  // Gives the control the focus and says whether the user can use it.
  bool Reach(Control& control);

  Form& form_;
};

}  // namespace pagivo
