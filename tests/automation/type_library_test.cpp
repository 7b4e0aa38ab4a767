// The type library in the server's file against the table of methods.
#include "api/method_table.h"
#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

class TypeLibrary : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(LoadTypeLibEx(ServerFile().c_str(), REGKIND_NONE, &library_), S_OK);
    ASSERT_EQ(library_->GetTypeInfoOfGuid(IID__PgPrint, &dispatch_), S_OK);
    HREFTYPE reference = 0;
    ASSERT_EQ(dispatch_->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ASSERT_EQ(dispatch_->GetRefTypeInfo(reference, &vtable_), S_OK);
  }

  ComPtr<ITypeLib> library_;
  ComPtr<ITypeInfo> dispatch_;  // the interface as late-bound hosts see it
  ComPtr<ITypeInfo> vtable_;    // and as early-bound ones do
};

template <typename Check>
void WithAttributes(ITypeInfo& information, Check check) {
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(information.GetTypeAttr(&attributes), S_OK);
  check(*attributes);
  information.ReleaseTypeAttr(attributes);
}

template <typename Check>
void WithMethods(ITypeInfo& information, Check check) {
  for (UINT i = 0; i < kMethods.Rows().size(); ++i) {
    FUNCDESC* description = nullptr;
    ASSERT_EQ(information.GetFuncDesc(i, &description), S_OK) << i;
    check(kMethods.Rows()[i], *description, i);
    information.ReleaseFuncDesc(description);
  }
}

std::string Narrow(BSTR text) {
  const std::string narrow(text, text + SysStringLen(text));
  SysFreeString(text);
  return narrow;
}

VARTYPE KindOf(const TYPEDESC& type) {
  if (type.vt != VT_SAFEARRAY) return type.vt;
  return static_cast<VARTYPE>(VT_ARRAY | type.lptdesc->vt);
}

VARTYPE ExpectedKind(ValueKind kind) {
  constexpr std::array<VARTYPE, 12> kKinds = {VT_EMPTY,
                                              VT_BOOL,
                                              VT_I2,
                                              VT_I4,
                                              VT_R4,
                                              VT_R8,
                                              VT_BSTR,
                                              VT_VARIANT,
                                              VT_DISPATCH,
                                              VT_ARRAY | VT_I2,
                                              VT_ARRAY | VT_R4,
                                              VT_ARRAY | VT_BSTR};
  return kKinds.at(static_cast<std::size_t>(kind));
}

