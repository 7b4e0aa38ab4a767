// What a user is told about a file that could not be read or written.
#pragma once

#include <string>

namespace pagivo {

// "<name>" kan niet worden geschreven: <cause>
std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause);

// Raise ErrorNumber::FileAccess with a Dutch description of that form; of reading: kan niet worden
// gelezen. The cause is a clause, or what the system's own error number means.
[[noreturn]] void ThrowReadFailure(const std::string& fileName, const std::string& cause);
[[noreturn]] void ThrowReadFailure(const std::string& fileName, int systemError);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, const std::string& cause);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, int systemError);

// Refuses a name that no system has for a file: an empty one, which is told as the lack of a name,
// and one with a null character, at which the system would end it.
void RequireReadableName(const std::string& fileName);
void RequireWritableName(const std::string& fileName);

}  // namespace pagivo
