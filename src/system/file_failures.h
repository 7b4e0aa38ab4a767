// What a user is told about a file that could not be read or written.
#pragma once

#include <string>

namespace pagivo {

// "<name>" kan niet worden geschreven: <cause>
std::string DescribeWriteFailure(const std::string& fileName, const std::string& cause);

// These raise ErrorNumber::FileAccess with a Dutch description of that form, which says "gelezen"
// of reading. The cause is a clause, or what the system's own error number means; the number for
// want of memory raises std::bad_alloc instead.
[[noreturn]] void ThrowReadFailure(const std::string& fileName, const std::string& cause);
[[noreturn]] void ThrowReadFailure(const std::string& fileName, int systemError);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, const std::string& cause);
[[noreturn]] void ThrowWriteFailure(const std::string& fileName, int systemError);

// These refuse a name that no file can have: an empty one, of which they say that there is no name,
// and one with a null character, at which the system would end it.
void RequireReadableName(const std::string& fileName);
void RequireWritableName(const std::string& fileName);

}  // namespace pagivo