TEST_F(TypeLibrary, HasItsNameAndVersion) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, LIBID_Pagivo);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 1);
  library_->ReleaseTLibAttr(attributes);
  BSTR name = nullptr;
  ASSERT_EQ(library_->GetDocumentation(-1, &name, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(Narrow(name), "Pagivo");
}

TEST_F(TypeLibrary, HasAHiddenDualInterfaceThatNobodyExtends) {
  static constexpr WORD kFlags = TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE;
  WithAttributes(*dispatch_.Get(), [](const TYPEATTR& attributes) {
    EXPECT_EQ(attributes.typekind, TKIND_DISPATCH);
    EXPECT_EQ(attributes.wTypeFlags & kFlags, kFlags);
  });
  WithAttributes(*vtable_.Get(), [](const TYPEATTR& attributes) {
    EXPECT_EQ(attributes.typekind, TKIND_INTERFACE);
    EXPECT_EQ(attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION, TYPEFLAG_FOLEAUTOMATION);
    EXPECT_EQ(attributes.cFuncs, kMethods.Rows().size());
    EXPECT_EQ(attributes.cbSizeVft, (7 + kMethods.Rows().size()) * sizeof(void*));
  });
}

TEST_F(TypeLibrary, HasAClassOfWhichAnInstanceIsPredeclared) {
  ComPtr<ITypeInfo> coclass;
  ASSERT_EQ(library_->GetTypeInfoOfGuid(CLSID_PgPrint, &coclass), S_OK);
  WithAttributes(*coclass.Get(), [](const TYPEATTR& attributes) {
    constexpr WORD kFlags = TYPEFLAG_FAPPOBJECT | TYPEFLAG_FCANCREATE | TYPEFLAG_FPREDECLID;
    EXPECT_EQ(attributes.typekind, TKIND_COCLASS);
    EXPECT_EQ(attributes.wTypeFlags & kFlags, kFlags);
  });
  INT flags = 0;
  EXPECT_EQ(coclass->GetImplTypeFlags(0, &flags), S_OK);
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
}

TEST_F(TypeLibrary, NamesMethodsAndParametersInOrder) {
  WithMethods(*vtable_.Get(), [&](const auto& row, const FUNCDESC& description, UINT index) {
    EXPECT_EQ(description.memid, row.dispatchId) << row.name;
    EXPECT_EQ(description.oVft, static_cast<SHORT>((7 + index) * sizeof(void*))) << row.name;
    std::array<BSTR, kMaximumParameters + 2> names{};
    UINT count = 0;
    ASSERT_EQ(vtable_->GetNames(description.memid, names.data(), names.size(), &count), S_OK);
    ASSERT_GE(count, row.parameterCount + 1) << row.name;
    EXPECT_EQ(Narrow(names[0]), row.name);
    for (UINT i = 1; i < count; ++i) {
      const std::string name = Narrow(names.at(i));
      if (i > row.parameterCount) continue;
      EXPECT_EQ(name, ParameterName(row, i - 1)) << row.name;
    }
  });
}

TEST_F(TypeLibrary, GivesParametersTheirKindPassingAndDefault) {
  WithMethods(*vtable_.Get(), [](const auto& row, const FUNCDESC& description, UINT) {
    for (std::size_t i = 0; i < row.parameterCount; ++i) {
      const Parameter& parameter = row.Parameters()[i];
      const ELEMDESC& element = description.lprgelemdescParam[i];
      const bool isPointer = element.tdesc.vt == VT_PTR;
      EXPECT_EQ(isPointer, parameter.passing != Passing::ByValue) << row.name;
      EXPECT_EQ(KindOf(isPointer ? *element.tdesc.lptdesc : element.tdesc),
                ExpectedKind(parameter.kind))
          << row.name;
      const USHORT flags = element.paramdesc.wParamFlags;
      EXPECT_EQ((flags & PARAMFLAG_FOPT) != 0, parameter.defaultValue != DefaultValue::Required);
      const Variant expected = MakeDefault(parameter.defaultValue);
      EXPECT_EQ((flags & PARAMFLAG_FHASDEFAULT) != 0, !expected.IsMissing()) << row.name;
      if (expected.IsMissing()) continue;
      const VARIANT& held = element.paramdesc.pparamdescex->varDefaultValue;
      EXPECT_EQ(V_VT(&held), parameter.defaultValue == DefaultValue::False      ? VT_BOOL
                             : parameter.defaultValue == DefaultValue::LongZero ? VT_I4
                                                                                : VT_I2);
      EXPECT_EQ(V_I2(&held), 0) << row.name;
    }
  });
}

TEST_F(TypeLibrary, ReturnsResultsThroughTheLastParameter) {
  WithMethods(*vtable_.Get(), [](const auto& row, const FUNCDESC& description, UINT) {
    const bool hasResult = row.result != ValueKind::Nothing;
    ASSERT_EQ(description.cParams, static_cast<SHORT>(row.parameterCount + (hasResult ? 1 : 0)))
        << row.name;
    EXPECT_EQ(description.elemdescFunc.tdesc.vt, VT_HRESULT);
    if (!hasResult) return;
    const ELEMDESC& element = description.lprgelemdescParam[row.parameterCount];
    EXPECT_NE(element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL, 0) << row.name;
    EXPECT_EQ(KindOf(*element.tdesc.lptdesc), ExpectedKind(row.result)) << row.name;
  });
}

}  // namespace
}  // namespace pagivo::automation::testing
