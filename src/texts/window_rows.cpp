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
    {Text::kLinkDrives, "Drives", "Drives", "Drives"},
    {Text::kLinkSimulated, "simulados", "simulated", "simulados"},
    {Text::kLinkSerial, "porta serial", "serial port", "puerto serie"},
    {Text::kLinkNetwork, "rede", "network", "red"},
    {Text::kLinkPort, "Porta", "Port", "Puerto"},
    {Text::kLinkAnotherPort, "outra ...", "another ...", "otro ..."},
    {Text::kLinkLookAgain, "procurar de novo", "look again", "buscar de nuevo"},
    {Text::kLinkOtherPort, "Outra porta", "Other port", "Otro puerto"},
    {Text::kLinkHost, "Nome do host", "Host name", "Nombre del host"},
    {Text::kLinkSpeed, "Velocidade", "Speed", "Velocidad"},
    {Text::kLinkParity, "Paridade", "Parity", "Paridad"},
    {Text::kParityEven, "par", "even", "par"},
    {Text::kParityNone, "nenhuma", "none", "ninguna"},
    {Text::kParityOdd, "ímpar", "odd", "impar"},
    {Text::kLinkTest, "Testar", "Test", "Probar"},
    {Text::kLinkTestTip, "Perguntar a cada endereço da linha, de 1 a 30, quem responde",
     "Ask each address of the line, 1 to 30, who answers",
     "Preguntar a cada dirección de la línea, de 1 a 30, quién responde"},
    {Text::kLinkStop, "Parar", "Stop", "Detener"},
    {Text::kLinkPortMissing, "Escolha uma porta, ou digite seu nome.", "Choose a port, or type its name.",
     "Elija un puerto o escriba su nombre."},
    {Text::kLinkHostMissing, "Digite o nome do host, ou nome:porta.", "Type the name of the host, or name:port.",
     "Escriba el nombre del host, o nombre:puerto."},
    {Text::kLinkNoPorts, "Não há porta serial. O conversor está conectado?",
     "There is no serial port. Is the converter plugged in?", "No hay puerto serie. ¿Está conectado el convertidor?"},
    {Text::kLinkAsking, "Perguntando ao endereço %1 de %2 ... (Esc para)", "Asking address %1 of %2 ... (Esc stops)",
     "Preguntando a la dirección %1 de %2 ... (Esc detiene)"},
    {Text::kLinkStopped, "O teste foi parado.", "The test was stopped.", "La prueba se detuvo."},
    {Text::kLinkAnswer, "Respondem: %1.", "These answer: %1.", "Responden: %1."},
    {Text::kLinkNobody,
     "Nenhum drive responde. Verifique alimentação, endereços, velocidade, paridade e os fios A e B.",
     "No drive answers. Check power, addresses, speed, parity and the wires A and B.",
     "Ningún drive responde. Verifique alimentación, direcciones, velocidad, paridad y los hilos A y B."},
    {Text::kLinkNotInProject, "Ainda não estão no projeto: %1.", "Not in the project yet: %1.",
     "Aún no están en el proyecto: %1."},
    {Text::kLinkNoAnswer, "Estão no projeto e não respondem: %1.", "In the project, but silent: %1.",
     "Están en el proyecto y no responden: %1."},
    {Text::kPortInUse, "%1 (em uso por %2)", "%1 (in use by %2)", "%1 (en uso por %2)"},
    {Text::kStartAddDrive, "Adicionar drive ...", "Add drive ...", "Añadir drive ..."},
    {Text::kStartRemoveDrive, "Remover drive ...", "Remove drive ...", "Quitar drive ..."},
    {Text::kStartOpenProject, "Abrir projeto ...", "Open project ...", "Abrir proyecto ..."},
    {Text::kStartProjectFiles, "Arquivos de projeto", "Project files", "Archivos de proyecto"},
    {Text::kAddDrive, "Adicionar drive", "Add drive", "Añadir drive"},
    {Text::kDriveModel, "Modelo", "Model", "Modelo"},
    {Text::kFirmwareVersion, "Versão do firmware", "Firmware version", "Versión del firmware"},
    {Text::kDriveTag, "Identificação", "Tag", "Identificación"},
    {Text::kAdd, "Adicionar", "Add", "Añadir"},
    {Text::kRemoveDrive, "Remover drive", "Remove drive", "Quitar drive"},
    {Text::kDrive, "Drive", "Drive", "Drive"},
    {Text::kAllDrives, "todos os drives", "all drives", "todos los drives"},
    {Text::kRemove, "Remover", "Remove", "Quitar"},
    {Text::kDriveAdded, "O drive %1 está no projeto: %2", "Drive %1 is in the project: %2",
     "El drive %1 está en el proyecto: %2"},
    {Text::kDriveRemoved, "Não estão mais no projeto, e seus arquivos ficam: %1",
     "No longer in the project; the files stay: %1", "Ya no están en el proyecto; sus archivos quedan: %1"},
});
static_assert(InOrder(kRows, Text::kStartDrives), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> WindowRows() noexcept {
  return kRows;
}

}  // namespace chartproject
