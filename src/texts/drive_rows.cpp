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
    {Text::kFileLinePlace, "%1, linha %2: ", "%1, line %2: ", "%1, línea %2: "},
    {Text::kModelShowsNoNumbers, "O modelo %1 não mostra números, exceto em P006.",
     "The model %1 shows no numbers, except in P006.", "El modelo %1 no muestra números, salvo en P006."},
    {Text::kMoreDriverFaults, "O driver %2 tem mais %1 linha(s) com erro ou unidade desconhecida.",
     "Driver %2 has %1 more line(s) with an error or an unknown unit.",
     "El driver %2 tiene %1 línea(s) más con un error o una unidad desconocida."},
});
static_assert(InOrder(kRows, Text::kDriverLineError), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> DriveRows() noexcept {
  return kRows;
}

}  // namespace chartproject
