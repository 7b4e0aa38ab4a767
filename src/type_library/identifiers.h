// What hosts of the automation server bind to. None of it ever changes, or hosts that were built
// against the component find it no more.
#pragma once

#include <cstdint>
#include <string_view>

namespace pagivo::automation {

inline constexpr std::string_view kLibraryId = "{A0D9E4BB-2552-4DF8-81DD-8F5A40269736}";
inline constexpr std::string_view kInterfaceId = "{12C714E4-F346-42A7-8A61-9380F1DCFCAF}";
inline constexpr std::string_view kClassId = "{AD670047-A539-4BCE-A620-76CA332EED6E}";

inline constexpr std::string_view kLibraryName = "Pagivo";
inline constexpr std::string_view kInterfaceName = "_PgPrint";
inline constexpr std::string_view kClassName = "PgPrint";
inline constexpr std::string_view kProgramId = "Pagivo.PgPrint";

inline constexpr std::uint16_t kLibraryMajorVersion = 1;
inline constexpr std::uint16_t kLibraryMinorVersion = 1;
inline constexpr std::string_view kLibraryVersion = "1.1";

}  // namespace pagivo::automation
