// Texts about drives and driver files.
#include <array>

#include "texts/text_row.h"

namespace chartproject {

namespace {

constexpr auto kRows = std::to_array<TextRow>({
    {Text::kDriverLineError, "Erro na linha %1 no driver %2", "Error in line %1 in driver %2",
     "Error en la linea %1 en el driver %2"},
    {Text::kUnknownUnit, "Erro : driver com unidade desconhecida %1", "Error : driver with unknown unit %1",
     "Error : driver con unidad desconocida : %1"},
});
static_assert(InOrder(kRows, Text::kDriverLineError), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> DriveRows() noexcept {
  return kRows;
}

}  // namespace chartproject
