#include "values/errors.h"

#include <new>
#include <stdexcept>
#include <string>

#include "pagivo/error.h"

namespace pagivo {
namespace {

std::uint32_t lostForWantOfMemory = 0;

// Made while there is memory: raising it takes none.
const Error kOutOfMemory(ErrorNumber::OutOfMemory, "Onvoldoende geheugen");

}  // namespace

std::uint32_t LostForWantOfMemory() noexcept {
  return lostForWantOfMemory;
}

void CountLostStatement() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    ++lostForWantOfMemory;
  } catch (const Error& error) {
    if (error.Number() == ErrorNumber::OutOfMemory) ++lostForWantOfMemory;
  } catch (...) {  // NOLINT(bugprone-empty-catch): losing it is the rule
  }
}

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

void ThrowOverflow() {
  throw Error(ErrorNumber::Overflow, "Overloop");
}

void ThrowTypeMismatch() {
  throw Error(ErrorNumber::TypeMismatch, "Typen komen niet met elkaar overeen");
}

void ThrowSubscriptOutOfRange() {
  throw Error(ErrorNumber::SubscriptOutOfRange, "Het subscript valt buiten het bereik");
}

void ThrowDivisionByZero() {
  throw Error(ErrorNumber::DivisionByZero, "Deling door nul");
}

void ThrowOutOfMemory() {
  throw Error(kOutOfMemory);
}

void ThrowUnknownMember(std::string_view name) {
  throw Error(ErrorNumber::UnknownMember, "Onbekend lid: " + std::string(name));
}

void ThrowInvalidPropertyValue(std::string_view property) {
  throw Error(ErrorNumber::InvalidPropertyValue,
              "Ongeldige waarde voor de eigenschap " + std::string(property));
}

}  // namespace pagivo
