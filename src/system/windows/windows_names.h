// Names that a host gives its files, as Windows takes them.
#pragma once

#include <optional>
#include <string>

#include "system/file_failures.h"

namespace pagivo {

struct ResolvedName {
  std::wstring path;  // from the drive or server on, in the verbatim form: "\\?\C:\..."
  std::optional<FileCause> refusal;  // why no regular file can have the name
};

// Takes a name in UTF-8, with slashes either way, from a drive or a server on or from the current
// folder. Blanks and points at its end do not count, and neither does the verbatim form, in which a
// name may have more than 260 characters. Nothing is opened.
ResolvedName ResolveName(const std::string& fileName);

// The part behind the last backslash, and the part before it with that.
std::wstring EntryOf(const std::wstring& path);
std::wstring FolderOf(const std::wstring& path);

}  // namespace pagivo
