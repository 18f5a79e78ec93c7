// Checked access to the tables.
#include "drive/parameter_tables.h"

#include "platform/run_time_error.h"

namespace chartproject {

namespace {

[[noreturn]] void ThrowSubscript(const char* what, int number) {
  throw RunTimeError(error_number::kSubscriptOutOfRange,
                     std::string("Subscript out of range: ") + what + " " + std::to_string(number));
}

}  // namespace

const ParameterEntry& ParameterTable::At(int parameter) const {
  if (parameter < 0 || parameter >= kParameterCount) ThrowSubscript("parameter", parameter);
  return parameters[static_cast<std::size_t>(parameter)];
}

ParameterEntry& ParameterTable::At(int parameter) {
  return const_cast<ParameterEntry&>(static_cast<const ParameterTable&>(*this).At(parameter));
}

ParameterTable& ParameterTables::At(int address) {
  if (address < 1 || address > static_cast<int>(tables_.size())) ThrowSubscript("drive address", address);
  std::unique_ptr<ParameterTable>& table = tables_[static_cast<std::size_t>(address - 1)];
  if (!table) table = std::make_unique<ParameterTable>();
  return *table;
}

}  // namespace chartproject
