// Texts of the start window, and the words of message boxes and file dialogs.
#include <array>

#include "texts/text_row.h"

namespace chartproject {

namespace {

constexpr auto kRows = std::to_array<TextRow>({
    {Text::kStartDrives, "Drives do projeto", "Drives of the project", "Drives del proyecto"},
    {Text::kStartAcquire, "&Registrar ...", "&Record ...", "&Registrar ..."},
    {Text::kStartOpenChart, "&Abrir gráfico ...", "&Open chart ...", "&Abrir gráfico ..."},
    {Text::kStartClose, "&Fechar", "&Close", "&Cerrar"},
    {Text::kStartLanguage, "&Idioma", "&Language", "&Idioma"},
    {Text::kStartSound, "&Sons", "&Sounds", "&Sonidos"},
    {Text::kStartChartFiles, "Arquivos de gráfico", "Chart files", "Archivos de gráfico"},
    {Text::kStartProjectMade, "Um projeto com drives simulados foi criado em %1. Escolha Registrar para começar.",
     "A project with simulated drives was made in %1. Choose Record to begin.",
     "Se creó un proyecto con drives simulados en %1. Elija Registrar para empezar."},
    {Text::kStartSettingsReplaced, "Estas configurações apontam agora para o novo projeto. Seus valores anteriores:",
     "These settings now point at the new project. Their former values:",
     "Estas configuraciones apuntan ahora al nuevo proyecto. Sus valores anteriores:"},
    {Text::kBoxOk, "OK", "OK", "Aceptar"},
    {Text::kBoxCancel, "Cancelar", "Cancel", "Cancelar"},
    {Text::kBoxYes, "&Sim", "&Yes", "&Sí"},
    {Text::kBoxNo, "&Não", "&No", "&No"},
    {Text::kBoxHelp, "A&juda", "&Help", "A&yuda"},
    {Text::kBoxOpen, "&Abrir", "&Open", "&Abrir"},
    {Text::kBoxSave, "&Salvar", "&Save", "&Guardar"},
    {Text::kBoxLookIn, "Procurar em:", "Look in:", "Buscar en:"},
    {Text::kBoxFileName, "&Nome do arquivo:", "File &name:", "&Nombre de archivo:"},
    {Text::kBoxFileType, "Arquivos do tipo:", "Files of type:", "Archivos de tipo:"},
    {Text::kHelpTitle, "Ajuda", "Help", "Ayuda"},
    {Text::kHelpFileMissing, "O arquivo de ajuda %1 não foi encontrado.", "The help file %1 was not found.",
     "No se encontró el archivo de ayuda %1."},
    {Text::kHelpFileUnreadable, "O arquivo de ajuda %1 não pode ser mostrado aqui.",
     "The help file %1 cannot be shown here.", "El archivo de ayuda %1 no se puede mostrar aquí."},
    {Text::kStartRecent, "Gráficos recentes", "Recent charts", "Gráficos recientes"},
});
static_assert(InOrder(kRows, Text::kStartDrives), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> WindowRows() noexcept {
  return kRows;
}

}  // namespace chartproject
