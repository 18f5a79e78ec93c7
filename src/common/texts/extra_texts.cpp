// The additional texts, one row each. A new text: a name in the header's list, a row here at the same place.
#include "common/texts/extra_texts.h"

#include <array>
#include <string_view>

#include "common/environment/environment.h"

namespace chartproject {

namespace {

struct ExtraTextRow {
  ExtraText id;
  std::string_view portuguese;
  std::string_view english;
  std::string_view spanish;
};

// clang-format off
constexpr std::array kTexts{
    ExtraTextRow{ExtraText::kHintDriveAddress,
        "Escolha um endereço de drive.",
        "Choose a drive address.",
        "Elija una dirección de drive."},
    ExtraTextRow{ExtraText::kHintParameters,
        "Escolha um parâmetro em cada lista em uso.",
        "Choose a parameter in every list that is in use.",
        "Elija un parámetro en cada lista en uso."},
    ExtraTextRow{ExtraText::kHintFileName,
        "Digite um nome de arquivo.",
        "Enter a file name.",
        "Introduzca un nombre de archivo."},
    ExtraTextRow{ExtraText::kHintTime,
        "Digite o tempo entre pontos.",
        "Enter the time among points.",
        "Introduzca el tiempo entre puntos."},
    ExtraTextRow{ExtraText::kHintPoints,
        "Digite o número de pontos.",
        "Enter the number of points.",
        "Introduzca el número de puntos."},
    ExtraTextRow{ExtraText::kHintEvent,
        "Escolha um evento.",
        "Choose an event.",
        "Elija un evento."},
    ExtraTextRow{ExtraText::kHintContent,
        "Digite o conteúdo de comparação.",
        "Enter the content to compare with.",
        "Introduzca el contenido de comparación."},
    ExtraTextRow{ExtraText::kRunEstimate,
        "Duração %1, cerca de %2.",
        "Duration %1, about %2.",
        "Duración %1, unos %2."},
    ExtraTextRow{ExtraText::kElapsedAndEnd,
        "Decorrido %1, término previsto %2",
        "Elapsed %1, expected end %2",
        "Transcurrido %1, término previsto %2"},
    ExtraTextRow{ExtraText::kFileBeingRecorded,
        "%1 está sendo registrado por outra janela ou outro programa.",
        "%1 is being recorded by another window or program.",
        "%1 está siendo registrado por otra ventana u otro programa."},
    ExtraTextRow{ExtraText::kNewFile,
        "&Novo ...",
        "&New ...",
        "&Nuevo ..."},
    ExtraTextRow{ExtraText::kNewFileTip,
        "Dar nome a um novo arquivo de gráfico na pasta do projeto",
        "Name a new chart file in the project folder",
        "Nombrar un archivo de gráfico nuevo en la carpeta del proyecto"},
    ExtraTextRow{ExtraText::kBrowseTip,
        "Procurar um arquivo de gráfico existente",
        "Look for an existing chart file",
        "Buscar un archivo de gráfico existente"},
    ExtraTextRow{ExtraText::kExportStopped,
        "A exportação foi interrompida. Nenhum arquivo foi gravado.",
        "The export was stopped. No file was written.",
        "La exportación fue interrumpida. No se grabó ningún archivo."},
    ExtraTextRow{ExtraText::kExportSkippedLines,
        "%1 linha(s) do arquivo não são pontos e ficaram de fora; a primeira é a linha %2.",
        "%1 line(s) of the file are no points and were left out; the first is line %2.",
        "%1 línea(s) del archivo no son puntos y quedaron fuera; la primera es la línea %2."},
    ExtraTextRow{ExtraText::kExportTooLarge,
        "O arquivo tem mais pontos do que cabem em uma planilha deste formato. Caberiam %1 pontos.",
        "The file has more points than a workbook of this format can hold. %1 points would fit.",
        "El archivo tiene más puntos de los que caben en un libro de este formato. Cabrían %1 puntos."},
    ExtraTextRow{ExtraText::kPointsPerDivision,
        "Pontos por divisão: %1",
        "Points per division: %1",
        "Puntos por división: %1"},
    ExtraTextRow{ExtraText::kReadingFile,
        "Lendo o arquivo: %1 % (Esc interrompe)",
        "Reading the file: %1 % (Esc stops)",
        "Leyendo el archivo: %1 % (Esc interrumpe)"},
    ExtraTextRow{ExtraText::kReadingStopped,
        "Interrompido. O gráfico fica onde estava.",
        "Stopped. The chart stays where it was.",
        "Interrumpido. El gráfico queda donde estaba."},
    ExtraTextRow{ExtraText::kFewerPoints,
        "O arquivo contém %1 pontos; o cabeçalho indica %2.",
        "The file holds %1 points; its header names %2.",
        "El archivo contiene %1 puntos; el encabezado indica %2."},
    ExtraTextRow{ExtraText::kMorePoints,
        "O arquivo continua depois do ponto %1, o último que o cabeçalho indica.",
        "The file goes on behind point %1, the last one that its header names.",
        "El archivo continúa después del punto %1, el último que indica el encabezado."},
    ExtraTextRow{ExtraText::kUnknownPoints,
        "O cabeçalho não indica um número de pontos; o arquivo contém %1.",
        "The header names no number of points; the file holds %1.",
        "El encabezado no indica un número de puntos; el archivo contiene %1."},
    ExtraTextRow{ExtraText::kUnknownSeries,
        "O cabeçalho não indica de 1 a 4 parâmetros; %1 colunas do arquivo são mostradas.",
        "The header does not name 1 to 4 parameters; %1 columns of the file are shown.",
        "El encabezado no indica de 1 a 4 parámetros; se muestran %1 columnas del archivo."},
    ExtraTextRow{ExtraText::kNoPointLines,
        "O arquivo não contém pontos.",
        "The file holds no points.",
        "El archivo no contiene puntos."},
    ExtraTextRow{ExtraText::kNoParameterNames,
        "Os nomes dos parâmetros não estão disponíveis: %1",
        "The names of the parameters are not available: %1",
        "Los nombres de los parámetros no están disponibles: %1"},
    ExtraTextRow{ExtraText::kReadoutPoint,
        "Ponto %1, %2",
        "Point %1, %2",
        "Punto %1, %2"},
    ExtraTextRow{ExtraText::kCursorPoint,
        "Cursor %1: ponto %2, %3",
        "Cursor %1: point %2, %3",
        "Cursor %1: punto %2, %3"},
    ExtraTextRow{ExtraText::kCursorDifference,
        "Diferença: %1 pontos, %2",
        "Difference: %1 points, %2",
        "Diferencia: %1 puntos, %2"},
    ExtraTextRow{ExtraText::kChartTip,
        "Clique: primeiro cursor; Shift e clique: segundo cursor; Esc: remove os cursores",
        "Click: first cursor; Shift and click: second cursor; Esc: removes the cursors",
        "Clic: primer cursor; Mayús y clic: segundo cursor; Esc: quita los cursores"},
    ExtraTextRow{ExtraText::kStartDrives,
        "Drives do projeto",
        "Drives of the project",
        "Drives del proyecto"},
    ExtraTextRow{ExtraText::kStartAcquire,
        "&Registrar ...",
        "&Record ...",
        "&Registrar ..."},
    ExtraTextRow{ExtraText::kStartOpenChart,
        "&Abrir gráfico ...",
        "&Open chart ...",
        "&Abrir gráfico ..."},
    ExtraTextRow{ExtraText::kStartClose,
        "&Fechar",
        "&Close",
        "&Cerrar"},
    ExtraTextRow{ExtraText::kStartLanguage,
        "&Idioma",
        "&Language",
        "&Idioma"},
    ExtraTextRow{ExtraText::kStartSound,
        "&Sons",
        "&Sounds",
        "&Sonidos"},
    ExtraTextRow{ExtraText::kStartChartFiles,
        "Arquivos de gráfico",
        "Chart files",
        "Archivos de gráfico"},
    ExtraTextRow{ExtraText::kStartProjectMade,
        "Um projeto com drives simulados foi criado em %1. Escolha Registrar para começar.",
        "A project with simulated drives was made in %1. Choose Record to begin.",
        "Se creó un proyecto con drives simulados en %1. Elija Registrar para empezar."},
    ExtraTextRow{ExtraText::kStartSettingsReplaced,
        "Estas configurações apontam agora para o novo projeto. Seus valores anteriores:",
        "These settings now point at the new project. Their former values:",
        "Estas configuraciones apuntan ahora al nuevo proyecto. Sus valores anteriores:"},
};
// clang-format on

constexpr bool Complete() {
  if (kTexts.size() != static_cast<std::size_t>(ExtraText::kCount)) return false;
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    const ExtraTextRow& row = kTexts[i];
    if (row.id != static_cast<ExtraText>(i)) return false;
    if (row.portuguese.empty() || row.english.empty() || row.spanish.empty()) return false;
  }
  return true;
}
static_assert(Complete(), "every additional text has its row, in the order of ExtraText");

}  // namespace

std::string LoadExtraText(const Environment& environment, ExtraText text) {
  const ExtraTextRow& row = kTexts.at(static_cast<std::size_t>(text));
  if (environment.languageBase == 0) return std::string(row.portuguese);
  return std::string(environment.languageBase == 2000 ? row.spanish : row.english);
}

std::string FillIn(std::string text, std::initializer_list<std::string> values) {
  // One pass, so that a "%2" inside a value (a file name) stays as it is.
  std::string filled;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t number = text[i] == '%' && i + 1 < text.size() ? static_cast<std::size_t>(text[i + 1] - '0') : 0;
    if (number >= 1 && number <= values.size()) {
      filled += *(values.begin() + number - 1);
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

}  // namespace chartproject
