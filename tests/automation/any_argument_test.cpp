// Every method with arguments that it does not take: wrong kinds, too few, too many, and each slot
// of the vtable by what the type library says of it.
#include "api/method_table.h"
#include "automation_test.h"
#include "host_object.h"

namespace pagivo::automation::testing {
namespace {

using AnyArgument = AutomationTest;

std::wstring Wide(std::string_view name) {
  return {name.begin(), name.end()};
}

// An argument that the parameter takes, and that does little.
Value Suitable(const Parameter& parameter) {
  switch (parameter.kind) {
    case ValueKind::Object:
      return static_cast<IUnknown*>(nullptr);
    case ValueKind::String:
      return L"";
    case ValueKind::IntegerArray:
    case ValueKind::SingleArray:
    case ValueKind::StringArray:
      return {};
    default:
      return 0;
  }
}

std::vector<Value> SuitableArguments(const MemberSignature& method) {
  std::vector<Value> arguments;
  for (const Parameter& parameter : method.Parameters()) arguments.push_back(Suitable(parameter));
  return arguments;
}

// A call either succeeds, its statements failing one by one, or says in words what was wrong.
void ExpectAnswered(const Outcome& outcome, std::string_view what) {
  if (outcome.status == S_OK) return;
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION) << what;
  EXPECT_EQ(HRESULT_FACILITY(outcome.code), FACILITY_CONTROL) << what;
  EXPECT_NE(outcome.description, L"") << what;
}

TEST_F(AnyArgument, OfAnyKindIsAnswered) {
  HostObject object;
  const Value table = [] {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 1}};
    Value array;
    V_VT(array.Address()) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(array.Address()) = SafeArrayCreate(VT_VARIANT, 2, bounds);
    return array;
  }();
  Value null;
  V_VT(null.Address()) = VT_NULL;
  Value error;
  V_VT(error.Address()) = VT_ERROR;
  V_ERROR(error.Address()) = E_FAIL;
  const std::vector<Value> kinds = {Value(),
                                    null,
                                    error,
                                    table,
                                    &object,
                                    L"geen getal",
                                    1e300,
                                    true,
                                    -1,
                                    Value::Missing(),
                                    Value(5).As(VT_DECIMAL)};
  for (const auto& row : kMethods.Rows()) {
    for (std::size_t i = 0; i < row.parameterCount; ++i) {
      for (const Value& kind : kinds) {
        std::vector<VARIANT> arguments;
        const std::vector<Value> suitable = SuitableArguments(row);
        for (const Value& value : suitable) arguments.push_back(value.Get());
        arguments.at(i) = kind.Get();
        ExpectAnswered(Call(*print_.Get(), Wide(row.name).c_str(), arguments), row.name);
        Value variable(kind);
        arguments.at(i) = Reference(variable);
        ExpectAnswered(Call(*print_.Get(), Wide(row.name).c_str(), arguments), row.name);
      }
    }
  }
  Print(L"VsPPStart", {static_cast<IUnknown*>(nullptr)});
  EXPECT_EQ(object.References(), 2U);  // the test's and that of its arguments
}

TEST_F(AnyArgument, TooFewOrTooManyAreRefused) {
  for (const auto& row : kMethods.Rows()) {
    const auto required = static_cast<std::size_t>(
        std::ranges::count(row.Parameters(), DefaultValue::Required, &Parameter::defaultValue));
    for (std::size_t count = 0; count <= row.parameterCount + 2; ++count) {
      if (count >= required && count <= row.parameterCount) continue;
      const std::vector<Value> arguments(count, Value(0));
      const Outcome outcome = Print(Wide(row.name).c_str(), arguments);
      EXPECT_EQ(outcome.status, DISP_E_EXCEPTION) << row.name;
      EXPECT_EQ(outcome.code, HostError(450)) << row.name;
    }
  }
}

// --- Each slot of the vtable

// A variable of a parameter's or result's type, and a pointer to it where the type is one.
struct Slot {
  explicit Slot(const TYPEDESC& type) : isPointer(type.vt == VT_PTR) {
    const TYPEDESC& held = isPointer ? *type.lptdesc : type;
    const bool isArray = held.vt == VT_SAFEARRAY;
    kind = isArray ? static_cast<VARTYPE>(VT_ARRAY | held.lptdesc->vt) : held.vt;
    V_VT(&argument) = isPointer ? static_cast<VARTYPE>(VT_BYREF | kind) : kind;
    if (isPointer) V_BYREF(&argument) = &storage;
  }

  bool isPointer;
  VARTYPE kind = VT_EMPTY;
  VARIANT storage{};  // large enough for each type
  VARIANTARG argument{};
};

HRESULT CallSlot(_PgPrint& print, const FUNCDESC& method) {
  std::vector<Slot> slots;
  slots.reserve(static_cast<std::size_t>(method.cParams));
  std::vector<VARTYPE> kinds;
  std::vector<VARIANTARG*> arguments;
  for (SHORT i = 0; i < method.cParams; ++i) {
    Slot& slot = slots.emplace_back(method.lprgelemdescParam[i].tdesc);
    kinds.push_back(V_VT(&slot.argument));
    arguments.push_back(&slot.argument);
  }
  Value status;
  EXPECT_EQ(DispCallFunc(&print, static_cast<ULONG_PTR>(method.oVft), CC_STDCALL, VT_ERROR,
                         static_cast<UINT>(slots.size()), kinds.data(), arguments.data(),
                         status.Address()),
            S_OK);
  return V_ERROR(&status.Get());
}

TEST_F(AnyArgument, ReachesItsMethodThroughTheSlotThatTheTypeLibraryNames) {
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> dispatch;
  ComPtr<ITypeInfo> vtable;
  HREFTYPE reference = 0;
  ASSERT_EQ(LoadTypeLibEx(ServerFile().c_str(), REGKIND_NONE, &library), S_OK);
  ASSERT_EQ(library->GetTypeInfoOfGuid(IID__PgPrint, &dispatch), S_OK);
  ASSERT_EQ(dispatch->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
  ASSERT_EQ(dispatch->GetRefTypeInfo(reference, &vtable), S_OK);
  for (UINT i = 0; i < kMethods.Rows().size(); ++i) {
    FUNCDESC* description = nullptr;
    ASSERT_EQ(vtable->GetFuncDesc(i, &description), S_OK);
    const std::string_view name = kMethods.Rows()[i].name;
    const bool mayFail = name == "VSPDF" || name == "VsPPRenderControl";
    const HRESULT status = CallSlot(*print_.Get(), *description);
    EXPECT_TRUE(status == S_OK || mayFail) << name << " " << std::hex << status;
    vtable->ReleaseFuncDesc(description);
  }
}

}  // namespace
}  // namespace pagivo::automation::testing
