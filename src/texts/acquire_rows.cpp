// Texts of the acquisition dialog beyond the numbered messages.
#include <array>

#include "texts/text_row.h"

namespace chartproject {

namespace {

constexpr auto kRows = std::to_array<TextRow>({
    {Text::kHintDriveAddress, "Escolha um endereço de drive.", "Choose a drive address.",
     "Elija una dirección de drive."},
    {Text::kHintParameters, "Escolha um parâmetro em cada lista em uso.",
     "Choose a parameter in every list that is in use.", "Elija un parámetro en cada lista en uso."},
    {Text::kHintFileName, "Digite um nome de arquivo.", "Enter a file name.", "Introduzca un nombre de archivo."},
    {Text::kHintTime, "Digite o tempo entre pontos.", "Enter the time among points.",
     "Introduzca el tiempo entre puntos."},
    {Text::kHintPoints, "Digite o número de pontos.", "Enter the number of points.", "Introduzca el número de puntos."},
    {Text::kHintEvent, "Escolha um evento.", "Choose an event.", "Elija un evento."},
    {Text::kHintContent, "Digite o conteúdo de comparação.", "Enter the content to compare with.",
     "Introduzca el contenido de comparación."},
    {Text::kHintNotANumber, "Não é um número: %1", "Not a number: %1", "No es un número: %1"},
    {Text::kHintNoDriverFile, "Falta o arquivo de driver %1.", "The driver file %1 is missing.",
     "Falta el archivo de driver %1."},
    {Text::kHintBadDriverFile, "O arquivo de driver %1 não pode ser usado.", "The driver file %1 cannot be used.",
     "El archivo de driver %1 no se puede usar."},
    {Text::kTargetWritten, "%1 será gravado.", "%1 will be written.", "Se grabará %1."},
    {Text::kTargetReplaced, "%1 será substituído. Foi registrado em %2.", "%1 will be replaced. It was recorded on %2.",
     "Se reemplazará %1. Fue registrado el %2."},
    {Text::kTargetNoRecording, "%1 será substituído. Não é um registro.", "%1 will be replaced. It is not a recording.",
     "Se reemplazará %1. No es un registro."},
    {Text::kNoSuchFolder, "A pasta de %1 não existe.", "The folder of %1 does not exist.",
     "La carpeta de %1 no existe."},
    {Text::kNoRightToWrite, "Você não tem permissão para gravar %1.", "You have no right to write %1.",
     "Usted no tiene permiso para grabar %1."},
    {Text::kNoRightToRead, "Você não tem permissão para ler %1.", "You have no right to read %1.",
     "Usted no tiene permiso para leer %1."},
    {Text::kWaitingFor, "Esperando %1 desde %2.", "Waiting for %1 since %2.", "Esperando %1 desde las %2."},
    {Text::kWaitingForNow, "Esperando %1, agora %2, desde %3.", "Waiting for %1, now %2, since %3.",
     "Esperando %1, ahora %2, desde las %3."},
    {Text::kRunEstimate, "Duração %1, cerca de %2.", "Duration %1, about %2.", "Duración %1, unos %2."},
    {Text::kElapsedAndEnd, "Decorrido %1, término previsto %2", "Elapsed %1, expected end %2",
     "Transcurrido %1, término previsto %2"},
    {Text::kFileBeingRecorded, "%1 está sendo registrado por outra janela ou outro programa (arquivo de bloqueio %2).",
     "%1 is being recorded by another window or program (lock file %2).",
     "%1 está siendo registrado por otra ventana u otro programa (archivo de bloqueo %2)."},
    {Text::kPointsLost, "%1 ponto(s) não puderam ser salvos em lugar nenhum e estão perdidos.",
     "%1 point(s) could not be saved anywhere and are lost.",
     "%1 punto(s) no se pudieron guardar en ningún lugar y se perdieron."},
    {Text::kNewFile, "&Novo ...", "&New ...", "&Nuevo ..."},
    {Text::kNewFileTip, "Dar nome a um novo arquivo de gráfico na pasta do projeto",
     "Name a new chart file in the project folder", "Nombrar un archivo de gráfico nuevo en la carpeta del proyecto"},
    {Text::kBrowseTip, "Procurar um arquivo de gráfico existente", "Look for an existing chart file",
     "Buscar un archivo de gráfico existente"},
    {Text::kCrashWouldLose, "Uma queda do programa perderia os pontos: %1",
     "A crash of the program would lose the points: %1", "Una caída del programa perdería los puntos: %1"},
    {Text::kSpoolGoesOn, "%1 Os pontos continuam em %2.", "%1 The points go on in %2.",
     "%1 Los puntos continúan en %2."},
    {Text::kPointsMissing, "%1 ponto(s) foram registrados; %2 deles estão em %3.",
     "%1 point(s) were taken; %2 of them are in %3.", "Se registraron %1 punto(s); %2 de ellos están en %3."},
    {Text::kRecordingWasCut, "Um registro de %1 foi interrompido após %2 pontos.",
     "A recording of %1 was interrupted after %2 points.", "Un registro de %1 fue interrumpido después de %2 puntos."},
    {Text::kRecordingWasCutMore, "Um registro de %1 foi interrompido após mais de %2 pontos.",
     "A recording of %1 was interrupted after more than %2 points.",
     "Un registro de %1 fue interrumpido después de más de %2 puntos."},
    {Text::kPointsRecovered, "%1 ponto(s) do registro interrompido estão em %2.",
     "%1 point(s) of the interrupted recording are in %2.", "%1 punto(s) del registro interrumpido están en %2."},
    {Text::kRecordingWasWhole, "%1 contém todos os pontos; o que restava ao lado foi removido.",
     "%1 holds all the points; what was left beside it was removed.",
     "%1 contiene todos los puntos; lo que quedaba al lado se quitó."},
    {Text::kLinesLeftOut, "%1 linha(s) não são pontos.", "%1 line(s) are not points.", "%1 línea(s) no son puntos."},
    {Text::kRecover, "Recu&perar", "Reco&ver", "Recu&perar"},
    {Text::kRecoverTip, "Gravar um arquivo de gráfico com os pontos do registro interrompido",
     "Write a chart file with the points of the interrupted recording",
     "Grabar un archivo de gráfico con los puntos del registro interrumpido"},
    {Text::kRecoverLater, "&Mais tarde", "La&ter", "&Más tarde"},
    {Text::kRecoverLaterTip, "Deixar como está e perguntar na próxima vez", "Leave it and ask the next time",
     "Dejarlo y preguntar la próxima vez"},
    {Text::kDiscard, "&Descartar", "&Discard", "&Descartar"},
    {Text::kDiscardTip, "Apagar os pontos do registro interrompido", "Delete the points of the interrupted recording",
     "Borrar los puntos del registro interrumpido"},
    {Text::kDiscardQuestion, "Apagar os %1 pontos de %2?", "Delete the %1 points of %2?",
     "¿Borrar los %1 puntos de %2?"},
    {Text::kSimulatedTitle, "%1 - drives simulados", "%1 - simulated drives", "%1 - drives simulados"},
});
static_assert(InOrder(kRows, Text::kHintDriveAddress), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> AcquireRows() noexcept {
  return kRows;
}

}  // namespace chartproject
