// Hosts whose settings of the processor's floating point are others than the component's.
#include <xmmintrin.h>

#include <cfenv>
#include <cstdint>

#include "automation_test.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::automation::testing {
namespace {

// The control words of the older floating point and of the vectors.
struct Settings {
  std::uint16_t control;
  std::uint32_t vectors;

  bool operator==(const Settings&) const = default;
};

Settings CurrentSettings() {
  Settings settings{.control = 0, .vectors = _mm_getcsr() & ~0x3FU};  // without what has happened
  asm volatile("fnstcw %0" : "=m"(settings.control));
  return settings;
}

// Sets them as a host does, until the test's own come back.
class HostSettings {
 public:
  explicit HostSettings(const Settings& settings) : vectorsBefore_(_mm_getcsr()) {
    std::fegetenv(&before_);
    asm volatile(
        "fnclex\n\t"  // nothing has happened yet
        "fldcw %0"
        :
        : "m"(settings.control));
    _mm_setcsr(settings.vectors);
  }
  ~HostSettings() {
    std::fesetenv(&before_);
    _mm_setcsr(vectorsBefore_);
  }
  HostSettings(const HostSettings&) = delete;
  HostSettings& operator=(const HostSettings&) = delete;

 private:
  std::fenv_t before_{};
  std::uint32_t vectorsBefore_;
};

class HostFloatingPoint : public AutomationTest {
 protected:
  // The file of a document that the host composes under its settings.
  std::string Compose(const Settings& settings) {
    const std::string path = folder_.FileNamed("document.pdf");
    const HostSettings host(settings);
    Print(L"VsPPInit");
    for (int i = 0; i < 20; ++i) {
      const double x = 300.1 + i * 401.7;
      Print(L"VsPPLine", {x, 1000.3, x / 3, 1700.7});
      Print(L"VsPPCircle", {x, 3000.1, 190.3, -0.1 - i / 7.0, -2.9, true, 255});
      Print(L"VsPPPrint", {L"Pluimstijging 1.234,5", x / 2, 5000.3 + i * 333.3, L"Arial", 7.7 + i});
    }
    Print(L"VsPPNewPage");
    Print(L"VsPPFinish", {L"Titel"});
    EXPECT_EQ(Print(L"VSPDF", {std::wstring(path.begin(), path.end()).c_str()}).status, S_OK);
    EXPECT_TRUE(CurrentSettings() == settings);
    return ReadFile(path);
  }

 private:
  ScratchFolder folder_;
};

constexpr Settings kUsual{.control = 0x037F, .vectors = 0x1F80};

TEST_F(HostFloatingPoint, MakesNoDifferenceByItsPrecision) {
  const std::string usual = Compose(kUsual);
  EXPECT_GT(usual.size(), 4000U);
  EXPECT_EQ(Compose({.control = 0x027F, .vectors = 0x1F80}), usual);  // 53 bits
  EXPECT_EQ(Compose({.control = 0x007F, .vectors = 0x1F80}), usual);  // 24 bits
}

TEST_F(HostFloatingPoint, MakesNoDifferenceByItsRounding) {
  const std::string usual = Compose(kUsual);
  EXPECT_EQ(Compose({.control = 0x0B7F, .vectors = 0x5F80}), usual);  // upwards
  EXPECT_EQ(Compose({.control = 0x037F, .vectors = 0x9FC0}),
            usual);  // the smallest numbers are zero
}

TEST_F(HostFloatingPoint, MakesNoDifferenceByTheExceptionsThatItWants) {
  const std::string usual = Compose(kUsual);
  EXPECT_EQ(Compose({.control = 0x1372, .vectors = 0x1900}), usual);
}

}  // namespace
}  // namespace pagivo::automation::testing
