// Descriptions of run-time errors that a user can see.
#include <array>

#include "texts/text_row.h"

namespace chartproject {

namespace {

constexpr auto kRows = std::to_array<TextRow>({
    {Text::kDialogAlreadyOpen, "A janela de aquisição já está aberta.", "The acquisition dialog is already open.",
     "El diálogo de adquisición ya está abierto."},
    {Text::kNoChartFileName, "Nenhum nome de arquivo foi informado.", "No file name was given.",
     "No se indicó ningún nombre de archivo."},
    {Text::kDriveLinkNotOpen, "A ligação com os drives não está aberta.", "The drive link is not open.",
     "El enlace con los drives no está abierto."},
    {Text::kUnknownDriveLink, "Não existe a ligação com drives \"%1\".", "There is no drive link \"%1\".",
     "No existe el enlace con drives \"%1\"."},
    {Text::kNotAChartFile, "Não é um arquivo de gráfico: %1", "Not a chart file: %1",
     "No es un archivo de gráfico: %1"},
    {Text::kChartFileWithoutPoints, "%1: o arquivo não contém pontos.", "%1: the file holds no points.",
     "%1: el archivo no contiene puntos."},
    {Text::kLineIsNotAPoint, "%1: a linha %2 não é um ponto: %3", "%1: line %2 is not a data point: %3",
     "%1: la línea %2 no es un punto: %3"},
    {Text::kIsAFolder, "%1 é uma pasta.", "%1 is a folder.", "%1 es una carpeta."},
    {Text::kNotARegularFile, "%1 não é um arquivo comum.", "%1 is not a regular file.", "%1 no es un archivo común."},
    {Text::kFileNotFound, "Arquivo não encontrado: %1", "File not found: %1", "Archivo no encontrado: %1"},
    {Text::kClipboardInUse, "A área de transferência está em uso por outro programa.",
     "The clipboard is in use by another program.", "Otro programa está usando el portapapeles."},
    {Text::kClipboardWithoutPicture, "A área de transferência não contém uma imagem.",
     "The clipboard holds no picture.", "El portapapeles no contiene ninguna imagen."},
    {Text::kPicturesNotDrawn, "Imagens não podem ser desenhadas aqui.", "Pictures cannot be drawn here.",
     "Aquí no se pueden dibujar imágenes."},
    {Text::kInvalidPicture, "Imagem inválida: %1", "Invalid picture: %1", "Imagen no válida: %1"},
    {Text::kPictureNotWritten, "A imagem não pode ser gravada: %1", "The picture cannot be written: %1",
     "La imagen no se puede grabar: %1"},
    {Text::kNothingToPrint, "Não há imagem para imprimir.", "There is no picture to print.",
     "No hay ninguna imagen para imprimir."},
    {Text::kPrinterError, "Erro da impressora: %1", "Printer error: %1", "Error de la impresora: %1"},
    {Text::kBuiltWithoutPrinting, "Este programa foi compilado sem impressão.",
     "This program was built without printing.", "Este programa fue compilado sin impresión."},
    {Text::kBuiltWithoutWindows, "Este programa foi compilado sem janelas e imagens.",
     "This program was built without windows and pictures.", "Este programa fue compilado sin ventanas ni imágenes."},
    {Text::kNoDisplay, "Não há tela em que mostrar janelas.", "There is no display to show windows on.",
     "No hay ninguna pantalla en la que mostrar ventanas."},
    {Text::kDisplayNotReached, "A tela %1 não pode ser alcançada.", "The display %1 cannot be reached.",
     "No se puede acceder a la pantalla %1."},
    {Text::kWindowNotMade, "A janela não pôde ser criada.", "The window could not be made.",
     "No se pudo crear la ventana."},
    {Text::kControlNotMade, "O controle %1 não pôde ser criado.", "The control %1 could not be made.",
     "No se pudo crear el control %1."},
    {Text::kCellTextTooLong, "Um texto é longo demais para uma célula da planilha.",
     "A text is too long for a cell of the workbook.", "Un texto es demasiado largo para una celda del libro."},
    {Text::kWorkbookTooLarge, "A planilha é grande demais para o seu formato.",
     "The workbook is too large for its format.", "El libro es demasiado grande para su formato."},
    {Text::kSheetRefused, "A planilha não aceita a folha %1.", "The workbook cannot take the sheet %1.",
     "El libro no admite la hoja %1."},
    {Text::kExportOntoItself, "%1: um arquivo de gráfico não pode ser exportado sobre si mesmo.",
     "%1: a chart file cannot be exported onto itself.",
     "%1: un archivo de gráfico no se puede exportar sobre sí mismo."},
    {Text::kDiskTooLarge, "O disco é grande demais para ser medido neste sistema.",
     "The disk is too large to be measured on this system.",
     "El disco es demasiado grande para ser medido en este sistema."},
    {Text::kOverflow, "Estouro: %1", "Overflow: %1", "Desbordamiento: %1"},
    {Text::kTypeMismatch, "Tipo incompatível: \"%1\"", "Type mismatch: \"%1\"", "Tipo no coincidente: \"%1\""},
    {Text::kSettingsFileTooLarge, "%1 é grande demais para um arquivo de configurações.",
     "%1 is too large for a settings file.", "%1 es demasiado grande para un archivo de configuración."},
    {Text::kSettingsLineSkipped, "a linha não foi entendida e ficou de fora: %1",
     "the line is not understood and is left out: %1", "la línea no se entiende y se omite: %1"},
    {Text::kSettingOverflow, "Estouro: a configuração %1 é \"%2\"", "Overflow: setting %1 is \"%2\"",
     "Desbordamiento: la configuración %1 es \"%2\""},
    {Text::kSettingTypeMismatch, "Tipo incompatível: a configuração %1 é \"%2\"", "Type mismatch: setting %1 is \"%2\"",
     "Tipo no coincidente: la configuración %1 es \"%2\""},
    {Text::kApplicationMember, "%1: o objeto não tem esse membro.", "%1: the object has no such member.",
     "%1: el objeto no tiene ese miembro."},
    {Text::kApplicationFailed, "%1 falhou.", "%1 failed.", "%1 falló."},
    {Text::kWithoutObject, "%1 não devolveu um objeto.", "%1 returned no object.", "%1 no devolvió ningún objeto."},
    {Text::kNoWorkbook, "Ainda não há planilha.", "There is no workbook yet.", "Todavía no hay ningún libro."},
    {Text::kFileTooLarge, "%1: o arquivo tem %2 MB; um arquivo desse tipo tem no máximo %3 MB.",
     "%1: the file has %2 MB; a file of this kind has at most %3 MB.",
     "%1: el archivo tiene %2 MB; un archivo de este tipo tiene como máximo %3 MB."},
    {Text::kNotACompanion, "%1 já existe, não foi escrito por este programa e ficou como estava.",
     "%1 exists already, was not written by this program and was left as it was.",
     "%1 ya existe, no fue escrito por este programa y quedó como estaba."},
    {Text::kCompanionLine, "%1, linha %2: não compreendida", "%1, line %2: not understood",
     "%1, línea %2: no se entiende"},
});
static_assert(InOrder(kRows, Text::kDialogAlreadyOpen), "every text has its row, in the order of the enumeration");

}  // namespace

std::span<const TextRow> ErrorRows() noexcept {
  return kRows;
}

}  // namespace chartproject
