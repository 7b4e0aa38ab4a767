#include "type_library/interface_header.h"

#include <array>

#include "api/method_table.h"
#include "type_library/identifiers.h"

namespace pagivo::automation {
namespace {

std::string_view TypeOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::Boolean:
      return "VARIANT_BOOL";
    case ValueKind::Integer:
      return "SHORT";
    case ValueKind::Long:
      return "LONG";
    case ValueKind::Single:
      return "FLOAT";
    case ValueKind::Double:
      return "DOUBLE";
    case ValueKind::String:
      return "BSTR";
    case ValueKind::Variant:
      return "VARIANT";
    case ValueKind::Object:
      return "IDispatch*";
    case ValueKind::IntegerArray:
    case ValueKind::SingleArray:
    case ValueKind::StringArray:
      return "SAFEARRAY*";
    case ValueKind::Nothing:
      break;
  }
  return "void";
}

// `  virtual HRESULT STDMETHODCALLTYPE VsPPFinish(BSTR sTitle) = 0;`
std::string Declaration(const MemberSignature& method) {
  std::string parameters;
  const auto add = [&](std::string_view type, bool isPointer, std::string_view name) {
    if (!parameters.empty()) parameters += ", ";
    parameters.append(type).append(isPointer ? "* " : " ").append(name);
  };
  for (std::size_t i = 0; i < method.parameterCount; ++i) {
    const Parameter& parameter = method.Parameters()[i];
    add(TypeOf(parameter.kind), parameter.passing != Passing::ByValue, ParameterName(method, i));
  }
  if (method.result != ValueKind::Nothing) add(TypeOf(method.result), true, "result");
  return "  virtual HRESULT STDMETHODCALLTYPE " + std::string(method.name) + "(" + parameters +
         ") = 0;\n";
}

// `{0x12C714E4, 0xF346, 0x42A7, {0x8A, 0x61, ...}}`, of an identifier in its usual notation.
std::string Initializer(std::string_view identifier) {
  const auto digits = [&](std::size_t at, std::size_t count) {
    return "0x" + std::string(identifier.substr(at, count));
  };
  std::string text =
      "{" + digits(1, 8) + ", " + digits(10, 4) + ", " + digits(15, 4) + ", {" + digits(20, 2);
  constexpr std::array<std::size_t, 7> kLastBytes = {22, 25, 27, 29, 31, 33, 35};
  for (const std::size_t at : kLastBytes) text += ", " + digits(at, 2);
  return text + "}}";
}

std::string Constant(std::string_view name, std::string_view identifier) {
  return "inline constexpr GUID " + std::string(name) + " = " + Initializer(identifier) + ";\n";
}

}  // namespace

std::string InterfaceHeader() {
  const std::string name(kInterfaceName);
  std::string text =
      "// The automation interface of " + std::string(kProgramId) + ", version " +
      std::string(kLibraryVersion) +
      ", for hosts in C++. Made by the build.\n"
      "//\n"
      "// A method that fails has set the thread's error information (GetErrorInfo).\n"
      "#pragma once\n\n#include <oaidl.h>\n\n";
  text += Constant("LIBID_Pagivo", kLibraryId) + Constant("IID__PgPrint", kInterfaceId) +
          Constant("CLSID_PgPrint", kClassId) + "\n";
  text += "struct " + name + " : IDispatch {\n";
  for (const auto& method : kMethods.Rows()) text += Declaration(method);
  return text + "};\n";
}

}  // namespace pagivo::automation
