// Texts of the chart window, its page and its export beyond the numbered messages.
#include <array>

#include "texts/text_row.h"

namespace chartproject {

namespace {

constexpr auto kRows = std::to_array<TextRow>({
    {Text::kExportStopped, "A exportação foi interrompida. Nenhum arquivo foi gravado.",
     "The export was stopped. No file was written.", "La exportación fue interrumpida. No se grabó ningún archivo."},
    {Text::kExportSkippedLines, "%1 linha(s) do arquivo não são pontos e ficaram de fora; a primeira é a linha %2.",
     "%1 line(s) are not data points and were skipped; the first is line %2.",
     "%1 línea(s) del archivo no son puntos y quedaron fuera; la primera es la línea %2."},
    {Text::kExportTooLarge, "O arquivo tem mais pontos do que cabem em uma planilha deste formato. Caberiam %1 pontos.",
     "The file has more points than a workbook of this format can hold. %1 points would fit.",
     "El archivo tiene más puntos de los que caben en un libro de este formato. Cabrían %1 puntos."},
    {Text::kExportNeedsSpace, "A planilha precisa de %1; o disco tem %2 livres. Nada foi gravado.",
     "The workbook needs %1; the disk has %2 free. Nothing was written.",
     "El libro necesita %1; el disco tiene %2 libres. No se grabó nada."},
    {Text::kExportWithoutPoints, "O arquivo contém 0 pontos: a planilha tem apenas o cabeçalho.",
     "The file holds 0 points: the workbook has its header only.",
     "El archivo contiene 0 puntos: el libro solo tiene el encabezado."},
    {Text::kExporting, "Exportando: %1 % (Esc interrompe)", "Exporting: %1 % (Esc stops)",
     "Exportando: %1 % (Esc detiene)"},
    {Text::kCellPlace, "linha %1, coluna %2: ", "line %1, column %2: ", "línea %1, columna %2: "},
    {Text::kPointsPerDivision, "Pontos por divisão: %1", "Points per division: %1", "Puntos por división: %1"},
    {Text::kReadingFile, "Lendo o arquivo: %1 % (Esc interrompe)", "Reading the file: %1 % (Esc stops)",
     "Leyendo el archivo: %1 % (Esc interrumpe)"},
    {Text::kReadingStopped, "Interrompido. O gráfico fica onde estava.", "Stopped. The chart stays where it was.",
     "Interrumpido. El gráfico queda donde estaba."},
    {Text::kFewerPoints, "O arquivo contém %1 pontos; o cabeçalho indica %2.",
     "The file holds %1 points; its header names %2.", "El archivo contiene %1 puntos; el encabezado indica %2."},
    {Text::kMorePoints, "O arquivo continua depois do ponto %1, o último que o cabeçalho indica.",
     "The file continues after point %1, the last one its header announces.",
     "El archivo continúa después del punto %1, el último que indica el encabezado."},
    {Text::kUnknownPoints, "O cabeçalho não indica um número de pontos; o arquivo contém %1.",
     "The header does not name a number of points; the file holds %1.",
     "El encabezado no indica un número de puntos; el archivo contiene %1."},
    {Text::kUnknownSeries, "O cabeçalho não indica de 1 a 4 parâmetros; %1 colunas do arquivo são mostradas.",
     "The header does not name 1 to 4 parameters; %1 columns of the file are shown.",
     "El encabezado no indica de 1 a 4 parámetros; se muestran %1 columnas del archivo."},
    {Text::kNoPointLines, "O arquivo não contém pontos.", "The file holds no points.",
     "El archivo no contiene puntos."},
    {Text::kNoParameterNames, "Os nomes dos parâmetros não estão disponíveis: %1",
     "The names of the parameters are not available: %1", "Los nombres de los parámetros no están disponibles: %1"},
    {Text::kReadoutPoint, "Ponto %1, %2", "Point %1, %2", "Punto %1, %2"},
    {Text::kCursorPoint, "Cursor %1: ponto %2, %3", "Cursor %1: point %2, %3", "Cursor %1: punto %2, %3"},
    {Text::kCursorDifference, "Diferença: %1 pontos, %2", "Difference: %1 points, %2", "Diferencia: %1 puntos, %2"},
    {Text::kChartTip, "Clique: primeiro cursor; Shift e clique: segundo cursor; Esc: remove os cursores",
     "Click: first cursor; Shift and click: second cursor; Esc: removes the cursors",
     "Clic: primer cursor; Mayús y clic: segundo cursor; Esc: quita los cursores"},
    {Text::kSimulatedValues, "Os valores são de drives simulados.", "The values come from simulated drives.",
     "Los valores son de drives simulados."},
    {Text::kValueNotRead, "%1 (não lido: %2)", "%1 (not read: %2)", "%1 (no leído: %2)"},
    {Text::kCompanionNotRead, "As leituras que falharam não são conhecidas: %1",
     "The failed readings are not known: %1", "Las lecturas fallidas no se conocen: %1"},
    {Text::kMenuGo, "Ir para", "Go", "Ir a"},
    {Text::kMenuLook, "Aparência", "Look", "Apariencia"},
    {Text::kActionDivisionBack, "Uma divisão para trás", "One division back", "Una división atrás"},
    {Text::kActionDivisionOn, "Uma divisão adiante", "One division on", "Una división adelante"},
    {Text::kActionPageBack, "Uma página para trás", "One page back", "Una página atrás"},
    {Text::kActionPageOn, "Uma página adiante", "One page on", "Una página adelante"},
    {Text::kActionFirstPoint, "Primeiro ponto", "First point", "Primer punto"},
    {Text::kActionLastPoint, "Último ponto", "Last point", "Último punto"},
    {Text::kActionRemoveCursors, "Remover os cursores", "Remove the cursors", "Quitar los cursores"},
    {Text::kKeyShift, "Shift", "Shift", "Mayús"},
    {Text::kKeyLeft, "Seta esquerda", "Left", "Flecha izquierda"},
    {Text::kKeyRight, "Seta direita", "Right", "Flecha derecha"},
    {Text::kKeyPageUp, "Page Up", "Page Up", "Re Pág"},
    {Text::kKeyPageDown, "Page Down", "Page Down", "Av Pág"},
    {Text::kKeyHome, "Home", "Home", "Inicio"},
    {Text::kKeyEnd, "End", "End", "Fin"},
    {Text::kKeyBackspace, "Backspace", "Backspace", "Retroceso"},
    {Text::kKeySpace, "Espaço", "Space", "Espacio"},
});
static_assert(InOrder(kRows, Text::kExportStopped), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> ChartRows() noexcept {
  return kRows;
}

}  // namespace chartproject
