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
    {Text::kReadNoAnswer, "sem resposta", "no answer", "sin respuesta"},
    {Text::kReadTimeout, "resposta incompleta", "incomplete answer", "respuesta incompleta"},
    {Text::kReadChecksum, "soma de verificação errada", "bad checksum", "suma de verificación errónea"},
    {Text::kReadException, "recusado pelo drive", "refused by the drive", "rechazado por el drive"},
    {Text::kReadPortGone, "a porta sumiu", "the port is gone", "el puerto desapareció"},
    {Text::kReadStatus, "estado %1", "status %1", "estado %1"},
    {Text::kReadBroken, "a comunicação falhou", "the link failed", "la comunicación falló"},
    {Text::kReadForeign, "chegou outra resposta, que não foi pedida", "another answer came, which was not asked for",
     "llegó otra respuesta, que no se había pedido"},
    {Text::kExceptionFunction, "função desconhecida", "unknown function", "función desconocida"},
    {Text::kExceptionAddress, "o parâmetro não existe", "there is no such parameter", "no existe el parámetro"},
    {Text::kExceptionValue, "valor inválido", "invalid value", "valor no válido"},
    {Text::kExceptionDevice, "falha do drive", "failure of the drive", "fallo del drive"},
    {Text::kExceptionLater, "a resposta demora", "the answer takes longer", "la respuesta tarda"},
    {Text::kExceptionBusy, "drive ocupado", "the drive is busy", "drive ocupado"},
    {Text::kExceptionMemory, "erro de memória do drive", "memory error of the drive", "error de memoria del drive"},
    {Text::kExceptionPath, "o gateway não tem caminho", "the gateway has no path", "la pasarela no tiene camino"},
    {Text::kExceptionTarget, "o drive não responde ao gateway", "the drive does not answer the gateway",
     "el drive no responde a la pasarela"},
    {Text::kExceptionCode, "exceção %1", "exception %1", "excepción %1"},
});
static_assert(InOrder(kRows, Text::kDriverLineError), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> DriveRows() noexcept {
  return kRows;
}

}  // namespace chartproject
