// Calls from hosts of 32 bits, whose stacks are aligned to 4 bytes, and no more.
#include <algorithm>

#include "api/method_table.h"
#include "automation/automation_test.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::automation::testing {
namespace {

// A method's function in the vtable, which begins with the seven of IDispatch.
const void* ProcedureOf(_PgPrint& print, std::string_view method) {
  const auto rows = kMethods.Rows();
  const auto row = std::ranges::find(rows, method, &MemberSignature::name);
  return (*reinterpret_cast<const void* const**>(&print))[7 + (row - rows.begin())];
}

// Calls it with its arguments so many bytes below a multiple of 16.
HRESULT CallBelow(std::uint32_t bytes, const void* procedure, _PgPrint& print, BSTR* text) {
  HRESULT result = E_FAIL;
  asm volatile(
      "movl %%esp, %%ebx\n\t"
      "andl $-16, %%esp\n\t"
      "subl %%ecx, %%esp\n\t"
      "subl $8, %%esp\n\t"  // with both arguments the sixteen
      "pushl %%edi\n\t"
      "pushl %%esi\n\t"
      "call *%%eax\n\t"
      "movl %%ebx, %%esp"
      : "=a"(result), "+c"(bytes)
      : "a"(procedure), "S"(&print), "D"(text)
      : "ebx", "edx", "memory", "cc", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6",
        "xmm7");
  return result;
}

// A method of the same kind that tells where on the stack its arguments stand.
std::uintptr_t placeOfArguments = 0;
HRESULT STDMETHODCALLTYPE TellPlace(_PgPrint* print, BSTR*) {
  placeOfArguments = reinterpret_cast<std::uintptr_t>(&print);
  return S_OK;
}

using HostStack = AutomationTest;

TEST_F(HostStack, IsCalledFromAtEveryMultipleOfFourBytes) {
  for (std::uint32_t bytes = 0; bytes < 16; bytes += 4) {
    const void* procedure = reinterpret_cast<const void*>(&TellPlace);
    EXPECT_EQ(CallBelow(bytes, procedure, *print_.Get(), nullptr), S_OK);
    EXPECT_EQ((placeOfArguments + bytes) % 16, 0U);
  }
}

TEST_F(HostStack, MayBeAlignedToFourBytes) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("document.pdf");
  Print(L"VsPPPrint", {L"Goedemorgen"});
  Print(L"VsPPCircle", {3000, 3000, 1500});
  Print(L"VsPPNewPage");
  Print(L"VsPPFinish", {L"Titel"});
  const void* procedure = ProcedureOf(*print_.Get(), "VSPDF");
  const Value file(std::wstring(path.begin(), path.end()).c_str());
  BSTR name = V_BSTR(&file.Get());
  std::string aligned;
  for (std::uint32_t bytes = 0; bytes < 16; bytes += 4) {
    ASSERT_EQ(CallBelow(bytes, procedure, *print_.Get(), &name), S_OK) << bytes;
    if (bytes == 0) aligned = ReadFile(path);
    EXPECT_GT(aligned.size(), 1000U);
    EXPECT_EQ(ReadFile(path), aligned) << bytes;
  }
}

}  // namespace
}  // namespace pagivo::automation::testing
