// Any sequence of the interface's methods with any arguments, as a late-bound host calls them: no
// exception leaves it but Error, and the document is still there to be shown and exported.
#include <fuzzer/FuzzedDataProvider.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "api/method_table.h"
#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"
#include "pagivo/picture.h"

namespace {

using pagivo::Array;
using pagivo::Variant;

constexpr std::size_t kMostCalls = 48;
// A document is drawn and exported at the end of every sequence; longer texts only make that slow.
constexpr std::size_t kLongestText = 64;

// A folder of the fuzzer's own: a host may name any file.
void EnterScratchFolder() {
  static char folder[] = "/tmp/pagivo_fuzz_XXXXXX";
  if (mkdtemp(folder) == nullptr || chdir(folder) != 0) abort();
  atexit([] {
    unlink("uit.pdf");
    rmdir(folder);
  });
  // No print server of the machine's own is asked.
  setenv("CUPS_SERVER", "127.0.0.1:1", 1);
}

// A host's object: it fails, tells nonsense, or calls back.
class HostObject final : public pagivo::Object {
 public:
  explicit HostObject(FuzzedDataProvider& input)
      : behaviour_(input.ConsumeIntegral<std::uint8_t>()) {}

  Variant GetMember(std::string_view name) override {
    switch (behaviour_ % 5) {
      case 0:
        return Object::GetMember(name);
      case 1:
        throw 1;  // no std::exception
      case 2:
        pagivo::PredeclaredPgPrint().VsPPEinde();
        return 3;
      case 3:
        return "geen getal";
      default:
        return std::int32_t{behaviour_} * 100;
    }
  }

 private:
  std::uint8_t behaviour_;
};

template <typename T>
T OneOf(FuzzedDataProvider& input, std::initializer_list<T> values) {
  return *(values.begin() + input.ConsumeIntegralInRange<std::size_t>(0, values.size() - 1));
}

double Number(FuzzedDataProvider& input) {
  using Limits = std::numeric_limits<double>;
  return input.ConsumeBool()
             ? input.ConsumeIntegral<std::int16_t>()
             : OneOf(input, {0.0, -1.0, 0.5, 32767.0, 32768.0, -32769.0, 2147483648.0, 1e9, 1e300,
                             Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                             Limits::denorm_min(), input.ConsumeFloatingPoint<double>()});
}

std::string Text(FuzzedDataProvider& input) {
  return input.ConsumeBool()
             ? input.ConsumeRandomLengthString(kLongestText)
             : OneOf<std::string>(
                   input, {"", "  tekst  ", "12abc", "1,5E+07", "uit.pdf", "/dev/null",
                           "er is niets.png", "שלום العربية", "a\tb\r\nc", std::string("a\0b", 3)});
}

template <typename T, typename Make>
Variant ArrayOf(FuzzedDataProvider& input, Make make) {
  const auto lower = OneOf<std::int32_t>(input, {0, 1, -3});
  auto array =
      std::make_shared<Array<T>>(lower, lower + input.ConsumeIntegralInRange<std::int32_t>(-1, 6));
  for (std::int32_t i = lower; i <= array->UpperBound(); ++i) (*array)(i) = make();
  return array;
}

Variant Value(FuzzedDataProvider& input) {
  switch (input.ConsumeIntegralInRange<int>(0, 12)) {
    case 0:
      return {};
    case 1:
      return pagivo::Null;
    case 2:
      return pagivo::Missing;
    case 3:
      return input.ConsumeBool();
    case 4:
      return input.ConsumeIntegral<std::int16_t>();
    case 5:
      return input.ConsumeIntegral<std::int32_t>();
    case 6:
      return static_cast<float>(Number(input));
    case 7:
    case 8:
      return Number(input);
    case 9:
      return Text(input);
    case 10:
      return input.ConsumeBool() ? pagivo::LoadPicture("") : std::make_shared<HostObject>(input);
    case 11:
      return ArrayOf<float>(input, [&] { return static_cast<float>(Number(input)); });
    default:
      return input.ConsumeBool() ? ArrayOf<std::string>(input, [&] { return Text(input); })
                                 : ArrayOf<std::int16_t>(input, [&] {
                                     return input.ConsumeIntegral<std::int16_t>();
                                   });
  }
}

// Of the kind that the parameter takes, most of the time.
Variant Argument(FuzzedDataProvider& input, const pagivo::Parameter& parameter) {
  using pagivo::ValueKind;
  if (input.ConsumeIntegralInRange<int>(0, 3) == 0) return Value(input);
  switch (parameter.kind) {
    case ValueKind::SingleArray:
      return ArrayOf<float>(input, [&] { return static_cast<float>(Number(input)); });
    case ValueKind::StringArray:
      return ArrayOf<std::string>(input, [&] { return Text(input); });
    case ValueKind::IntegerArray:
      return ArrayOf<std::int16_t>(input, [] { return std::int16_t{0}; });
    case ValueKind::String:
      return Text(input);
    case ValueKind::Object:
      return std::make_shared<HostObject>(input);
    case ValueKind::Integer:
      return input.ConsumeIntegralInRange<std::int16_t>(-3, 5);
    default:
      return Number(input);
  }
}

// Files are written in the scratch folder only, and printing has no printer to go to.
bool WritesAnywhere(const pagivo::MemberSignature& method, const std::vector<Variant>& arguments) {
  if (method.name != "VSPDF") return false;
  const std::string* name = arguments.empty() ? nullptr : arguments.front().GetIf<std::string>();
  return name == nullptr || *name != "uit.pdf";
}

void CallAny(pagivo::PgPrint& print, FuzzedDataProvider& input) {
  const auto& methods = pagivo::kMethods.Rows();
  const auto& method = methods[input.ConsumeIntegralInRange<std::size_t>(0, methods.size() - 1)];
  std::vector<Variant> arguments;
  const std::size_t left = input.ConsumeIntegralInRange<std::size_t>(0, 2);
  for (const pagivo::Parameter& parameter : method.Parameters()) {
    if (arguments.size() + left > method.parameterCount) break;
    arguments.push_back(Argument(input, parameter));
  }
  if (WritesAnywhere(method, arguments)) return;
  try {
    print.CallMember(method.dispatchId, arguments);
  } catch (const pagivo::Error&) {
  }
}

void ShowAndExport(pagivo::PgPrint& print) {
  try {
    print.VsPPClose();
    pagivo::DrawPageImage(1, 12);
    print.VSPDF("uit.pdf");
  } catch (const pagivo::Error&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  EnterScratchFolder();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  pagivo::PgPrint& print = pagivo::PredeclaredPgPrint();
  print.VsPPInit();
  for (std::size_t i = 0; i < kMostCalls && input.remaining_bytes() > 0; ++i) CallAny(print, input);
  ShowAndExport(print);
  print.VsPPEinde();
  return 0;
}
