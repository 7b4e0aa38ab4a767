#include "pagivo/print_outcome.h"

#include <array>

#include "state/module_state.h"
#include "values/late_binding.h"

namespace pagivo {

namespace {

constexpr std::array kReportRows{
    BindMember<&PrintReport::PrintOutcome>("PrintOutcome", 1, MemberKind::Get),
    BindMember<&PrintReport::Description>("Description", 2, MemberKind::Get),
    BindMember<&PrintReport::Printer>("Printer", 3, MemberKind::Get),
    BindMember<&PrintReport::Copies>("Copies", 4, MemberKind::Get),
    BindMember<&PrintReport::PrintedCopies>("PrintedCopies", 5, MemberKind::Get),
};

constexpr MemberTable<PrintReport> kMembers(kReportRows);

// A command is for no more copies than that.
std::int16_t CountOf(std::int32_t copies) {
  return static_cast<std::int16_t>(copies);
}

}  // namespace

std::int16_t PrintReport::PrintOutcome() {
  return State().PrintOutcome.result;
}

std::string PrintReport::Description() {
  return State().PrintOutcome.description;
}

std::string PrintReport::Printer() {
  return State().PrintOutcome.printer;
}

std::int16_t PrintReport::Copies() {
  return CountOf(State().PrintOutcome.copies);
}

std::int16_t PrintReport::PrintedCopies() {
  return CountOf(State().PrintOutcome.printedCopies);
}

Variant PrintReport::GetMember(std::string_view name) {
  return kMembers.Get(*this, name);
}

Variant PrintReport::CallMember(std::string_view name, std::span<Variant> arguments) {
  return kMembers.Call(*this, name, arguments);
}

}  // namespace pagivo
