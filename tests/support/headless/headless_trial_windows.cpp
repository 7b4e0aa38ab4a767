// The trial windows of programs that run without a display.
#include <memory>
#include <utility>

#include "support/trial_windows.h"
#include "support/user/headless_user.h"
#include "window/headless/headless_windows.h"

namespace pagivo::testing {

namespace {

class HeadlessTrialWindows : public TrialWindows {
 public:
  explicit HeadlessTrialWindows(std::shared_ptr<HeadlessWindows> windows)
      : TrialWindows(windows), windows_(std::move(windows)) {}

 protected:
  void Attend(Form&, const Showing& showing, Script script) override {
    if (script) {
      windows_->AddScript([script = std::move(script)](Form& form) {
        HeadlessUser user(form);
        script(form, user);
      });
    }
    showing();
  }

 private:
  std::shared_ptr<HeadlessWindows> windows_;
};

}  // namespace

std::shared_ptr<TrialWindows> MakeTrialWindows() {
  return std::make_shared<HeadlessTrialWindows>(std::make_shared<HeadlessWindows>());
}

}  // namespace pagivo::testing
