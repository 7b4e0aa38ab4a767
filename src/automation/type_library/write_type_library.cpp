// Writes the type library and the C++ header of the component's interface from the table of
// methods:
//
//   pagivo_write_type_library pagivo.tlb pagivo_automation.h
//
// The system itself makes the library, so that it reads it as it was meant. It runs once a build.
#include <oaidl.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "api/method_table.h"
#include "automation/automation_values.h"
#include "automation/identities.h"
#include "system/windows/wide_text.h"
#include "type_library/interface_header.h"

namespace pagivo::automation {
namespace {

using Microsoft::WRL::ComPtr;

void Require(HRESULT result, const char* step) {
  if (SUCCEEDED(result)) return;
  std::array<char, 16> status{};
  std::snprintf(status.data(), status.size(), "%08lx", static_cast<unsigned long>(result));
  throw std::runtime_error(std::string(step) + " fails with status " + status.data());
}

// A name as the system takes it, which never writes to it.
class Name {
 public:
  explicit Name(std::string_view text) : text_(ToWide(text)) {}
  operator LPOLESTR() { return text_.data(); }

 private:
  std::wstring text_;
};

// --- A method's description -------------------------------------------------------------------

// A type and those that it is made of, which must stay where they are: *SAFEARRAY(BSTR).
struct Type {
  TYPEDESC element{};
  TYPEDESC value{};
  TYPEDESC pointer{};

  Type(ValueKind kind, bool isPointer) {
    const VARTYPE vartype = VartypeOf(kind);
    const bool isArray = (vartype & VT_ARRAY) != 0;
    element.vt = static_cast<VARTYPE>(vartype & ~VT_ARRAY);
    value.vt = isArray ? VARTYPE{VT_SAFEARRAY} : element.vt;
    if (isArray) value.lptdesc = &element;
    pointer.vt = VT_PTR;
    pointer.lptdesc = &value;
    outer_ = isPointer ? &pointer : &value;
  }
  Type(const Type&) = delete;
  Type& operator=(const Type&) = delete;

  const TYPEDESC& Outer() const { return *outer_; }

 private:
  const TYPEDESC* outer_ = nullptr;
};

USHORT FlagsOf(const Parameter& parameter) {
  USHORT flags = PARAMFLAG_FIN;
  if (parameter.passing != Passing::ByValue) flags |= PARAMFLAG_FOUT;
  if (parameter.defaultValue == DefaultValue::Required) return flags;
  flags |= PARAMFLAG_FOPT;
  if (!MakeDefault(parameter.defaultValue).IsMissing()) flags |= PARAMFLAG_FHASDEFAULT;
  return flags;
}

// The description of one method, which the system copies.
class Method {
 public:
  explicit Method(const MemberSignature& method) : method_(method) {
    names_.emplace_back(method.name);
    for (std::size_t i = 0; i < method.parameterCount; ++i) AddParameter(i);
    if (method.result != ValueKind::Nothing) AddResult();
    description_.memid = method.dispatchId;
    description_.funckind = FUNC_PUREVIRTUAL;
    description_.invkind = INVOKE_FUNC;
    description_.callconv = CC_STDCALL;
    description_.elemdescFunc.tdesc.vt = VT_HRESULT;
    description_.lprgelemdescParam = elements_.data();
    description_.cParams = static_cast<SHORT>(count_);
  }
  Method(const Method&) = delete;
  Method& operator=(const Method&) = delete;

  void AddTo(ICreateTypeInfo& information, UINT index) {
    Require(information.AddFuncDesc(index, &description_), "AddFuncDesc");
    std::vector<LPOLESTR> names(names_.begin(), names_.end());
    Require(information.SetFuncAndParamNames(index, names.data(), static_cast<UINT>(names.size())),
            "SetFuncAndParamNames");
  }

 private:
  static constexpr std::size_t kMostElements = kMaximumParameters + 1;  // with the result

  ELEMDESC& Add(std::string_view name, ValueKind kind, bool isPointer, USHORT flags) {
    names_.emplace_back(name);
    types_.at(count_) = std::make_unique<Type>(kind, isPointer);
    ELEMDESC& element = elements_.at(count_);
    element.tdesc = types_.at(count_)->Outer();
    element.paramdesc.wParamFlags = flags;
    ++count_;
    return element;
  }

