// NativeEngine's printers: there is no print server behind it, so it knows none.
#include "engine/native/checked_values.h"
#include "engine/native/native_engine.h"
#include "pagivo/error.h"

namespace pagivo::native {

std::string NativeEngine::GetDevices(std::int16_t /*index*/) {
  ThrowSubscriptOutOfRange();
}

std::int16_t NativeEngine::GetNDevices() {
  return 0;
}

std::string NativeEngine::GetDevice() {
  return {};
}

void NativeEngine::PutDevice(const std::string& name) {
  throw Error(ErrorNumber::PrinterFailure, "De printer \"" + name + "\" bestaat niet");
}

std::string NativeEngine::GetPort() {
  return {};
}

void NativeEngine::PutCopies(std::int16_t copies) {
  if (copies < 1) ThrowInvalidPropertyValue("Copies");
  copies_ = copies;
}

void NativeEngine::PrintDoc(bool /*showDialog*/, std::int16_t /*firstPage*/,
                            std::int16_t /*lastPage*/) {
  if (!IsComplete()) throw Error(ErrorNumber::NoDocument, "Er is geen afgesloten document");
  throw Error(ErrorNumber::PrinterFailure, "Er is geen printer geïnstalleerd");
}

}  // namespace pagivo::native
