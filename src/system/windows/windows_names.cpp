#include "system/windows/windows_names.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cwctype>
#include <string_view>

#include "system/utf8.h"
#include "system/windows/wide_text.h"

namespace pagivo {
namespace {

constexpr std::wstring_view kServers = LR"(\\)";
constexpr std::wstring_view kDevices = LR"(\\.\)";
constexpr std::wstring_view kVerbatim = LR"(\\?\)";
constexpr std::wstring_view kVerbatimServers = LR"(\\?\UNC\)";

// What the system's own tables hold.
constexpr std::size_t kLongestPath = 32767 - kVerbatimServers.size();
constexpr std::size_t kLongestEntry = 255;

bool EqualInAnyCase(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(left, right, {}, ::towupper, ::towupper);
}

// A drive is named in the same way whatever the folder.
bool StartsWithDrive(std::wstring_view name) {
  const wchar_t letter = name.empty() ? L'\0' : static_cast<wchar_t>(::towupper(name.front()));
  return name.size() >= 2 && letter >= L'A' && letter <= L'Z' && name[1] == L':';
}

// A name without the verbatim form's beginning; nothing if it names neither a drive nor a server.
std::optional<std::wstring> WithoutVerbatim(const std::wstring& name) {
  if (!name.starts_with(kVerbatim)) return name;
  std::wstring rest = name.substr(kVerbatim.size());
  if (StartsWithDrive(rest)) return rest;
  constexpr std::size_t kServersAt = kVerbatimServers.size();
  if (!EqualInAnyCase(name.substr(0, kServersAt), kVerbatimServers)) return std::nullopt;
  return std::wstring(kServers) + name.substr(kServersAt);
}

// Wildcards, what the command line uses, and the colon before the further streams of a file.
bool HasForbiddenCharacter(std::wstring_view name) {
  constexpr wchar_t kFirstAllowed = L' ';
  if (StartsWithDrive(name)) name.remove_prefix(2);
  return std::ranges::any_of(name, [](wchar_t character) {
    return character < kFirstAllowed ||
           std::wstring_view(L"<>:\"|?*").find(character) != std::wstring_view::npos;
  });
}

// In every folder a few names mean devices, whatever follows behind a point.
bool IsDevice(std::wstring_view entry) {
  constexpr std::array<std::wstring_view, 7> kNames{L"CON",    L"PRN",    L"AUX",    L"NUL",
                                                    L"CLOCK$", L"CONIN$", L"CONOUT$"};
  constexpr std::wstring_view kDigits = L"0123456789\u00B9\u00B2\u00B3";
  entry = entry.substr(0, entry.find(L'.'));
  entry = entry.substr(0, entry.find_last_not_of(L' ') + 1);
  const auto is = [&entry](std::wstring_view name) { return EqualInAnyCase(entry, name); };
  if (std::ranges::any_of(kNames, is)) return true;
  constexpr std::size_t kPortLength = 4;
  if (entry.size() != kPortLength || kDigits.find(entry.back()) == kDigits.npos) return false;
  entry.remove_suffix(1);
  return is(L"COM") || is(L"LPT");
}

// A server has its pipes in a folder beside those that it shares.
bool IsPipe(std::wstring_view path) {
  if (!path.starts_with(kServers)) return false;
  path.remove_prefix(std::min(path.find(L'\\', kServers.size()), path.size()));
  path.remove_prefix(std::min(path.find_first_not_of(L'\\'), path.size()));
  const std::wstring_view share = path.substr(0, path.find(L'\\'));
  return EqualInAnyCase(share, L"PIPE") || EqualInAnyCase(share, L"MAILSLOT");
}

bool HasLongEntry(std::wstring_view path) {
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = std::min(path.find(L'\\', begin), path.size());
    if (end - begin > kLongestEntry) return true;
    begin = end + 1;
  }
  return false;
}

// From the drive or server on, by the current folder; empty if that is none.
std::wstring WholePath(const std::wstring& name) {
  std::wstring path(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), L'\0');
  const auto room = static_cast<DWORD>(path.size());
  path.resize(GetFullPathNameW(name.c_str(), room, path.data(), nullptr));
  return path;
}

std::optional<FileCause> RefusalOf(const std::wstring& path) {
  if (path.empty()) return FileCause::InvalidName;
  if (path.starts_with(kDevices) || IsPipe(path)) return FileCause::NotRegular;
  if (path.size() > kLongestPath || HasLongEntry(path)) return FileCause::LongName;
  return std::nullopt;
}

std::wstring Verbatim(const std::wstring& path) {
  if (!path.starts_with(kServers)) return std::wstring(kVerbatim) + path;
  return std::wstring(kVerbatimServers) + path.substr(kServers.size());
}

}  // namespace

ResolvedName ResolveName(const std::string& fileName) {
  if (!IsUtf8(fileName)) return {{}, FileCause::InvalidName};
  std::wstring given = ToWide(fileName);
  if (given.size() > kLongestPath) return {{}, FileCause::LongName};
  std::ranges::replace(given, L'/', L'\\');
  const std::optional<std::wstring> name = WithoutVerbatim(given);
  if (!name || name->starts_with(kDevices) || IsDevice(EntryOf(*name))) {
    return {{}, FileCause::NotRegular};
  }
  if (HasForbiddenCharacter(*name)) return {{}, FileCause::InvalidName};
  const std::wstring path = WholePath(*name);
  return {Verbatim(path), RefusalOf(path)};
}

std::wstring EntryOf(const std::wstring& path) {
  return path.substr(path.find_last_of(L"\\:") + 1);
}

std::wstring FolderOf(const std::wstring& path) {
  return path.substr(0, path.find_last_of(L'\\') + 1);
}

}  // namespace pagivo