  void AddParameter(std::size_t index) {
    const Parameter& parameter = method_.Parameters()[index];
    PARAMDESCEX& defaultValue = defaults_.at(index);
    ELEMDESC& element = Add(ParameterName(method_, index), parameter.kind,
                            parameter.passing != Passing::ByValue, FlagsOf(parameter));
    if ((element.paramdesc.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return;
    defaultValue.cBytes = sizeof defaultValue;
    defaultValue.varDefaultValue = MakeVariant(MakeDefault(parameter.defaultValue));
    element.paramdesc.pparamdescex = &defaultValue;
  }

  void AddResult() { Add("result", method_.result, true, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL); }

  const MemberSignature& method_;
  std::vector<Name> names_;
  std::array<std::unique_ptr<Type>, kMostElements> types_;
  std::array<ELEMDESC, kMostElements> elements_{};
  std::array<PARAMDESCEX, kMostElements> defaults_{};
  std::size_t count_ = 0;
  FUNCDESC description_{};
};

// --- The library ------------------------------------------------------------------------------

ComPtr<ITypeInfo> SystemsDispatch() {
  ComPtr<ITypeLib> system;
  ComPtr<ITypeInfo> dispatch;
  Require(LoadTypeLib(L"stdole2.tlb", &system), "LoadTypeLib of stdole2.tlb");
  Require(system->GetTypeInfoOfGuid(IID_IDispatch, &dispatch), "GetTypeInfoOfGuid");
  return dispatch;
}

ComPtr<ICreateTypeInfo> AddTypeInfo(ICreateTypeLib2& library, std::string_view name, TYPEKIND kind,
                                    const GUID& id, UINT flags) {
  ComPtr<ICreateTypeInfo> information;
  Require(library.CreateTypeInfo(Name(name), kind, &information), "CreateTypeInfo");
  Require(information->SetGuid(id), "SetGuid");
  Require(information->SetVersion(1, 0), "SetVersion");
  Require(information->SetTypeFlags(flags), "SetTypeFlags");
  return information;
}

// Makes `base` what the interface derives from, or the class's default interface.
void Implement(ICreateTypeInfo& information, ITypeInfo& base) {
  HREFTYPE reference = 0;
  Require(information.AddRefTypeInfo(&base, &reference), "AddRefTypeInfo");
  Require(information.AddImplType(0, reference), "AddImplType");
}

ComPtr<ITypeInfo> AddInterface(ICreateTypeLib2& library) {
  const ComPtr<ICreateTypeInfo> information = AddTypeInfo(
      library, kInterfaceName, TKIND_INTERFACE, kInterfaceGuid,
      TYPEFLAG_FHIDDEN | TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FOLEAUTOMATION);
  Implement(*information.Get(), *SystemsDispatch().Get());
  UINT index = 0;
  for (const auto& method : kMethods.Rows()) Method(method).AddTo(*information.Get(), index++);
  Require(information->LayOut(), "LayOut");
  ComPtr<ITypeInfo> made;
  Require(information.As(&made), "QueryInterface");
  return made;
}

void AddClass(ICreateTypeLib2& library, ITypeInfo& defaultInterface) {
  const ComPtr<ICreateTypeInfo> information =
      AddTypeInfo(library, kClassName, TKIND_COCLASS, kClassGuid,
                  TYPEFLAG_FAPPOBJECT | TYPEFLAG_FCANCREATE | TYPEFLAG_FPREDECLID);
  Implement(*information.Get(), defaultInterface);
  Require(information->SetImplTypeFlags(0, IMPLTYPEFLAG_FDEFAULT), "SetImplTypeFlags");
  Require(information->LayOut(), "LayOut");
}

void WriteLibrary(const char* path) {
  ComPtr<ICreateTypeLib2> library;
  Require(CreateTypeLib2(kSystemKind, Name(path), &library), "CreateTypeLib2");
  Require(library->SetName(Name(kLibraryName)), "SetName");
  Require(library->SetDocString(Name(kLibraryName)), "SetDocString");
  Require(library->SetGuid(kLibraryGuid), "SetGuid");
  Require(library->SetVersion(kLibraryMajorVersion, kLibraryMinorVersion), "SetVersion");
  Require(library->SetLcid(LOCALE_NEUTRAL), "SetLcid");
  AddClass(*library.Get(), *AddInterface(*library.Get()).Get());
  Require(library->SaveAllChanges(), "SaveAllChanges");
}

void WriteHeader(const char* path) {
  std::ofstream file(path, std::ios::binary);
  file << InterfaceHeader();
  file.close();
  if (!file) throw std::runtime_error(std::string("cannot write ") + path);
}

}  // namespace
}  // namespace pagivo::automation

int main(int argc, char** argv) try {
  if (argc != 3) throw std::runtime_error("expects the paths of the type library and the header");
  pagivo::automation::WriteLibrary(argv[1]);
  pagivo::automation::WriteHeader(argv[2]);
  return 0;
} catch (const std::exception& failure) {
  std::fprintf(stderr, "pagivo_write_type_library: %s\n", failure.what());
  return 1;
}
