#include "values/errors_reported.h"

#include <new>
#include <stdexcept>
#include <string>

#include "pagivo/error.h"

namespace pagivo {

void RaiseAsError() try { throw; } catch (const Error&) {
  throw;
} catch (const std::bad_alloc&) {
  ThrowOutOfMemory();
} catch (const std::length_error&) {  // a size that no memory has
  ThrowOutOfMemory();
} catch (const std::exception& failure) {
  throw Error(ErrorNumber::InvalidArgument, std::string("Onverwachte fout: ") + failure.what());
} catch (...) {
  throw Error(ErrorNumber::InvalidArgument, "Onverwachte fout");
}

}  // namespace pagivo
